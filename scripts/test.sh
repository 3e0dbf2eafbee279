#!/usr/bin/env bash
# Everything that can fail, cheapest complaint first. STEPS="asan windows" runs some of the steps only; steps joined
# by "+" run side by side. Wine mostly waits, which leaves the processors to the fuzzers.
set -euo pipefail
cd "$(dirname "$0")/.."
jobs=$(nproc)
steps=${STEPS:-format asan tsan windows wine+fuzz}

configure_and_build() { # preset, further build arguments
    cmake --preset "$1" >"build/$1.configure.log" 2>&1 || { cat "build/$1.configure.log"; return 1; }
    cmake --build --preset "$@" -j "$jobs" >"build/$1.build.log" 2>&1 || { tail -n 60 "build/$1.build.log"; return 1; }
}

step_format() { git ls-files '*.cpp' '*.h' '*.c' | xargs clang-format --dry-run -Werror; }

step_asan() {
    configure_and_build asan
    ctest --preset asan --no-tests=error -j "$jobs"
}

step_tsan() {
    configure_and_build tsan --target concurrency_tests
    TSAN_OPTIONS=halt_on_error=1 ctest --preset tsan --no-tests=error
}

step_windows() { configure_and_build windows; }
step_conformance() { scripts/conformance-wine.sh build/windows; }
step_scenarios() { scripts/scenarios-wine.sh build/windows; }
step_compare() { scripts/compare-wine.sh build/asan build/windows; }
step_wine() {
    step_conformance
    step_scenarios
    step_compare
}
step_fuzz() { scripts/fuzz.sh "${FUZZ:-20}"; }

run() { # step
    local started=$SECONDS
    echo "== $1 =="
    "step_$1"
    echo "== $1 done in $((SECONDS - started)) s =="
}

run_beside() { # steps; what they say comes one after the other
    local step pid failed=0
    local -A running=()
    for step; do
        (run "$step") >"build/$step.step.log" 2>&1 &
        running[$step]=$!
    done
    for step; do
        pid=${running[$step]}
        wait "$pid" || failed=1
        cat "build/$step.step.log"
    done
    return $failed
}

mkdir -p build
for group in $steps; do
    IFS=+ read -ra together <<<"$group"
    if [ ${#together[@]} -eq 1 ]; then run "$group"; else run_beside "${together[@]}"; fi
done
