#!/usr/bin/env bash
# Makes the Debian package in build/package, checks it with lintian, and prints its name.
# Usage: tools/make_package.sh
set -eu -o pipefail
root=$(dirname "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")")
source "$root/tools/setup.sh"

install_packages build package
build package
folder="$root/build/package"
rm -f "$folder"/tarnwick_*.deb
(cd "$folder" && logged cpack -G DEB)
package=$(echo "$folder"/tarnwick_*.deb)

# Errors end this; the rest is for the reader. The notes on spelling are about texts of the window.
(cd "$folder" && lintian --allow-root --fail-on error --tag-display-limit 0 "$package" >&2)
echo "$package"
