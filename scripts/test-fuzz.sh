# ./test fuzz [SECONDS]: libFuzzer on each target, so long, from the corpus in the tree.
# shellcheck shell=bash
test_fuzz() {
    local seconds=${1:-60} target found=0 runs all=0
    build fuzz fuzz_targets
    mkdir -p build/fuzz/found
    for target in tests/fuzz/corpus/*; do
        target=$(basename "$target")
        mkdir -p "build/fuzz/corpus/$target"
        phase "fuzz-$target" "build/fuzz/tests/fuzz_$target" -max_len=400 -max_total_time="$seconds" \
            -print_final_stats=1 -artifact_prefix="build/fuzz/found/$target-" "build/fuzz/corpus/$target" \
            "tests/fuzz/corpus/$target" || found=$((found + 1))
        runs=$(sed -n 's/^stat::number_of_executed_units: *//p' "build/log/fuzz-$target.log")
        all=$((all + ${runs:-0}))
        printf '   %s: %s runs\n' "$target" "${runs:-?}"
    done
    printf '%s runs in all, %s targets with a finding (build/fuzz/found/)\n' "$all" "$found"
    [ "$found" = 0 ]
}
