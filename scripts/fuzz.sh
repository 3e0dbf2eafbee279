#!/usr/bin/env bash
# Runs the fuzz targets from their seeds, as many at once as there are processors, and walks by chance through
# the dialogs.
# usage: fuzz.sh [SECONDS [TARGET...]]   (60 seconds each and all targets without arguments)
set -euo pipefail
cd "$(dirname "$0")/.."

seconds=${1:-60}
shift || true
build=${PSUI_FUZZ_BUILD:-build/fuzz}

cmake --preset fuzz -B "$build" >/dev/null
cmake --build "$build" --target fuzzers ui_walk -j "$(nproc)" >"$build/build.log" 2>&1 || { tail -n 60 "$build/build.log"; exit 1; }
[ $# -gt 0 ] || scripts/fuzz-coverage.sh "$build"

export LLVM_PROFILE_FILE=/dev/null
if [ $# -eq 0 ]; then
    mapfile -t targets <"$build/fuzz/targets.txt"
    set -- "${targets[@]}" ui_walk
fi

fuzz() { # target
    local target=$1 work seeds options folder words
    work=$build/fuzz/work/$target
    mkdir -p "$work" # what is found; seeds are only read
    seeds=()
    for folder in "fuzz/corpus/$target" "$build/fuzz/seeds/$target"; do
        [ -d "$folder" ] && seeds+=("$folder")
    done
    options=(-max_total_time="$seconds" -max_len=8192 -artifact_prefix="$build/fuzz/$target-")
    for words in "$target" "${target%%_*}"; do
        [ -f "fuzz/dictionaries/$words.dict" ] && options+=(-dict="fuzz/dictionaries/$words.dict") && break
    done
    "$build/fuzz/$target" "${options[@]}" "$work" "${seeds[@]}" >"$build/fuzz/$target.log" 2>&1 ||
        { tail -n 60 "$build/fuzz/$target.log"; return 1; }
    echo "$target: $(grep '^Done' "$build/fuzz/$target.log")"
}

# Always from the same seed, so that a failure is the change's; the long walks of docs/contributing.md go elsewhere.
# Leaks are counted by the walk's ledger and looked for where ctest walks; here the coverage of an unloaded module
# leaves the name of its file behind.
walk() {
    ASAN_OPTIONS=detect_leaks=0 "$build/fuzz/walk/ui_walk" --seed 1 --seconds "$seconds" --steps 2000 >"$build/fuzz/ui_walk.log" 2>&1 ||
        { tail -n 60 "$build/fuzz/ui_walk.log"; return 1; }
    echo "ui_walk: $(tail -n 1 "$build/fuzz/ui_walk.log")"
}

running=0
failed=0
for target; do
    if [ $running -eq "$(nproc)" ]; then
        wait -n || failed=1
        running=$((running - 1))
    fi
    if [ "$target" = ui_walk ]; then walk & else fuzz "$target" & fi
    running=$((running + 1))
done
while [ $running -gt 0 ]; do
    wait -n || failed=1
    running=$((running - 1))
done
exit $failed
