#!/usr/bin/env bash
# Pictures to look at, in build/shots: every dialog in every language, the main dialog on finer displays too; the
# dialogs as a user meets them; and all pictures of the library on one sheet.
set -euo pipefail
cd "$(dirname "$0")/.."

cmake --preset debug >/dev/null
cmake --build --preset debug --target langshots psuictl psui vmlang_eng vmlang_jpn -j "$(nproc)"
shots=build/shots
product=build/debug/product
rm -rf "$shots"
mkdir -p "$shots"
build/debug/tools/langcheck/langshots "$shots" "$product"/eng "$product"/jpn

root=$(mktemp -d)
trap 'rm -rf "$root"' EXIT
for language in eng jpn; do
    psuictl() { "$product/psuictl" --root "$root/$language" --language "$language" "$@" >/dev/null; }
    psuictl printer add "Palette 940" --model models/palette940.ppd
    psuictl preferences "Palette 940" --pages 2 --scenario scripts/demo.txt --shots "$shots/$language"
done
/usr/bin/python3 -B tools/pictures/make_pictures.py "$root/pictures" "$shots/pictures.png"
echo "$(find "$shots" -name '*.png' | wc -l) pictures in $shots"
