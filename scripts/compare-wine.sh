#!/usr/bin/env bash
# Compares what psuictl says on our platform layer and on Wine: of every sample model its lint, show, compile and
# image byte for byte; of a printer of every sample model, in each language, what the library's entry points answer
# and what they leave with the spooler, the registry and the status monitor. On Wine, the platform's own functions
# must also give applications what the library answers. Prints a line a comparison; ends with 1 when anything
# differs.
#   scripts/compare-wine.sh [LINUX-BUILD-FOLDER [WINDOWS-BUILD-FOLDER]]
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/wine-env.sh
linux=$(realpath "${1:-build/debug}")/product/psuictl
windows=$(realpath "${2:-build/windows}")/product/psuictl.exe
platform_answers=$(realpath "${2:-build/windows}")/tests/host/platform_answers.exe
models=$PWD/models
for program in "$linux" "$windows" "$platform_answers"; do
    [ -e "$program" ] || { echo "$program is not built" >&2; exit 1; }
done

work=$(mktemp -d "$PWD/build/compare.XXXXXX")
trap 'rm -rf "$work"' EXIT
cd "$work"

psuictl() { # linux|wine, arguments
    local platform=$1
    shift
    if [ "$platform" = linux ]; then "$linux" --root "$work/root" "$@"; else wine "$windows" "$@"; fi
}

# What Wine does differently is evened out in these two functions, and nowhere else; each line has its sentence in
# docs/platform-layer.md, "Where Wine 8 differs from the documentation".
do_as_wine_does() { # language, country, printer: after it was added on the layer
    # Wine asks the driver for a record when a printer is added, and stores it as the printer's default.
    psuictl linux --language "$1" --country "$2" record merge "$3" -o default-of-wine.dm >/dev/null
    psuictl linux printer default "$3" default-of-wine.dm >/dev/null
}

