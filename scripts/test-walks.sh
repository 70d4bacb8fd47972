# ./test walks [STEPS]: random walks over all forms, so many steps in all.
# shellcheck shell=bash
test_walks() {
    local steps=${1:-1000000} walks
    build native walk_tests
    walks=$(build/native/tests/walk_tests --gtest_list_tests | grep -c '^  ')
    phase walks env VEXA_STEPS=$((steps / walks)) build/native/tests/walk_tests ||
        fail "a walk found something; the log is build/log/walks.log"
    printf '%s walks of %s steps each\n' "$walks" $((steps / walks))
}
