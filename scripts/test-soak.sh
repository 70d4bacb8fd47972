# ./test soak: what takes too long for each day.
# shellcheck shell=bash
test_soak() {
    build windows-x64 VexaPPE soak_tests matrix_tests
    scripts/wine-prefix template >/dev/null
    phase soak scripts/soak || fail "the soak tests failed; the log is build/log/soak.log"
    cat build/log/soak.log
}
