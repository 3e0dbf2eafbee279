#!/usr/bin/env bash
# Runs the layer's conformance tests on Wine: what passes on our layer has to pass on a second implementation.
#   scripts/conformance-wine.sh [WINDOWS-BUILD-FOLDER] [GOOGLETEST-OPTION...]
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:-build/windows}
shift || true
source scripts/wine-env.sh
if [ -z "${DISPLAY:-}" ]; then run=(xvfb-run -a wine); else run=(wine); fi # tests open windows
"${run[@]}" "$build/tests/host/conformance.exe" --gtest_brief=1 "$@" 2>&1 | tr -d '\r'
