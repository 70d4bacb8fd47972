#!/usr/bin/env bash
# The control with the trace: it works as the control does, and its file tells the calls in both directions, in their
# order, with results and counts, and what happens to the windows.
source "$(dirname "$0")/lib.sh"
trace=$work/trace.log
VEXAPPE_TRACE=$(windows_path "$trace")
export VEXAPPE_TRACE

# The trace without numbers, times and addresses.
told() { tr -d '\r' <"$trace" | sed 's/^[0-9]* [0-9:.]* \[ *[0-9]*\] *//'; }
# Into a file first: a pipe that is closed early would count as a failure.
tells() {
    told >"$work/told"
    grep -qF -- "$1" "$work/told"
}
# line_of TEXT: where it stands first.
line_of() { told | grep -nF -m 1 -- "$1" | cut -d: -f1; }
in_order() {
    local text last=0 here
    for text in "$@"; do
        here=$(line_of "$text")
        [ -n "$here" ] || { echo "missing: $text"; return 1; }
        [ "$here" -gt "$last" ] || { echo "too early: $text"; return 1; }
        last=$here
    done
}
numbered() {
    tr -d '\r' <"$trace" | awk '{ if ($1 + 0 != NR) { print "line " NR " bears number " $1; exit 1 } }'
}

hold_prefix
check "the workbench registers its add-in and fills in sample data" workbench --register --sample
check "the page with the trace works" workbench --ocx "$(windows_path "$programs/VexaPPE-trace.ocx")" --show-options \
    --press apply --press cancel --exit-after-options --log "$(windows_path "$work/calls")"
check "Apply has come back" grep -q 'Apply returned' "$work/calls"
check "every line has its number" numbered
check "the calls stand in their order" in_order 'class object CreateInstance' 'host > control IOleObject::SetClientSite(' \
    '= 0x0 IOleObject::SetClientSite' 'host > control IOleObject::DoVerb(' 'control > host IOleInPlaceSite' \
    '= 0x0 IOleObject::DoVerb' 'host > control PropertyPage::Apply()' '= 0x0 PropertyPage::Apply' \
    'host > control IOleObject::Close('
check "calls inside a call are indented" grep -q '^[0-9]* [0-9:.]* \[ *[0-9]*\]   control > host' "$trace"
check "references are counted" tells 'host > control AddRef = '
check "the last one is told" tells 'host > control Release = 0'
check "the container gets all of its own back" tells 'control > host Release = 0'
check "windows are told of" tells 'WM_SETFOCUS'
check "and the screen's scaling" tells 'DPI'
finish
