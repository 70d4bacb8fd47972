# Shared by the end-to-end tests: the built control and the workbench in Wine, without a display. A test is a script
# that calls `check` for each thing it expects, and `finish` at its end.
# shellcheck shell=bash
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
programs=${1:?"the folder of VexaPPE.ocx and workbench.exe"}
work=$(mktemp -d)
checks=0
failures=0

WINEPREFIX=$("$root/scripts/wine-prefix" "${TEST_PREFIX:-tests}")
export WINEPREFIX WINEARCH=win64 WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml="
unset DISPLAY

# Nothing here takes long; what hangs is ended and counts as failed.
wine_program() { timeout 60 wine "$@"; }
workbench() { wine_program "$programs/workbench.exe" "$@"; }
windows_path() { printf 'Z:%s' "${1//\//\\}"; }
settings() { workbench --dump | tr -d '\r'; }

# One process of the prefix stays alive: a session that is just ending serves no calls between processes.
hold_prefix() {
    coproc HOLDER { exec wine cmd /c "set /p line=" 2>/dev/null; }
}

end_test() {
    # The end of its input ends the process that was held.
    if [ -n "${HOLDER[1]:-}" ]; then exec {HOLDER[1]}>&-; fi
    rm -rf "$work"
}
trap end_test EXIT

# check DESCRIPTION COMMAND ...: the command succeeds.
check() {
    local description=$1
    shift
    checks=$((checks + 1))
    if "$@" >"$work/output" 2>&1; then
        printf 'ok      %s\n' "$description"
    else
        failures=$((failures + 1))
        printf 'FAILED  %s\n' "$description"
        sed 's/^/        /' "$work/output"
    fi
}

same() { diff -u "$1" "$2"; }

finish() {
    printf '%s checks, %s failed\n' "$checks" "$failures"
    [ "$failures" = 0 ]
}
