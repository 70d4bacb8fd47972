# Shared by the end-to-end tests with real mouse and keyboard: a display of their own, the prefix with windows, and
# what the tour's chapters are written with. A test compares, step by step, the calls that were noted and what has
# changed in the registry with what shall be so; each comparison waits until it holds or patience ends.
# shellcheck shell=bash disable=SC2034,SC2154
source "$(dirname "${BASH_SOURCE[0]}")/lib.sh"
built=$programs
source "$root/scripts/tour-lib.sh"
programs=$built
calls=$work/calls.log
PATIENCE=120 # machines may be slow
dpi=96
checked_calls=0
say() { printf '== %s\n' "$*"; }

end_desktop_test() {
    local result=$?
    if [ "$result" != 0 ]; then
        import -window root "$built/endtoend_failure.png" 2>/dev/null || true
        tail -n 20 "$calls" 2>/dev/null || true
    fi
    release_prefix
    end_display
    end_test
}

start_desktop() {
    start_display
    trap end_desktop_test EXIT
    prepare_prefix "$dpi" "$SCREEN" "desktop-$(basename "$0" .sh)"
    hold_prefix
    register_all
}

# --- What is compared ---------------------------------------------------------------------------------------------

# holds COMMAND ...: within the patience, the command's output is what stands in $work/expected.
output_is() { "$@" | cmp -s - "$work/expected"; }
holds() {
    until_true output_is "$@" && return
    "$@" | diff -u "$work/expected" -
    return 1
}
# expect DESCRIPTION COMMAND ... <<END: a check that the command comes to print these lines.
expect() {
    local description=$1
    shift
    cat >"$work/expected"
    check "$description" holds "$@"
}

# The calls that were noted, without the time and without the questions that are polled.
noted_calls() { cut -f2- "$calls" | grep -v $'^page > add-in\tIs' | tr '\t' ' ' | sed 's/ *$//'; }
new_calls() { noted_calls | tail -n +$((checked_calls + 1)); }
expect_calls() {
    expect "$1: the calls" new_calls
    # What comes later belongs to the next comparison.
    checked_calls=$((checked_calls + $(wc -l <"$work/expected")))
}

# The settings without what differs from run to run.
steady_settings() {
    settings | sed -E 's/^Software\\Norvane\\Quillmark\\//; s/(KBLastUpdate = ")[0-9].*"/\1a date"/
                       s/(hWnd[A-Za-z]+) = .*/\1 = a window/' | LC_ALL=C sort
}
changes() {
    steady_settings >"$work/now"
    LC_ALL=C comm -3 "$work/before" "$work/now" | sed -E $'s/^\t/+ /; t; s/^/- /' | LC_ALL=C sort
}
remember_settings() { steady_settings >"$work/before"; }
expect_changes() {
    LC_ALL=C sort >"$work/expected-changes"
    expect "$1: the registry" changes <"$work/expected-changes"
    remember_settings
}

# --- Windows ------------------------------------------------------------------------------------------------------

controls_of() { wine "$programs/locate.exe" "$1" 2>/dev/null | tr -d '\r'; }
texts_of() { controls_of "$2" | sed -nE "s/^#-?[0-9]+ $1 ([-0-9]+ ){4}(enabled|disabled) //p"; }

message_text() { texts_of Static Quillmark | grep .; }

# A message box shows this text; the key answers it.
answer_message() {
    wait_window Quillmark
    expect "$1" message_text
    press "$2"
    wait_gone Quillmark
}

# The in-place editor is open; its text is what standard input holds.
expect_editor() { expect "$1" texts_of Edit Knowledgebases; }
