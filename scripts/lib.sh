# Shared by ./run and ./test: looks at the machine, installs what is missing, builds.
# shellcheck shell=bash
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root" || exit 1
source scripts/phases.sh

banner() { printf '\n***** %s *****\n\n' "$*"; }
fail() {
    printf 'error: %s\n' "$*" >&2
    exit 1
}

# --- The machine --------------------------------------------------------------------------------------------------

# One command at a time works in build/; its end, whatever it is, frees the folder.
hold_build_folder() {
    mkdir -p build 2>/dev/null || fail "build/ cannot be made here: choose a folder that you may write to"
    exec {build_lock}>build/.lock || fail "build/ cannot be written to: it belongs to somebody else; remove it"
    flock --nonblock "$build_lock" ||
        fail "another ./run or ./test works in this folder: wait for its end, or use a clone of your own"
}

# need_disk GIGABYTES: what has been built already counts as room.
need_disk() {
    local free used
    free=$(df --output=avail -BM . | tail -n 1 | tr -dc 0-9)
    used=$(du -sm build 2>/dev/null | cut -f1)
    [ $((free + ${used:-0})) -ge $(($1 * 1000)) ] ||
        fail "$((free / 1000)) GB are free here, $1 GB are needed: make room, or clone to a larger disk"
}

# Debian packages that are listed but not installed.
#   missing_packages [MARK]    those with this mark; without one all
missing_packages() {
    grep -v '^#' scripts/packages.txt | while read -r package marks; do
        [ -z "${1:-}" ] || grep -qw -- "$1" <<<"$marks" || continue
        dpkg-query -W -f '${Status}' "$package" 2>/dev/null | grep -q '^install ok' || printf '%s ' "$package"
    done
}

# install_packages [MARK]
install_packages() {
    local missing as_root=()
    missing=$(missing_packages "${1:-}")
    [ -n "$missing" ] || return 0
    command -v apt-get >/dev/null ||
        fail "this machine has no apt-get; install by hand: $missing"
    if [ "$(id -u)" != 0 ]; then
        command -v sudo >/dev/null || fail "root or sudo is needed; as root: apt-get install $missing"
        as_root=(sudo)
        sudo -v || fail "root or sudo is needed; as root: apt-get install $missing"
    fi
    # shellcheck disable=SC2086  # one word per package
    phase install "${as_root[@]}" scripts/apt-install $missing ||
        fail "installing failed: is there a network? The log is build/log/install.log; wanted: $missing"
}

# --- Building -----------------------------------------------------------------------------------------------------

# configure PRESET [OPTION ...]: a folder made here compiles several sources at a time; one that an older checkout
# has left behind is begun anew.
configure() {
    local preset=$1
    shift
    [ -e "build/$preset/CMakeCache.txt" ] || set -- -DCMAKE_UNITY_BUILD=ON "$@"
    mkdir -p build/log
    configured "$preset" "$@" >"build/log/configure-$preset.log" 2>&1 ||
        cmake --preset "$preset" --fresh -DCMAKE_UNITY_BUILD=ON "$@" >"build/log/configure-$preset.log" 2>&1 || {
        tail -n 20 "build/log/configure-$preset.log" >&2
        fail "configuring failed; if build/$preset comes from elsewhere, remove it: rm -rf build/$preset"
    }
}

# False, too, where the folder was another compiler's: then CMake begins anew by itself, and forgets the options.
configured() { cmake --preset "$@" && ! grep -q 'require your cache to be deleted' "build/log/configure-$1.log"; }

# build PRESET [TARGET ...]
build() {
    local preset=$1
    shift
    configure "$preset" -DWITH_TESTS="${with_tests:-ON}"
    phase "build-$preset" cmake --build --preset "$preset" -j "$(nproc)" ${1:+--target "$@"} ||
        fail "building $preset failed; the log is build/log/build-$preset.log"
}

# For what goes on after this command, and may be joined by another one.
without_lock() {
    exec {build_lock}>&-
    "$@"
}
