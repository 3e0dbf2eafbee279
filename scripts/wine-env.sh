# To be sourced from the repository's folder: makes `wine` a clean, quiet Windows of our own, set up once.
export WINEPREFIX=$PWD/build/wine-prefix WINEDEBUG=-all WINEDLLOVERRIDES="mscoree=;mshtml="
mkdir -p build
(
    flock 9
    [ -e "$WINEPREFIX/ready-unmanaged" ] && exit
    rm -rf "$WINEPREFIX"
    # Nobody manages windows here; unless it is told, Wine waits two seconds for that at every window.
    wineboot -i >build/wine-prefix.log 2>&1 &&
        wine reg add 'HKCU\Software\Wine\X11 Driver' /v Managed /d N /f >>build/wine-prefix.log 2>&1 &&
        wineserver -w && touch "$WINEPREFIX/ready-unmanaged" && exit
    echo "Wine cannot be set up; see build/wine-prefix.log" >&2
    exit 1
) 9>build/wine-prefix.lock
