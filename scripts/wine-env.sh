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

# What the driver and its status monitor keep for a user and a computer, so that no script finds another's remains.
forget_driver_settings() {
    local key
    for key in HKCU\\Software HKLM\\Software HKLM\\Software\\Wow6432Node; do
        if wine reg query "$key\\Velmora" >/dev/null 2>&1; then wine reg delete "$key\\Velmora" /f >/dev/null; fi
    done
    rm -rf "$WINEPREFIX"/drive_c/users/*/AppData/Roaming/Velmora "$WINEPREFIX"/drive_c/ProgramData/Velmora
}
