# What the chapters of the tour are written with: open the page, press what is in it, wait for windows, take
# pictures. Every wait ends as soon as what is waited for is there; a wait in vain ends the tour.
# shellcheck shell=bash disable=SC2154
source "$(dirname "${BASH_SOURCE[0]}")/wine-lib.sh"
cd "$root" || exit 1

pictures=$root/build/tour
calls=$root/build/tour/calls.log
workbench_process=

say() { printf '== tour: %s\n' "$*"; }

# --- Set-up -------------------------------------------------------------------------------------------------------

end_tour() {
    local result=$?
    if [ "$result" != 0 ] && [ -n "${DISPLAY:-}" ]; then
        import -window root "$pictures/failure.png" 2>/dev/null || true
        printf 'error: the tour failed; build/tour/failure.png shows the screen\n' >&2
    fi
    if [ -n "${WINEPREFIX:-}" ]; then release_prefix; fi
    end_display
}

# --- Waiting ------------------------------------------------------------------------------------------------------

not_running() { ! kill -0 "$1"; }

visible() { xdotool search --onlyvisible --name "^$1\$"; }
not_visible() { ! visible "$1"; }

wait_window() { until_true visible "$1" || fail "the window \"$1\" does not appear"; }
wait_gone() { until_true not_visible "$1" || fail "the window \"$1\" does not close"; }

# wait_text FILE TEXT: until the file holds the text.
wait_text() { until_true grep -qF "$2" "$1" || fail "$1 lacks: $2"; }

# Two pictures of the screen are the same: everything is drawn.
settled() {
    local first
    first=$(import -window root -depth 8 rgb:- | md5sum)
    sleep 0.15
    [ "$first" = "$(import -window root -depth 8 rgb:- | md5sum)" ]
}

# --- The page -----------------------------------------------------------------------------------------------------

# open_page [WORKBENCH OPTION ...]: the Options dialog with the page; every call is noted in $calls.
open_page() {
    rm -f "$calls"
    wine "$programs/workbench.exe" --show-options --exit-after-options --log "$(windows_path "$calls")" "$@" \
        >/dev/null 2>&1 &
    workbench_process=$!
    wait_window Options
    until_true control_there Options OK
}

# The workbench ends with its Options dialog, however that was closed.
page_has_ended() {
    wait_gone Options
    until_true not_running "$workbench_process" || fail "the workbench does not end"
    wait "$workbench_process" || fail "the workbench ended with an error"
}

control_there() { wine "$programs/locate.exe" "$1" "$2"; }

# close_page BUTTON: presses OK or Cancel of the Options dialog and waits for the end of the workbench.
close_page() {
    click "$1" Options
    page_has_ended
}

# --- Mouse and keyboard -------------------------------------------------------------------------------------------

# place CONTROL WINDOW: left, top, width and height. A control is "#number" or its text without "&".
place() {
    wine "$programs/locate.exe" "$2" "$1" 2>/dev/null | tr -d '\r'
}

enabled_there() { wine "$programs/locate.exe" "$2" "$1"; }

# click CONTROL WINDOW [X Y]: presses the middle of the control, or a point of it, in pixels at 96 DPI.
click() {
    local left top width height
    until_true enabled_there "$1" "$2" || fail "\"$2\" has no \"$1\" that is enabled"
    read -r left top width height < <(place "$1" "$2")
    if [ $# -gt 2 ]; then
        click_point $((left + $3 * dpi / 96)) $((top + $4 * dpi / 96))
    else
        click_point $((left + width / 2)) $((top + height / 2))
    fi
}

click_point() { xdotool mousemove "$1" "$2" click 1; }

double_click_point() { xdotool mousemove "$1" "$2" click --repeat 2 --delay 60 1; }

# From here on the mouse lies in a corner and is not touched.
keyboard_alone() {
    xdotool mousemove "${SCREEN%x*}" "${SCREEN#*x}"
    click_point() { fail "the mouse is used"; }
    double_click_point() { click_point; }
    # Keys go to the window below as soon as that is drawn as the active one.
    wait_gone() {
        until_true not_visible "$1" || fail "the window \"$1\" does not close"
        until_true settled || say "the screen does not come to rest"
    }
}

# Presses the host's Apply by its access key, once there is something to apply, and waits until that is done.
applied() { [ "$(grep -c 'Apply returned' "$calls")" -ge "$1" ]; }
apply_by_key() {
    local before
    before=$(grep -c 'Apply returned' "$calls" || true)
    until_true enabled_there Apply Options || fail "there is nothing to apply"
    press alt+y
    until_true applied $((before + 1)) || fail "nothing was applied"
}

# press KEY ...: as xdotool names them (Tab, Return, alt+h).
press() { xdotool key --delay 60 "$@"; }

type_text() { xdotool type --delay 30 "$1"; }

# --- The add-in ---------------------------------------------------------------------------------------------------

# expect_call CALL: the add-in has been called so.
expect_call() {
    wait_text "$calls" "$1"
    printf '   %s\n' "$1"
}

# wait_finished NUMBER: until the add-in has finished so many commands.
finished() { [ "$(grep -c 'ProcessFinished' "$calls")" -ge "$1" ]; }
wait_finished() { until_true finished "$1" || fail "the add-in has not finished its command $1"; }

# --- Results ------------------------------------------------------------------------------------------------------

# picture NAME: the screen, once it is still, as <chapter's number>-<step>-<name>-<DPI>.png.
picture() {
    until_true settled || say "the screen does not come to rest"
    number=$((number + 1))
    import -window root "$pictures/${chapter_name%%-*}-$number-$1-$dpi.png"
}

# expect_setting LINE: the settings hold this line, "<value> = <content>", below any key.
expect_setting() {
    settings | grep -F "\\$1" >/dev/null || fail "this was not written: $1"
    printf '   %s\n' "$1"
}
