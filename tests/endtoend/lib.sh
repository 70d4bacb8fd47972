# Shared by the end-to-end tests: the built control and the workbench in Wine, without a display. A test is a script
# that calls `check` for each thing it expects, and `finish` at its end.
# shellcheck shell=bash
set -Eeuo pipefail
# What is no check may fail, too: then the test ends, and says where.
trap 'echo "ended at line $LINENO of ${BASH_SOURCE[0]##*/}: $BASH_COMMAND" >&2' ERR
source "$(dirname "${BASH_SOURCE[0]}")/../../scripts/wine-lib.sh"
programs=$(cd "${1:?"the folder of VexaPPE.ocx and workbench.exe"}" && pwd)
work=$(mktemp -d)
checks=0
failures=0

# Tests that run at the same time have prefixes of their own.
use_prefix "$(basename "$0" .sh)"
unset DISPLAY

# Nothing here takes long; what hangs is ended and counts as failed.
wine_program() { timeout 60 wine "$@"; }
workbench() { wine_program "$programs/workbench.exe" "$@"; }
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

# The settings that Apply writes, with their standards, from the tests' own list: Name = 20, Name = "text".
known_settings() {
    sed -nE 's/^ *\{"(\w+)", L?("[^"]*"|[0-9]+), [1-9][0-9]*\},$/\1 = \2/p' \
        "$(dirname "${BASH_SOURCE[0]}")/../support/known_settings.h"
}

same() { diff -u "$1" "$2"; }

finish() {
    printf '%s checks, %s failed\n' "$checks" "$failures"
    [ "$failures" = 0 ]
}
