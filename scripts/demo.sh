#!/usr/bin/env bash
# The main job, start to end: builds the product, installs a sample printer from its model description into a
# fresh host, prints what the library's entry points answer for it and its settings in words, in both languages, and
# takes pictures of its printing preferences. Where there is a display, they stay open on it.
set -euo pipefail
cd "$(dirname "$0")/.."
mkdir -p build
cmake --preset release >build/release.configure.log 2>&1 || { cat build/release.configure.log; exit 1; }
cmake --build --preset release -j "$(nproc)" --target psuictl psui vmlang_eng vmlang_jpn >build/release.build.log 2>&1 ||
    { tail -n 60 build/release.build.log; exit 1; }

root=build/demo
printer="Palette 940"
rm -rf "$root"
psuictl() {
    printf '\n$ psuictl'
    printf ' %q' "$@"
    printf '\n'
    build/release/product/psuictl --root "$root" "$@"
}

psuictl printer add "$printer" --model models/palette940.ppd
psuictl printer list
psuictl caps "$printer"
psuictl convert "$printer" --mode 4 -o "$root/default.dm"
psuictl record show "$root/default.dm"
psuictl summary "$printer"
psuictl --language jpn summary "$printer"
psuictl preferences "$printer" --pages 2 --scenario scripts/demo.txt --shots build/shots
echo "The pictures are build/shots/summary.png and build/shots/main.png."
if [ -n "${DISPLAY:-}" ]; then psuictl preferences "$printer" --pages 2 --display; fi
