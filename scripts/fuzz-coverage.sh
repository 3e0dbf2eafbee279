#!/usr/bin/env bash
# Checks that the seeds alone reach most lines of what each fuzz target is about (fuzz/coverage.txt).
#   scripts/fuzz-coverage.sh [FUZZ-BUILD-FOLDER]   (after scripts/fuzz.sh has built it)
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:-build/fuzz}
least=85 # percent of the lines

failed=0
while read -r target sources; do
    seeds=()
    for folder in "fuzz/corpus/$target" "$build/fuzz/seeds/$target"; do
        [ -d "$folder" ] && seeds+=("$folder")
    done
    raw=$build/fuzz/$target.profraw
    LLVM_PROFILE_FILE=$raw "$build/fuzz/$target" -runs=0 "${seeds[@]}" >"$build/fuzz/$target.seeds.log" 2>&1
    llvm-profdata merge -o "$build/fuzz/$target.profdata" "$raw"
    # shellcheck disable=SC2086 # one word a file
    percent=$(llvm-cov export -summary-only -instr-profile "$build/fuzz/$target.profdata" "$build/fuzz/$target" $sources |
        sed 's/.*"totals"://; s/.*"lines":{"count":\([0-9]*\),"covered":\([0-9]*\).*/\1 \2/' |
        awk '{ printf "%d", 100 * $2 / $1 }')
    echo "$target: the seeds reach $percent % of the lines"
    [ "$percent" -ge "$least" ] || { echo "$target: that is less than $least %" >&2; failed=1; }
done < <(grep -v '^#' fuzz/coverage.txt)
exit $failed
