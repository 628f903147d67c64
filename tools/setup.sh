# shellcheck shell=bash disable=SC2154
# Shared by ./run and ./test, which source it: packages, configuring and building.
# What it has to say goes to standard error, and the chatter of apt, cmake and ninja to $log, whose end is
# shown when one of them fails. The caller has set $root, the folder of the project.

mkdir -p "$root/build"
log="$root/build/setup.log"
: >"$log"

say() { printf '%s\n' "$*" >&2; }

# logged COMMAND...: runs it with its output in the log; shows the log's end if it fails.
logged() {
    printf '\n== %s\n' "$*" >>"$log"
    "$@" >>"$log" 2>&1 </dev/null && return
    tail -n 60 "$log" >&2
    say "Failed: $* (whole log: $log)"
    return 1
}

# missing_packages GROUP...: prints what tools/packages.txt lists for the groups and the machine lacks.
missing_packages() {
    local wanted
    wanted=$(awk -v groups=" $* " '!/^#/ && index(groups, " " $1 " ") {print $2}' "$root/tools/packages.txt")
    comm -23 <(sort <<<"$wanted") <(
        # shellcheck disable=SC2086
        dpkg-query -W -f='${db:Status-Status} ${Package}\n' $wanted 2>/dev/null |
            awk '$1 == "installed" {print $2}' | sort)
}

# install_packages GROUP...: installs what is missing. Away from Debian it does nothing, and cmake says
# what it does not find.
install_packages() {
    command -v dpkg-query >/dev/null || return 0
    local missing as_root=()
    mapfile -t missing < <(missing_packages "$@")
    [ ${#missing[@]} -gt 0 ] || return 0
    if [ "$(id -u)" != 0 ]; then
        as_root=(sudo)
        if ! command -v sudo >/dev/null; then
            say "Missing packages, and no sudo to install them. As root: apt-get install ${missing[*]}"
            return 1
        fi
    fi
    say "Installing what the build lacks, by apt-get: ${missing[*]}"
    # If the lists cannot be fetched, those of the last time may do.
    "${as_root[@]}" apt-get update >>"$log" 2>&1 </dev/null
    logged "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y --no-install-recommends "${missing[@]}"
}

# build PRESET [TARGET...]: configures if need be and builds the targets, or all. One build at a time: two
# ninjas in one folder would spoil each other's work.
build() {
    (
        flock -n 9 || {
            say "Waiting for the build of another ./run or ./test ..."
            flock 9
        }
        configure "$1" && build_targets "$@"
    ) 9>"$root/build/setup.lock"
}

# configure PRESET: only the first time and after a change of the presets; ninja sees to the rest.
configure() {
    local folder="$root/build/$1" cache="$root/build/$1/CMakeCache.txt"
    # A tree that was moved or copied brings a build folder that belongs elsewhere.
    if [ -f "$cache" ] && ! grep -qxF "CMAKE_HOME_DIRECTORY:INTERNAL=$root" "$cache"; then
        rm -rf "$folder"
    fi
    [ "$folder/configured" -nt "$root/CMakePresets.json" ] && return
    say "Configuring $1 ..."
    (cd "$root" && logged cmake --preset "$1") && touch "$folder/configured"
}

build_targets() {
    local folder="$root/build/$1"
    shift
    ninja -C "$folder" -n "$@" 2>&1 | grep 'no work to do' >/dev/null && return
    say "Building ${folder##*/} (log: $log) ..."
    logged ninja -C "$folder" "$@"
}
