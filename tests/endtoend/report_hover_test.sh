#!/usr/bin/env bash
# The hover drawing of the composer's combos on a real display, at two resolutions: the pixels of both combos in each
# state. Pictures of them, four times as large, stay in build/hover/.
source "$(dirname "$0")/lib.sh"
end_hover_test() {
    end_display
    end_test
}
trap end_hover_test EXIT

start_display
use_prefix desktop-report_hover

set_resolution() {
    wineserver --wait
    wine_program reg add 'HKCU\Control Panel\Desktop' /v LogPixels /t REG_DWORD /d "$1" /f >/dev/null 2>&1
    wineserver --wait
}

# Plays the check at a resolution; its results come out as a file.
play_at() {
    local results=$work/results-$1
    set_resolution "$1"
    wine_program explorer "/desktop=hover,1280x900" "$programs/tests/endtoend/report_hover_check.exe" \
        "$(windows_path "$results")" "$(windows_path "$work")" >/dev/null 2>&1 || true
    # The program that makes the desktop may end first.
    for _ in $(seq 60); do
        grep -Eq '^(passed|FAILED)$' "$results" 2>/dev/null && break
        sleep 1
    done
    cat "$results"
    for picture in "$work"/*.bmp; do
        convert "$picture" -alpha off -filter point -resize 400% "$pictures/$(basename "$picture" .bmp)-$1.png"
        rm "$picture"
    done
    check "each state of both combos is drawn as computed at $1 DPI" grep -q '^passed$' "$results"
}

pictures=$root/build/hover
mkdir -p "$pictures"
rm -f "$pictures"/*.png
play_at 144
play_at 96
check "there are pictures of both combos in five situations at both resolutions" \
    [ "$(find "$pictures" -name '*.png' | wc -l)" = 20 ]
finish
