#!/usr/bin/env bash
# Plays the scenarios of tests/psuictl/scenarios on Wine, with the Windows build of everything. Prints a line a
# scenario; ends with 1 when one fails.
#   scripts/scenarios-wine.sh [WINDOWS-BUILD-FOLDER [SCENARIO...]]
set -euo pipefail
cd "$(dirname "$0")/.."
build=$(realpath "${1:-build/windows}")
shift || true
[ $# -gt 0 ] || set -- tests/psuictl/scenarios/*.txt
source scripts/wine-env.sh
# The system's own property-sheet UI takes no pages from drivers, and nobody answers its common dialogs.
export WINEDLLOVERRIDES="$WINEDLLOVERRIDES;compstui,comdlg32=n,b"
if [ -z "${DISPLAY:-}" ]; then exec xvfb-run -a "$0" "$build" "$@"; fi

work=$PWD/build/scenarios-wine
psuictl() { (cd "$work" && wine "$build/product/psuictl.exe" "$@") | tr -d '\r'; }
rm -rf "$work" && mkdir -p "$work"
forget_driver_settings
cp models/*.ppd tests/psuictl/scenarios/*.ppd "$work/"

# Adds the printer that has that model, once, and sets `printer` to its name.
added=()
use_printer_of() {
    printer="Scenario ${1%.ppd}"
    if [[ " ${added[*]-} " == *" $1 "* ]]; then return; fi
    # One is left where a run was cut off.
    if psuictl printer list | grep -F "$printer" >/dev/null; then psuictl printer remove "$printer" >/dev/null; fi
    psuictl printer add "$printer" --model "$1" >/dev/null
    added+=("$1")
}
# The words behind "# NAME:" at the head of $scenario.
head_of() { sed -n "/^#/!q; s/^# $1: *//p" "$scenario"; }

use_printer_of palette940.ppd
psuictl record default "$printer" -o in.dm >/dev/null
psuictl record set in.dm dmCopies=3 dmFields=0x02011B03 -o in.dm

failed=0
for scenario; do
    cp "$scenario" "$work/scenario.txt"
    read -ra options <<<"$(head_of options)"
    read -ra fields <<<"$(head_of record)"
    model=$(head_of model)
    use_printer_of "${model:-palette940.ppd}"
    if [ ${#fields[@]} -gt 0 ]; then
        psuictl record default "$printer" -o start.dm >/dev/null
        psuictl record set start.dm -o start.dm "${fields[@]}"
        options+=(--record start.dm)
    fi
    if complaint=$(psuictl preferences "$printer" --scenario scenario.txt --shots . "${options[@]}" 2>&1); then
        echo "$(basename "$scenario" .txt): passed"
    else
        echo "$(basename "$scenario" .txt): FAILED: $complaint"
        failed=1
    fi
done
exit $failed
