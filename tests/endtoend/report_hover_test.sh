#!/usr/bin/env bash
# The hover drawing of the composer's combos on a real display: the pixels of both combos in each state.
source "$(dirname "$0")/lib.sh"
export DISPLAY

# A display of its own, on the first free number from 120 on.
start_display() {
    local number=120
    while [ -e "/tmp/.X$number-lock" ]; do number=$((number + 1)); done
    DISPLAY=:$number
    Xvfb "$DISPLAY" -screen 0 1280x900x24 -nolisten tcp >/dev/null 2>&1 &
    display_process=$!
    for _ in $(seq 100); do
        xdotool getmouselocation >/dev/null 2>&1 && return
        sleep 0.1
    done
    echo "Xvfb does not start"
    exit 1
}
end_display() {
    kill "$display_process" 2>/dev/null || true
    end_test
}
trap end_display EXIT

start_display
WINEPREFIX=$("$root/scripts/wine-prefix" desktop)
wine_program explorer "/desktop=hover,1280x900" "$programs/tests/endtoend/report_hover_check.exe" \
    "$(windows_path "$work/results")" >/dev/null 2>&1 || true
# The program that makes the desktop may end first.
for _ in $(seq 60); do
    grep -Eq '^(passed|FAILED)$' "$work/results" 2>/dev/null && break
    sleep 1
done
cat "$work/results"
check "each state of both combos is drawn as computed" grep -q '^passed$' "$work/results"
finish
