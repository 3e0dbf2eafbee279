#!/usr/bin/env bash
# Everything that can fail, cheapest complaint first. STEPS="asan windows" runs some of the steps only.
set -euo pipefail
cd "$(dirname "$0")/.."
jobs=$(nproc)
steps=${STEPS:-format asan tsan windows conformance scenarios compare fuzz}

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
step_fuzz() { scripts/fuzz.sh "${FUZZ:-20}"; }

mkdir -p build
for step in $steps; do
    echo "== $step =="
    started=$SECONDS
    "step_$step"
    echo "== $step done in $((SECONDS - started)) s =="
done
