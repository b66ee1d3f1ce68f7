#!/usr/bin/env bash
# Runs every fuzz target for a number of seconds, two or three at a time, from seeds, past findings and what earlier
# runs kept.
# Usage: run.sh PROGRAMS SHAPEDOC WORK_FOLDER SECONDS
# FUZZ_SEED, when set, makes a run from the same start choose the same inputs.
# Leaks are looked for once, at the end of each target's run. What is found is left in WORK_FOLDER/findings; the last
# line counts it.
set -euo pipefail
programs=$1 shapedoc=$2 work=$3 seconds=$4
here=$(dirname "$0")
targets=(ListStream SvgImport Picture TextRecord StreamCheck JpegHeader CallSequence)
mkdir -p "$work/findings" "$work/kept" "$work/logs"
"$here/make_seeds.sh" "$shapedoc" "$work/seeds"
export ASAN_OPTIONS=allocator_may_return_null=1:detect_stack_use_after_return=0

fuzz() {
    local target=$1 slow=10 dictionary=()
    [ ! -e "$here/dictionaries/$1.dict" ] || dictionary=("-dict=$here/dictionaries/$1.dict")
    # A drawing may paint some 100,000 elements by references, and is painted twice.
    [ "$target" != SvgImport ] || slow=60
    mkdir -p "$work/kept/$target"
    "$programs/$target" "${dictionary[@]}" -seed="${FUZZ_SEED:-0}" -max_total_time="$seconds" \
        -timeout="$slow" -rss_limit_mb=3000 -malloc_limit_mb=300 \
        -max_len=16384 -detect_leaks=0 -artifact_prefix="$work/findings/$target-" -print_final_stats=1 \
        "$work/kept/$target" "$work/seeds/$target" "$here/corpus/$target" >"$work/logs/$target" 2>&1
}

failed=0
for ((i = 0; i < ${#targets[@]}; i += ${#pids[@]})); do
    pids=()
    for target in "${targets[@]:i:${#targets[@]}-i==3?3:2}"; do # the last does not keep the machine for itself
        fuzz "$target" & pids+=($!)
    done
    for pid in "${pids[@]}"; do
        wait "$pid" || failed=1
    done
done
for target in "${targets[@]}"; do
    runs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$work/logs/$target")
    reached=$(sed -n 's/.* cov: \([0-9]*\).*/\1/p' "$work/logs/$target" | tail -n 1)
    printf '%-12s %10s runs, %5s edges reached\n' "$target" "${runs:-?}" "${reached:-?}"
done
((failed == 0)) || grep -H -m 3 "ERROR\|SUMMARY" "$work"/logs/* || true
findings=$(find "$work/findings" -type f ! -name '*slow-unit*' | wc -l)
echo "$findings findings in $work/findings"
((failed == 0 && findings == 0))
