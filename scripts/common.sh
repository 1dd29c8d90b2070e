# SPDX-License-Identifier: MIT
# Sourced by ./run and ./test: installs Debian packages that are missing, configures and builds a preset.

cd "$(dirname "${BASH_SOURCE[0]}")/.." || exit 1

say() { printf '== %s\n' "$*"; }
fail() { printf '== %s\n' "$*" >&2; exit 1; }

BUILD_PACKAGES=(g++ cmake ninja-build pkg-config libisl-dev
    qtbase5-dev libqt5svg5-dev graphviz
    libclang-cpp19-dev libclang-19-dev llvm-19-dev libclang-common-19-dev zlib1g-dev
    fonts-liberation fonts-dejavu-core)
# What tests need beside: a display to open the real window on.
TEST_PACKAGES=(libgtest-dev libgmock-dev xvfb xauth)
# For --core-only: neither Qt nor LLVM.
CORE_PACKAGES=(g++ cmake ninja-build pkg-config libisl-dev libgtest-dev)

missing_packages() {
    local package
    for package in "$@"; do
        [ "$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null)" = installed ] || printf '%s\n' "$package"
    done
}

# Installs those of the given packages that are missing, as root or with sudo.
install_packages() {
    command -v dpkg-query > /dev/null ||
        fail "this is no Debian system: install these packages' like by hand, then build with cmake --preset: $*"
    local missing
    mapfile -t missing < <(missing_packages "$@")
    [ ${#missing[@]} -eq 0 ] && return
    local root=()
    if [ "$(id -u)" -ne 0 ]; then
        command -v sudo > /dev/null || fail "run this as root, or install sudo; missing packages: ${missing[*]}"
        root=(sudo)
    fi
    say "installing ${missing[*]}"
    export DEBIAN_FRONTEND=noninteractive
    "${root[@]}" apt-get update -q > /dev/null || fail "apt-get update failed"
    "${root[@]}" apt-get install -q -y --no-install-recommends "${missing[@]}" > /dev/null ||
        fail "apt-get install failed; try it by hand: apt-get install ${missing[*]}"
}

# Configures and builds a preset; quick when nothing changed.
build_preset() {
    say "building preset $1 in build/$1"
    cmake --preset "$1" > "/tmp/kova-configure-$1.log" 2>&1 ||
        { cat "/tmp/kova-configure-$1.log"; fail "configuring preset $1 failed"; }
    cmake --build --preset "$1" || fail "building preset $1 failed"
}
