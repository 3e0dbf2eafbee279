#!/usr/bin/env bash
# Installs the Debian packages that are missing. When none is, it costs one dpkg-query.
set -euo pipefail

packages=(
    build-essential cmake ninja-build git
    clang clang-format llvm libclang-rt-14-dev  # fuzz targets, coverage, format check
    googletest libgtest-dev                     # tests; the sources are for the Windows build of them
    libsqlite3-dev                              # what the platform layer remembers
    libfreetype-dev libpng-dev                  # its text and its screenshots
    fonts-liberation fonts-ipaexfont-gothic     # the typefaces that it draws with
    libx11-dev                                  # its windows on a display
    nlohmann-json3-dev libcli11-dev             # psuictl: JSON and command lines
    python3-cairo                               # drawing the library's pictures
    libcups2-dev                                # the PPD library that the benchmark compares with
    g++-mingw-w64-x86-64                        # Windows build, resource compiler
    wine wine64 xvfb xauth                      # proof of the Windows build
)

missing=()
installed=$(dpkg-query -W -f '${Package} ${db:Status-Status}\n' "${packages[@]}" 2>/dev/null || true)
for package in "${packages[@]}"; do
    grep -qx "$package installed" <<<"$installed" || missing+=("$package")
done
[ ${#missing[@]} -eq 0 ] && exit 0

echo "Installing: ${missing[*]}" >&2
as_root=()
[ "$(id -u)" -eq 0 ] || as_root=(sudo)
export DEBIAN_FRONTEND=noninteractive
"${as_root[@]}" apt-get update -qq
"${as_root[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
