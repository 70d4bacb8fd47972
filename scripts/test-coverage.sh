# ./test coverage: which branches of the portable rooms the native tests take. Those that the compiler adds for thrown
# exceptions are not counted, nor walks and fuzzing, which take them by chance.
# shellcheck shell=bash
test_coverage() {
    install_packages coverage
    build coverage vexa_tests
    find build/coverage -name '*.gcda' -delete
    phase coverage-tests build/coverage/tests/vexa_tests --gtest_brief=1 || fail "the native tests failed"
    gcovr --root . --object-directory build/coverage --exclude-throw-branches --exclude-unreachable-branches --branches \
        --filter '(common|ui|settings|kb|report|page)/' --txt build/coverage/branches.txt --print-summary \
        build/coverage >build/coverage/summary.txt
    cat build/coverage/branches.txt
    sed -n 's/^branches/branches taken/p; s/^lines/lines/p' build/coverage/summary.txt
}
