# ./test newest: the 64-bit Windows tests in the newest Wine that Debian offers.
# shellcheck shell=bash
test_newest() {
    phase wine-root-newest scripts/wine-root newest || fail "the newest Wine cannot be had here"
    build windows-x64
    export TEST_WINE=newest
    play windows-x64 --label-regex '^program$'
    finish
}
