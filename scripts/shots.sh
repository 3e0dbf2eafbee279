#!/usr/bin/env bash
# Pictures of every dialog in every language, in build/shots.
set -euo pipefail
cd "$(dirname "$0")/.."

cmake --preset debug >/dev/null
cmake --build --preset debug --target langshots vmlang_eng vmlang_jpn -j "$(nproc)"
rm -f build/shots/*.png
build/debug/tools/langcheck/langshots build/shots build/debug/product/{eng,jpn}/VMLANG.DLL
echo "$(find build/shots -name '*.png' | wc -l) pictures in build/shots"
