#!/usr/bin/env bash
# Makes the pictures of docs/pictures anew, on a virtual screen. Usage: tools/screenshots.sh [FOLDER]
set -eu -o pipefail
root=$(dirname "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")")
source "$root/tools/setup.sh"

folder=${1:-$root/docs/pictures}
program=${TARNWICK_PICTURES:-}
if [ -z "$program" ]; then
    install_packages build test
    build debug tarnwick_window_pictures
    program=$root/build/debug/tests/shell/tarnwick_window_pictures
fi

mkdir -p "$folder"
on_screen() { xvfb-run -a -s "-screen 0 1920x1600x24" env QT_QPA_PLATFORM=xcb "$@"; }
on_screen "$program" "$folder"
on_screen env QT_SCALE_FACTOR=2 "$program" "$folder" scale_2
