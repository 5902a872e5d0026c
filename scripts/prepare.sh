# SPDX-License-Identifier: MIT
# Sourced by the scripts: installs what a fresh Debian machine lacks, and builds quietly.

say() { printf '%s\n' "$*"; }
fail() { printf '%s: %s\n' "$(basename "$0")" "$*" >&2; exit 1; }

# need_packages PACKAGE...: installs the Debian packages that are missing, or says which they are.
need_packages() {
    local missing=() package
    for package in "$@"; do
        dpkg-query -W -f '${Status}' "$package" 2>/dev/null | grep -q 'ok installed' || missing+=("$package")
    done
    [ ${#missing[@]} -gt 0 ] || return 0
    command -v apt-get >/dev/null || fail "this needs the libraries of these Debian packages: ${missing[*]}"
    local as_root=()
    if [ "$(id -u)" -ne 0 ]; then
        command -v sudo >/dev/null && sudo -n true 2>/dev/null ||
            fail "missing packages; install them with: apt-get install ${missing[*]}"
        as_root=(sudo -n)
    fi
    say "installing: ${missing[*]}"
    local log
    log=$(mktemp)
    { "${as_root[@]}" apt-get update -qq &&
        "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}"
    } >"$log" 2>&1 || { cat "$log" >&2; rm -f "$log"; fail "the installation failed"; }
    rm -f "$log"
}

# quietly WHAT COMMAND...: says what it does, and shows the command's output only when it fails.
quietly() {
    local what=$1 log started=$SECONDS
    shift
    log=$(mktemp)
    printf '%s ... ' "$what"
    if "$@" >"$log" 2>&1; then
        say "done ($((SECONDS - started)) s)"
        rm -f "$log"
    else
        say "failed"
        cat "$log" >&2
        rm -f "$log"
        exit 1
    fi
}

# What every build of the project needs.
build_packages=(cmake make g++ pkg-config libsdl2-dev libsdl2-image-dev libsdl2-ttf-dev libwebp-dev libhwy-dev
                libcairo2-dev librsvg2-dev zlib1g-dev fonts-dejavu-core)
test_packages=(libgtest-dev librsvg2-bin xvfb xdotool weston)
jobs=$(nproc)
