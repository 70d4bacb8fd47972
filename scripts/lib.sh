# Shared by ./run and ./test: says each step, installs what is missing, builds.
# shellcheck shell=bash
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root" || exit 1

step() { printf '== %s\n' "$*"; }
banner() { printf '\n***** %s *****\n\n' "$*"; }
fail() {
    printf 'error: %s\n' "$*" >&2
    exit 1
}

# Debian packages that are listed but not installed.
missing_packages() {
    grep -v '^#' scripts/packages.txt | while read -r package; do
        dpkg-query -W -f '${Status}' "$package" 2>/dev/null | grep -q '^install ok' || printf '%s ' "$package"
    done
}

install_packages() {
    local missing
    missing=$(missing_packages)
    [ -n "$missing" ] || return 0
    mkdir -p build
    step "installing: $missing"
    command -v apt-get >/dev/null || fail "this machine has no apt-get; install by hand: $missing"
    local as_root=()
    if [ "$(id -u)" != 0 ]; then
        command -v sudo >/dev/null || fail "needs root (or sudo) to install: $missing"
        as_root=(sudo)
    fi
    "${as_root[@]}" apt-get update -q >/dev/null || fail "the package lists cannot be read"
    # shellcheck disable=SC2086  # one word per package
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -q --no-install-recommends $missing \
        >build/install.log 2>&1 ||
        fail "installing failed; the log is build/install.log"
}

# build PRESET [TARGET ...]: configures where needed and builds.
build() {
    step "building $1"
    mkdir -p build
    cmake --preset "$1" >"build/configure-$1.log" 2>&1 || {
        cat "build/configure-$1.log" >&2
        fail "configuring $1 failed"
    }
    local targets=()
    [ $# = 1 ] || targets=(--target "${@:2}")
    cmake --build --preset "$1" -j "$(nproc)" "${targets[@]}" >"build/build-$1.log" 2>&1 || {
        tail -n 60 "build/build-$1.log" >&2
        fail "building $1 failed; the log is build/build-$1.log"
    }
}
