# Phases of a longer work: each runs in the background with its output in build/log/, one line shows how far they are,
# and in the end how long each took. A phase's step and count come from what ninja and ctest print.
# shellcheck shell=bash
declare -A phase_start=() phase_process=()
phase_report=
work_began=$SECONDS
line_shown=$SECONDS

step() { printf '== %s\n' "$*"; }

# start NAME COMMAND ...: in a process group of its own, which can be ended as a whole. The lock of build/ is not handed
# on: Wine's server outlives the command.
start() {
    local name=$1
    shift
    mkdir -p build/log
    rm -f "build/log/$name.code"
    set -m
    phase_start[$name]=$SECONDS
    run_phase "$@" >"build/log/$name.log" 2>&1 </dev/null &
    set +m
    phase_process[$name]=$!
}

# Its exit code and its seconds are kept in a file: of a child that ended long ago the shell may have forgotten the
# code, since it starts thousands meanwhile and the system numbers them round and round.
run_phase() {
    local code=0
    [ -z "${build_lock:-}" ] || exec {build_lock}>&-
    "$@" || code=$?
    printf '%s %s\n' "$code" $((SECONDS - phase_start[$name])) >"build/log/$name.code.new"
    mv "build/log/$name.code.new" "build/log/$name.code"
}

# "57/122", or nothing where a phase does not count.
progress() {
    tail -c 2000 "build/log/$1.log" 2>/dev/null | tr '\r' '\n' |
        sed -nE 's#^\[([0-9]+/[0-9]+)\].*#\1#p; s#^ *([0-9]+/[0-9]+) Test .*#\1#p' | tail -n 1
}

# Where the output is a terminal one line moves each second; elsewhere a plain line comes every quarter minute.
show_progress() {
    local name count line= interval=15
    [ ! -t 1 ] || interval=1
    [ $((SECONDS - line_shown)) -ge "$interval" ] || return 0
    line_shown=$SECONDS
    for name in "${!phase_process[@]}"; do
        [ ! -e "build/log/$name.code" ] || continue
        count=$(progress "$name")
        line="$line$name ${count:+$count, }$((SECONDS - phase_start[$name])) s   "
    done
    if [ -t 1 ]; then
        printf '\r   %.100s\033[K' "$line"
    else
        printf '   %s\n' "$line"
    fi
}

# await NAME: shows all phases until this one has ended; its exit code is the phase's. The end of a failed phase's log
# is printed.
await() {
    local name=$1 code seconds
    while [ ! -e "build/log/$name.code" ] && kill -0 "${phase_process[$name]}" 2>/dev/null; do
        show_progress
        sleep 0.3
    done
    read -r code seconds 2>/dev/null <"build/log/$name.code" || code=1
    unset "phase_process[$name]"
    [ ! -t 1 ] || printf '\r\033[K'
    phase_report+=$(printf '%-24s %5s s' "$name" "${seconds:-?}")$'\n'
    step "$name: ${seconds:-?} s"
    [ "$code" = 0 ] || tail -n 60 "build/log/$name.log" >&2
    return "$code"
}

# phase NAME COMMAND ...: in the foreground.
phase() {
    start "$@"
    await "$1"
}

print_timings() {
    printf '\n%s%-24s %5s s\n' "$phase_report" 'in all' $((SECONDS - work_began))
}

# What still runs ends with the command.
end_phases() {
    local name
    for name in "${!phase_process[@]}"; do kill -- "-${phase_process[$name]}" 2>/dev/null || true; done
    wait
}
trap end_phases EXIT
trap 'exit 130' INT TERM
