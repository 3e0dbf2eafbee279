#!/usr/bin/env bash
# Runs the fuzz targets, one after the other, from their seeds.
# usage: fuzz.sh [SECONDS [TARGET...]]   (60 seconds each and all targets without arguments)
set -euo pipefail
cd "$(dirname "$0")/.."

seconds=${1:-60}
shift || true
build=${PSUI_FUZZ_BUILD:-build/fuzz}

cmake --preset fuzz -B "$build" >/dev/null
cmake --build "$build" --target fuzzers -j "$(nproc)" >"$build/build.log" 2>&1 || { tail -n 60 "$build/build.log"; exit 1; }
[ $# -gt 0 ] || scripts/fuzz-coverage.sh "$build"

export LLVM_PROFILE_FILE=/dev/null
if [ $# -eq 0 ]; then
    mapfile -t targets <"$build/fuzz/targets.txt"
    set -- "${targets[@]}"
fi
for target in "$@"; do
    work=$build/fuzz/work/$target
    mkdir -p "$work" # what is found; seeds are only read
    seeds=()
    for folder in "fuzz/corpus/$target" "$build/fuzz/seeds/$target"; do
        [ -d "$folder" ] && seeds+=("$folder")
    done
    options=(-max_total_time="$seconds" -max_len=8192 -print_final_stats=1 -artifact_prefix="$build/fuzz/$target-")
    for words in "$target" "${target%%_*}"; do
        [ -f "fuzz/dictionaries/$words.dict" ] && options+=(-dict="fuzz/dictionaries/$words.dict") && break
    done
    echo "== $target"
    "$build/fuzz/$target" "${options[@]}" "$work" "${seeds[@]}" >"$build/fuzz/$target.log" 2>&1 ||
        { tail -n 60 "$build/fuzz/$target.log"; exit 1; }
    grep -E '^Done|stat::number_of_executed_units|stat::average_exec_per_sec' "$build/fuzz/$target.log"
done