without_known_differences() { # folder of what one platform said
    # Wine adds no forms.
    sed -i '/ builtin$\|^exit code/!d' "$1"/*-forms 2>/dev/null || true
    # Wine lets every handle write printer data, so that an application's call can remember the forms.
    rm -f "$1"/*-data-Forms*
    # Windows does not record what is launched.
    sed -i '/"launches":/d' "$1"/*-monitor 2>/dev/null || true
    # Handles are numbers of the system's own.
    sed -i 's/"variable": "0x[0-9A-F]*"/"variable": HANDLE/' "$1"/*-event 2>/dev/null || true
}

different=0
report() { # what was compared: the folders linux and wine
    without_known_differences linux
    without_known_differences wine
    if diff -r linux wine >differences; then
        echo "$1: same"
    else
        echo "$1: DIFFERENT"
        head -n 40 differences
        different=1
    fi
}

ask_about_model() { # linux|wine, model
    local platform=$1 model=$2 code=0
    rm -f -- *.BDD
    psuictl "$platform" model lint "$model" >"$platform/lint" 2>"$platform/lint.complaints" || code=$?
    echo "exit code $code" >>"$platform/lint"
    psuictl "$platform" --json model show "$model" >"$platform/show.json"
    psuictl "$platform" model show "$model" >"$platform/show"
    psuictl "$platform" --json model compile "$model" -o "$platform/output.BDD" >"$platform/compile.json"
    cp -- "${model%.ppd}.BDD" "$platform/image.BDD"
    psuictl "$platform" model compile "$model" >"$platform/reuse"
    psuictl "$platform" --json model show "${model%.ppd}.BDD" >"$platform/image.json"
    cmp "$platform/image.BDD" "$platform/output.BDD"
}

# A name of its own for every comparison, as Wine's global atoms outlive a printer.
printer_of() { # language, model
    echo "Compare ${2%.ppd} $1"
}

# Jobs beyond the default one: changed fields, each a record of its own.
jobs=(
    "landscape dmOrientation=2 dmCopies=3 dmNup=2"
    "letter dmPaperSize=1 dmColor=1 wScale=50"
    "user-paper dmPaperSize=256 dmPaperWidth=1000 dmPaperLength=1480"
    "unknown-paper dmPaperSize=77"
    "unknown-resolution dmPrintQuality=1234"
    "odd-source dmDefaultSource=260 dmDuplex=3 dmMediaType=264"
)

ask_about_printer() { # linux|wine, language, model
    local platform=$1 language=$2 model=$3 step=0 country=49 printer
    printer=$(printer_of "$2" "$3")
    [ "$language" = jpn ] && country=81
    say() { # NAME, arguments of psuictl: leaves what it says and its exit code
        local code=0 name
        step=$((step + 1))
        name=$platform/$(printf '%02d' "$step")-$1
        shift
        psuictl "$platform" --language "$language" --country "$country" "$@" >"$name" 2>"$name.complaints" || code=$?
        echo "exit code $code" >>"$name"
    }
    say add --json printer add "$printer" --model "$model"
    [ "$platform" = wine ] || do_as_wine_does "$language" "$country" "$printer"
    say caps --json caps "$printer"
    say default record default "$printer" -o "$platform/default.dm"
    say convert convert "$printer" --mode 4 -o "$platform/converted.dm"
    say convert-old convert "$printer" --mode 2 "$platform/default.dm" -o "$platform/old.dm"
    say convert-new convert "$printer" --mode 1 "$platform/old.dm" -o "$platform/new.dm"
    say convert-small convert "$printer" --mode 2 --size 200 "$platform/default.dm"
    say merge record merge "$printer" -o "$platform/merged.dm"
    say forms printer forms "$printer"
    say check check "$printer" "$platform/merged.dm"
    local job name fields
    for job in "${jobs[@]}"; do
        read -r name fields <<<"$job"
        # shellcheck disable=SC2086 # one word a field
        say "$name" record set "$platform/merged.dm" $fields -o "$platform/$name.in.dm"
        say "$name-merge" record merge "$printer" "$platform/$name.in.dm" -o "$platform/$name.dm"
        say "$name-check" check "$printer" "$platform/$name.in.dm"
        say "$name-caps" --json caps "$printer" --record "$platform/$name.in.dm"
    done
    say keep-default printer default "$printer" "$platform/landscape.dm"
    say kept-merge record merge "$printer" -o "$platform/kept.dm"
    say kept-caps --json caps "$printer"
    say data-set printer data "$printer" FreeMem 50
    say trays-size printer data "$printer" TrayFormSize 4
    say trays-table printer data "$printer" TrayFormTable 04000000 --type bytes
    say trays-check check "$printer" "$platform/merged.dm"
    local value
    for value in FreeMem TrayFormSize TrayFormTable Forms? Permission; do # Wine does not list what there is
        say "data-$value" --json printer data "$printer" "$value"
    done
    say event --json event document "$printer" createdcpost startdoc deletedc
    say monitor --json monitor "$printer"
}

add_and_remove() { # linux|wine, language, model
    local printer
    printer=$(printer_of "$2" "$3")
    # One is left where a run was cut off.
    if psuictl "$1" printer list | grep -F "$printer" >/dev/null; then psuictl "$1" printer remove "$printer" >/dev/null; fi
    ask_about_printer "$@"
    if [ "$1" = wine ]; then
        wine "$platform_answers" "$(winepath -w "${windows%/*}/$2/psui.dll")" "$printer" >platform-answers 2>&1 ||
            { cat platform-answers; different=1; }
    fi
    psuictl "$1" printer remove "$printer" >/dev/null
}

wineserver -w
forget_driver_settings
for path in "$models"/*.ppd; do
    model=$(basename "$path")
    cp -- "$path" .
    rm -rf linux wine
    mkdir linux wine
    ask_about_model linux "$model"
    ask_about_model wine "$model"
    report "$model"
    for language in eng jpn; do
        rm -rf linux wine
        mkdir linux wine
        add_and_remove linux "$language" "$model"
        add_and_remove wine "$language" "$model"
        report "$model, printer in $language: $(find linux -name '[0-9]*' ! -name '*.complaints' | wc -l) commands"
    done
done
exit $different
