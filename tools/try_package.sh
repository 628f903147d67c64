#!/usr/bin/env bash
# Installs the Debian package on a bare Debian 12 and tries it: the command line, the window, the type of
# the files, the pages, and that its removal leaves nothing. Needs root and a Debian mirror.
#
# Usage: tools/try_package.sh PACKAGE.deb [FOLDER]
#
# FOLDER takes the bare system (0.4 GB, with the package's dependencies 0.9 GB); one that exists is used again.
# Without it a new one is made and removed. MIRROR=... names another mirror than deb.debian.org.
set -eu -o pipefail

# Own mounts, which go with this process.
if [ -z "${TARNWICK_OWN_MOUNTS:-}" ] && unshare --mount true 2>/dev/null; then
    exec env TARNWICK_OWN_MOUNTS=yes unshare --mount "$0" "$@"
fi

package=$(readlink -f "$1")
mirror=${MIRROR:-http://deb.debian.org/debian}
if [ $# -gt 1 ]; then
    mkdir -p "$2"
    system=$(readlink -f "$2")
else
    system=$(mktemp -d /var/tmp/tarnwick-bare.XXXXXX)
    trap 'umount "$system/proc" 2>/dev/null; rm -rf --one-file-system "$system"' EXIT
fi

say() { printf '== %s\n' "$*"; }
inside() { chroot "$system" env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/root LC_ALL=C.UTF-8 \
    DEBIAN_FRONTEND=noninteractive "$@"; }
apt_install() { inside apt-get install -qq -y --no-install-recommends -o Dpkg::Use-Pty=0 "$@"; }
fail() {
    echo "FAILED: $*" >&2
    exit 1
}

# What packages have put into the system, without their lists, logs and caches.
files() { (cd "$system" && find . -xdev \( -path ./proc -o -path ./sys -o -path ./dev -o -path ./tmp -o -path ./var/lib/dpkg \
    -o -path ./var/lib/apt -o -path ./var/cache -o -path ./var/log \) -prune -o -print | sort); }

make_system() {
    [ -e "$system/etc/debian_version" ] && return
    say "Making a bare system in $system"
    debootstrap --variant=minbase bookworm "$system" "$mirror" >"$system.log" 2>&1 ||
        { tail -n 20 "$system.log" >&2 && fail "debootstrap"; }
    rm -f "$system.log"
    # Services must not start in there.
    printf '#!/bin/sh\nexit 101\n' >"$system/usr/sbin/policy-rc.d"
    chmod +x "$system/usr/sbin/policy-rc.d"
}

install_package() {
    cp "$package" "$system/tmp/tarnwick.deb"
    inside apt-get update -qq
    # What desktops have and the package can do without: its files must stay when it goes.
    apt_install \
        shared-mime-info desktop-file-utils hicolor-icon-theme xdg-utils libfile-mimeinfo-perl man-db >/dev/null 2>&1
    # The dependencies first, so that afterwards the difference is the package itself.
    local needed
    needed=$(inside dpkg-deb -f /tmp/tarnwick.deb Depends | sed 's/([^)]*)//g; s/|[^,]*//g; s/,/ /g')
    # shellcheck disable=SC2086
    apt_install $needed >/dev/null 2>&1 || fail "dependencies"
    files >"$system/tmp/before"
    apt_install /tmp/tarnwick.deb || fail "apt-get install"
}

try_terminal() {
    say "tarnwick-cli solves the samples"
    # From there the program learns how much memory it may use.
    [ -z "${TARNWICK_OWN_MOUNTS:-}" ] || mount -t proc proc "$system/proc"
    inside tarnwick-cli --version
    inside tarnwick-cli solve --brief --time 60 /usr/share/tarnwick/sample_problems.cp >"$system/tmp/solved" ||
        fail "tarnwick-cli solve: status $?"
    tail -n 2 "$system/tmp/solved"
    inside man -w tarnwick tarnwick-cli tarnwick-cp
}

# The window must open and stay: the time limit ends it.
try_window() {
    say "tarnwick opens its window"
    inside tarnwick --version
    local status=0
    inside env QT_QPA_PLATFORM=offscreen timeout 5 tarnwick /usr/share/tarnwick/sample_problems.cp || status=$?
    [ $status = 124 ] || fail "the window ended with status $status"
    grep "Program opened" "$system/root/.local/share/tarnwick/tarnwickApp.log" || fail "no log of the window"
    rm -rf "$system/root/.local" "$system/root/.config" "$system/root/.cache"
}

type_is() {
    local found
    found=$(inside env XDG_UTILS_DEBUG_LEVEL=0 xdg-mime query filetype "$1")
    [ "$found" = "$2" ] || fail "$1 is $found, not $2"
    echo "$1: $found"
}

try_types() {
    say "The desktop knows the files"
    echo "1 #2 { FEN: 7k/8/5K2/8/8/8/8/R7 }" >"$system/tmp/x.cp"
    echo "UTF-8" >"$system/tmp/foreign.txt"
    type_is /tmp/x.cp application/x-tarnwick-cp
    type_is /tmp/foreign.txt text/plain
    [ "$(inside xdg-mime query default application/x-tarnwick-cp)" = tarnwick.desktop ] ||
        fail "nothing opens the files"
    rm -f "$system/tmp/x.cp" "$system/tmp/foreign.txt"
}

remove_package() {
    say "Its removal leaves nothing"
    inside apt-get purge -qq -y -o Dpkg::Use-Pty=0 tarnwick >/dev/null
    files >"$system/tmp/after"
    diff "$system/tmp/before" "$system/tmp/after" || fail "files were left or lost"
}

[ "$(id -u)" = 0 ] || fail "only root can try a package"
make_system
install_package
try_terminal
try_window
try_types
remove_package
say "All of it works"
