#!/usr/bin/env bash
# Compares what psuictl says of every sample model on our platform layer and on Wine: lint, show, compile, and the
# image byte for byte. Prints a line a model; ends with 1 when anything differs.
#   scripts/compare-wine.sh [LINUX-BUILD-FOLDER [WINDOWS-BUILD-FOLDER]]
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/wine-env.sh
linux=$(realpath "${1:-build/debug}")/product/psuictl
windows=$(realpath "${2:-build/windows}")/product/psuictl.exe
models=$PWD/models
for program in "$linux" "$windows"; do
    [ -e "$program" ] || { echo "$program is not built" >&2; exit 1; }
done

work=$(mktemp -d "$PWD/build/compare.XXXXXX")
trap 'rm -rf "$work"' EXIT
cd "$work"

psuictl() { # linux|wine, arguments
    local platform=$1
    shift
    if [ "$platform" = linux ]; then "$linux" --root :memory: "$@"; else wine "$windows" "$@"; fi
}

record() { # linux|wine, model: leaves what was said, and the images, in a folder of the platform's name
    local platform=$1 model=$2 code=0
    mkdir "$platform"
    rm -f -- *.BDD
    psuictl "$platform" model lint "$model" >"$platform/lint" 2>"$platform/lint.complaints" || code=$?
    echo "exit code $code" >>"$platform/lint"
    psuictl "$platform" --json model show "$model" >"$platform/show.json"
    psuictl "$platform" model show "$model" >"$platform/show"
    psuictl "$platform" --json model compile "$model" -o "$platform/output.BDD" >"$platform/compile.json"
    cp -- "${model%.ppd}.BDD" "$platform/image.BDD"
    psuictl "$platform" model compile "$model" >"$platform/reuse"
    psuictl "$platform" --json model show "${model%.ppd}.BDD" >"$platform/image.json"
}

different=0
for path in "$models"/*.ppd; do
    model=$(basename "$path")
    cp -- "$path" .
    rm -rf linux wine
    record linux "$model"
    record wine "$model"
    if diff -r linux wine >differences && cmp -s linux/image.BDD linux/output.BDD; then
        echo "$model: same ($(wc -c <linux/image.BDD) bytes of image)"
    else
        echo "$model: DIFFERENT"
        head -n 40 differences
        different=1
    fi
done
exit $different
