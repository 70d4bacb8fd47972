# ./test coverage: which branches of the portable rooms the native tests take: of each condition both outcomes. Walks and
# fuzzing, which take some by chance, are not counted.
# shellcheck shell=bash
test_coverage() {
    local rooms=(common ui settings kb report page) program=build/coverage/tests/vexa_tests profile=build/coverage/tests
    build coverage vexa_tests
    phase coverage-tests env LLVM_PROFILE_FILE="$profile.profraw" "$program" --gtest_brief=1 ||
        fail "the native tests failed"
    llvm-profdata merge "$profile.profraw" -o "$profile.profdata"
    llvm-cov report "$program" -instr-profile "$profile.profdata" --show-branch-summary --show-region-summary=false \
        --show-instantiation-summary=false "${rooms[@]}" | tee build/coverage/report.txt
    missed_branches "$program" "$profile.profdata" "${rooms[@]}" | tee build/coverage/missed.txt
}

# "file:line:column never true" of every branch that no test takes.
missed_branches() {
    llvm-cov show "$1" -instr-profile "$2" --show-branches=count --show-instantiations=false --show-line-counts=false "${@:3}" |
        awk -v root="$PWD/" '
            /^\/.*:$/ { sub(root, ""); sub(/:$/, ""); file = $0 }
            /Branch \(.*: 0[],]/ {
                match($0, /\(([0-9]+:[0-9]+)\)/)
                place = file ":" substr($0, RSTART + 1, RLENGTH - 2)
                if ($0 ~ /True: 0,/) print place " is never true"
                if ($0 ~ /False: 0\]/) print place " is never false"
            }' | sort -u -t: -k1,1 -k2,2n -k3,3n
}
