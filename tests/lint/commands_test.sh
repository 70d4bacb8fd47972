#!/usr/bin/env bash
# ./run and ./test on machines that cannot do what they need: one clear line, an exit code that is not 0, and nothing
# broken. Each machine is a copy of the scripts with a folder of programs of its own in front.
set -uo pipefail
root=$(cd "$(dirname "$0")/../.." && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
failures=0

# A fresh clone's commands, and the programs that stand in for the machine's.
new_machine() {
    rm -rf "$work/clone" "$work/bin"
    mkdir -p "$work/clone" "$work/bin"
    cp -r "$root/run" "$root/test" "$root/scripts" "$root/CMakePresets.json" "$work/clone"
    # Whatever gets so far as to build has not been stopped.
    program cmake 'echo "cmake was run"; exit 0'
    program dpkg-query 'echo "install ok installed"'
    program id 'echo 0'
}

# program NAME SCRIPT
program() {
    printf '#!/bin/sh\n%s\n' "$2" >"$work/bin/$1"
    chmod +x "$work/bin/$1"
}

# A PATH with nothing but what the scripts use, without the program named.
path_without() {
    local name
    mkdir -p "$work/few"
    rm -f "$work/few"/*
    for name in bash sh env cat cut date df dirname du exec flock grep head mkdir nproc printf readlink rm sed sleep tail timeout \
        touch tr wc; do
        [ "$name" = "$1" ] || ln -s "$(command -v "$name")" "$work/few/$name" 2>/dev/null
    done
    path=$work/bin:$work/few
}

# refuses DESCRIPTION PATTERN COMMAND ...: it ends with another code than 0 and one line of error that says so.
refuses() {
    local description=$1 pattern=$2 code=0
    shift 2
    (cd "$work/clone" && PATH=${path:-$work/bin:$PATH} timeout 60 "$@") >"$work/out" 2>"$work/err" </dev/null || code=$?
    if [ "$code" != 0 ] && [ "$code" != 124 ] && [ "$(grep -c '^error: ' "$work/err")" = 1 ] &&
        grep -Eq "^error: .*$pattern" "$work/err" && ! grep -q 'cmake was run' "$work/out"; then
        printf 'ok      %s\n' "$description"
    else
        printf 'FAILED  %s (exit code %s)\n' "$description" "$code"
        sed 's/^/        /' "$work/out" "$work/err"
        failures=$((failures + 1))
    fi
}

for command in ./run ./test; do
    new_machine
    program dpkg-query 'exit 1'
    path_without apt-get
    refuses "$command without apt-get" 'no apt-get.* install by hand: .*cmake' "$command"

    program apt-get 'exit 0'
    program id 'echo 1000'
    refuses "$command without root and sudo" 'root or sudo.*apt-get install .*cmake' "$command"

    program id 'echo 0'
    program apt-get 'echo "E: Unable to fetch" >&2; exit 100'
    refuses "$command without network" 'network' "$command"
    path=

    new_machine
    program df 'printf " Avail\n 2000M\n"'
    refuses "$command with 2 GB of disk left" '2 GB are free here, [0-9]+ GB are needed' "$command"

    new_machine
    mkdir -p "$work/clone/build"
    flock "$work/clone/build/.lock" sleep 30 >/dev/null 2>&1 &  # whoever waits for this output waits no longer
    holder=$!
    sleep 0.5
    refuses "$command beside another one" 'another ./run or ./test works in this folder' "$command"
    kill "$holder" 2>/dev/null

    refuses "$command with a word that it does not know" 'unknown argument: nonsense' "$command" nonsense
done

# A folder that another checkout has left behind, and that cannot be begun anew.
new_machine
mkdir -p "$work/clone/build/native"
touch "$work/clone/build/native/CMakeCache.txt"
program cmake 'echo "CMake Error: the source does not match"; exit 1'
refuses "./test native in a build folder that does not fit" 'remove it: rm -rf build/native' ./test native
[ -e "$work/clone/build/native/CMakeCache.txt" ] || { echo "FAILED  the folder is left as it was"; failures=$((failures + 1)); }

# One that an older checkout has left behind is begun anew.
program cmake 'case "$*" in *--fresh*) touch fresh;; *--build*) exit 1;; *) exit 1;; esac'
refuses "./test native where a build fails" 'building native failed; the log is build/log/build-native.log' ./test native
[ -e "$work/clone/fresh" ] || { echo "FAILED  it is configured anew"; failures=$((failures + 1)); }

# Windows programs: each on the processor that it is allotted, of those that this machine lets it use.
stays() {
    local expected=$1 found
    shift
    found=$(env "$@" bash -c 'source "$0"; stay_on_one_processor; taskset --cpu-list --pid $$' "$root/scripts/processor.sh")
    if [ "${found##*: }" = "$expected" ]; then
        printf 'ok      with %s it stays on processor %s\n' "$*" "$expected"
    else
        printf 'FAILED  with %s it stays on processor %s: %s\n' "$*" "$expected" "$found"
        failures=$((failures + 1))
    fi
}
usable=$(taskset --cpu-list --pid $$ | sed 's/.*: //; s/,/ /g')
mapfile -t usable < <(for range in $usable; do seq "${range%-*}" "${range#*-}"; done)
count=${#usable[@]}
stays "${usable[0]}" PROCESSOR=0
stays "${usable[count - 1]}" PROCESSOR=$((count - 1))
stays "${usable[0]}" PROCESSOR=$((3 * count))
stays "${usable[1 % count]}" CTEST_RESOURCE_GROUP_0_PROCESSORS=id:1,slots:1 PROCESSOR=0

printf '%s failed\n' "$failures"
[ "$failures" = 0 ]
