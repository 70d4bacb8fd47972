#!/usr/bin/env bash
# The registered control in the workbench's Options dialog: Apply writes all settings and nothing else, Cancel
# writes nothing, and the calls on the way are the expected ones.
source "$(dirname "$0")/lib.sh"
calls=$work/calls.log
log=(--log "$(windows_path "$calls")")

# The calls that were noted, without the time and without the poll of the add-in.
noted_calls() { cut -f2- "$calls" | grep -v $'^page > add-in\tIs' | tr '\t' ' ' | sed 's/ *$//'; }

# The base folder is the sample's; logging is shared by all profiles.
written_settings() {
    known_settings | sed -e 's/^VexaBaseDir = .*/VexaBaseDir = "C:\\Quillmark"/' -e 's/^/Default\\/' \
        -e 's/^Default\\\(LoggingInformation\)/\1/' -e 's/^/Software\\Norvane\\Quillmark\\/'
}

hold_prefix
control=$(windows_path "$programs/VexaPPE.ocx")
check "regsvr32 registers the control" wine_program regsvr32 /s "$control"
check "the workbench registers its add-in and fills in sample data" workbench --register --sample
settings | sort >"$work/before"

check "Cancel ends the dialog" workbench --show-options --press cancel --exit-after-options "${log[@]}"
settings | sort >"$work/after-cancel"
check "Cancel writes nothing" same "$work/before" "$work/after-cancel"
echo 'host > page Close' >"$work/expected"
noted_calls >"$work/noted"
check "Cancel asks the page for nothing" same "$work/expected" "$work/noted"
check "the page asks the running add-in" grep -qF IsProcessing "$calls"

check "Apply works" workbench --show-options --press apply --press cancel --exit-after-options "${log[@]}"
settings | sort >"$work/after-apply"
written_settings | sort -u - "$work/before" >"$work/expected"
check "Apply writes the settings and nothing else" same "$work/expected" "$work/after-apply"
printf '%s\n' 'host > page Apply' 'host > page Apply returned' 'host > page Dirty = false' \
    'host > page Close' >"$work/expected"
noted_calls >"$work/noted"
check "Apply calls no operation of the add-in, and the page is clean afterwards" same "$work/expected" "$work/noted"

check "OK works with the control taken from its file" workbench --ocx "$control" --show-options --press ok \
    --exit-after-options "${log[@]}"
printf '%s\n' 'host > page Dirty = false' 'host > page Apply' 'host > page Apply returned' 'host > page Close' \
    >"$work/expected"
noted_calls >"$work/noted"
check "OK asks whether the page is dirty and applies" same "$work/expected" "$work/noted"

check "an add-in whose questions fail does not hinder the page" workbench --fail "IsProcessing=not now" \
    --fail IsSearching --show-options --press apply --press cancel --exit-after-options "${log[@]}"

check "regsvr32 unregisters the control" wine_program regsvr32 /s /u "$control"
unregistered() { ! workbench --show-options --exit-after-options "${log[@]}"; }
check "an unregistered control cannot be made" unregistered
finish
