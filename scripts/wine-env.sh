# To be sourced from the repository's folder: makes `wine` a clean, quiet Windows of our own, set up once.
export WINEPREFIX=$PWD/build/wine-prefix WINEDEBUG=-all WINEDLLOVERRIDES="mscoree=;mshtml="
mkdir -p build
(
    flock 9
    [ -e "$WINEPREFIX/ready" ] && exit
    rm -rf "$WINEPREFIX"
    wineboot -i >build/wine-prefix.log 2>&1 && wineserver -w && touch "$WINEPREFIX/ready" && exit
    echo "Wine cannot be set up; see build/wine-prefix.log" >&2
    exit 1
) 9>build/wine-prefix.lock
