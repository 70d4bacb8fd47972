#!/usr/bin/env bash
# The whole life of knowledgebases in the built control, by mouse and keyboard: from an empty list through adding,
# editing, rebuilding, updating and renaming to removing the last one. At each step what the add-in heard and what
# changed in the registry are compared with what shall be so. The add-in works until the test says that it ends.
# shellcheck disable=SC2154
source "$(dirname "$0")/desktop.sh"
LIST='#1402'
DIALOG=Knowledgebases
ALL='Add Edit Rebuild Remove Rename Update'

# The commands that are enabled.
enabled_commands() {
    controls_of "$DIALOG" | sed -nE 's/^.* enabled (&?Add|Re&move|&Edit|Re&name|Re&build|&Update)$/\1/p' | tr -d '&' |
        LC_ALL=C sort | paste -sd' '
}
expect_commands() { expect "$1: the commands" enabled_commands <<<"$2"; }
tell_add_in() { quietly wine "$programs/workbench.exe" "$1" || fail "no workbench runs"; }
nothing_happens() {
    expect_calls "$1" </dev/null
    expect_changes "$1" </dev/null
}
expect_no_editor() { expect "$1" texts_of Edit "$DIALOG" </dev/null; }

# row NUMBER: where the row is in the list, under the header.
row() { printf '60 %s' $((11 + 17 * $1)); }
# shellcheck disable=SC2046
choose_row() { click "$LIST" "$DIALOG" $(row "$1"); }
# shellcheck disable=SC2046
double_click_row() {
    choose_row "$1"
    double_click_point $(xdotool getmouselocation --shell | sed -n 's/^[XY]=//p')
}

start_desktop
quietly wine reg delete 'HKCU\Software\Norvane\Quillmark' /f
set_value 'HKCU\Software\Norvane\Quillmark' CurrentProfile REG_SZ Alice
set_value 'HKCU\Software\Norvane\Quillmark\Alice' VexaBaseDir REG_SZ 'C:\Quillmark'
open_page --work-time 36000000
remember_settings

click 'Knowledgebase...' Options
wait_window "$DIALOG"
expect_commands 'an empty list' Add
expect_calls 'opening' <<<'page > add-in connects to the event'
expect_changes 'opening' <<<'+ hWndKBEdit = a window'

say 'add the first one'
click Add "$DIALOG"
expect_editor 'the first name is proposed' <<<default
type_text Minutes
press Return
wait_window Quillmark
expect_calls 'a new name' <<<'page > add-in NotifyKbAdded "Minutes"'
expect_changes 'a new name' <<'END'
+ Alice\Minutes\KBDocuments = 0
+ Alice\Minutes\KBLastUpdate = "-1"
+ Alice\Minutes\KBSize = -1
+ Alice\Project1 = "Minutes"
+ Alice\ProjectCount = 1
+ Alice\ProjectEvent = 0
+ Alice\ProjectEventName = "Minutes"
+ Alice\Projectname = "Minutes"
END
answer_message 'the first one is offered for auto-update' y \
    <<<"Would you like 'Minutes' to be configured for auto-update?"
expect_calls 'its folders are chosen at once' <<'END'
page > add-in SetDefaultKnowledgebase "Minutes"
page > search window 1139 edit knowledgebase wParam 0, lParam 0
END
# The base folder is stored already; logging is shared by all profiles.
applied_settings() {
    known_settings | sed -e '/^VexaBaseDir/d' -e 's/^DefaultProject = .*/DefaultProject = "Minutes"/' -e 's/^/Alice\\/' \
        -e 's/^Alice\\\(LoggingInformation\)/\1/' -e 's/^/+ /'
    cat <<'END'
+ Alice\KBProcessState = 2
- Alice\ProjectEvent = 0
+ Alice\ProjectEvent = 2
END
}
expect_changes 'the settings are applied, the dialog is locked' < <(applied_settings)
expect_commands 'locked' ''
tell_add_in --finish-now
expect_calls 'the end' <<<'add-in > page ProcessFinished "Minutes", false'
expect_changes 'the end' <<'END'
+ Alice\EditNoChange = 0
- Alice\KBProcessState = 2
- Alice\Minutes\KBDocuments = 0
+ Alice\Minutes\KBDocuments = 1200
- Alice\Minutes\KBLastUpdate = "-1"
+ Alice\Minutes\KBLastUpdate = "a date"
- Alice\Minutes\KBSize = -1
+ Alice\Minutes\KBSize = 1480800
END
expect_commands 'unlocked' "$ALL"

say 'add another, by keyboard'
press alt+a
expect_editor 'the next name is proposed' <<<'New[1]'
type_text Archive
press Return
expect_calls 'another name' <<'END'
page > add-in NotifyKbAdded "Archive"
page > search window 1139 edit knowledgebase wParam 0, lParam 0
END
expect_changes 'another name' <<'END'
+ Alice\Archive\KBDocuments = 0
+ Alice\Archive\KBLastUpdate = "-1"
+ Alice\Archive\KBSize = -1
+ Alice\KBProcessState = 2
+ Alice\Project2 = "Archive"
- Alice\ProjectCount = 1
+ Alice\ProjectCount = 2
- Alice\ProjectEventName = "Minutes"
+ Alice\ProjectEventName = "Archive"
END
tell_add_in --finish-now
expect_calls 'the end' <<<'add-in > page ProcessFinished "Archive", false'
expect_changes 'the end' <<'END'
- Alice\Archive\KBDocuments = 0
+ Alice\Archive\KBDocuments = 1200
- Alice\Archive\KBLastUpdate = "-1"
+ Alice\Archive\KBLastUpdate = "a date"
- Alice\Archive\KBSize = -1
+ Alice\Archive\KBSize = 1480800
- Alice\KBProcessState = 2
END
expect_commands 'unlocked' "$ALL"

say 'edit by a double click'
double_click_row 2
expect_calls 'edit' <<<'page > search window 1139 edit knowledgebase wParam 0, lParam 0'
expect_changes 'edit' <<'END'
+ Alice\KBProcessState = 2
- Alice\ProjectEventName = "Archive"
+ Alice\ProjectEventName = "Minutes"
END
expect_commands 'locked' ''
tell_add_in --finish-now
expect_calls 'the end' <<<'add-in > page ProcessFinished "Minutes", false'
expect_changes 'the end' <<<'- Alice\KBProcessState = 2'
expect_commands 'unlocked' "$ALL"

say 'rebuild by keyboard'
choose_row 1
press alt+b
expect_calls 'rebuild' <<<'page > add-in NotifyKbRebuild "Archive"'
expect_changes 'rebuild' <<'END'
+ Alice\KBProcessState = 2
- Alice\ProjectEvent = 2
+ Alice\ProjectEvent = 4
- Alice\ProjectEventName = "Minutes"
+ Alice\ProjectEventName = "Archive"
END
expect_commands 'locked' ''
tell_add_in --finish-now
expect_calls 'the end' <<<'add-in > page ProcessFinished "Archive", false'
expect_changes 'the end' <<<'- Alice\KBProcessState = 2'

say 'update by mouse'
click Update "$DIALOG"
expect_calls 'update' <<<'page > add-in NotifyKbUpdate "Archive"'
expect_changes 'update' <<'END'
+ Alice\KBProcessState = 2
- Alice\ProjectEvent = 4
+ Alice\ProjectEvent = 5
END
expect_commands 'locked' ''
tell_add_in --finish-now
expect_calls 'the end' <<<'add-in > page ProcessFinished "Archive", false'
expect_changes 'the end' <<'END'
- Alice\Archive\KBDocuments = 1200
+ Alice\Archive\KBDocuments = 1275
- Alice\Archive\KBSize = 1480800
+ Alice\Archive\KBSize = 1573350
- Alice\KBProcessState = 2
END

say 'names that are refused'
choose_row 1
press F2
expect_editor 'F2 renames' <<<Archive
type_text 'a:b'
press Return
answer_message 'a forbidden character' Return <<'END'
The name may not contain the following characters:\r\n                 \ / : * ? " < > |
END
expect_editor 'the old name is back' <<<Archive
press BackSpace Return
answer_message 'no name' Return <<<'Please enter a name.'
expect_editor 'the old name is back' <<<Archive
type_text MINUTES
press Return
answer_message 'the name of another in capitals' Return <<<"The knowledgebase 'MINUTES' already exists."
expect_editor 'the old name is back' <<<Archive
press Return
expect_no_editor 'an unchanged name is taken'
press Delete
nothing_happens 'refused and unchanged names, and Del'

say 'rename'
press F2
expect_editor 'F2 renames' <<<Archive
type_text Library
press Return
expect_calls 'rename' <<<'page > add-in NotifyKbRenamed "Archive", "Library"'
expect_changes 'rename' <<'END'
- Alice\Archive\KBDocuments = 1275
- Alice\Archive\KBLastUpdate = "a date"
- Alice\Archive\KBSize = 1573350
+ Alice\Library\KBDocuments = 1275
+ Alice\Library\KBLastUpdate = "a date"
+ Alice\Library\KBSize = 1573350
+ Alice\OldProjectname = "Archive"
- Alice\Project2 = "Archive"
+ Alice\Project2 = "Library"
- Alice\ProjectEvent = 5
+ Alice\ProjectEvent = 3
- Alice\ProjectEventName = "Archive"
+ Alice\ProjectEventName = "Library"
END
expect_commands 'a rename does not lock' "$ALL"

say 'rename the one that is updated automatically'
choose_row 2
click Rename "$DIALOG"
expect_editor 'Rename opens the editor' <<<Minutes
type_text Protocols
press Return
expect_calls 'rename' <<<'page > add-in NotifyKbRenamed "Minutes", "Protocols"'
expect_changes 'rename' <<'END'
- Alice\DefaultProject = "Minutes"
+ Alice\DefaultProject = "Protocols"
- Alice\Minutes\KBDocuments = 1200
- Alice\Minutes\KBLastUpdate = "a date"
- Alice\Minutes\KBSize = 1480800
- Alice\OldProjectname = "Archive"
+ Alice\OldProjectname = "Minutes"
- Alice\Project1 = "Minutes"
+ Alice\Project1 = "Protocols"
- Alice\ProjectEventName = "Library"
+ Alice\ProjectEventName = "Protocols"
- Alice\Projectname = "Minutes"
+ Alice\Projectname = "Protocols"
+ Alice\Protocols\KBDocuments = 1200
+ Alice\Protocols\KBLastUpdate = "a date"
+ Alice\Protocols\KBSize = 1480800
END

say 'a command during an automatic update'
tell_add_in --auto-update
click Rebuild "$DIALOG"
answer_message 'an automatic update runs' Return \
    <<<'An auto-update is currently running.\r\nPlease wait until it is complete and try again.'
nothing_happens 'a command during an automatic update'
tell_add_in --finish-now
expect_calls 'the end' <<<'add-in > page ProcessFinished "Protocols", false'
expect_changes 'the end' <<'END'
- Alice\Protocols\KBDocuments = 1200
+ Alice\Protocols\KBDocuments = 1275
- Alice\Protocols\KBSize = 1480800
+ Alice\Protocols\KBSize = 1573350
END

say 'remove the one that is updated automatically'
question="You specified 'Protocols' as the auto-update knowledgebase.\\r\\rAre you sure you want to remove the \
knowledgebase 'Protocols'?"
click Remove "$DIALOG"
answer_message 'No' n <<<"$question"
nothing_happens 'No'
press alt+m
answer_message 'Yes' y <<<"$question"
wait_window 'Select auto-update knowledgebase'
expect_calls 'remove' <<<'page > add-in NotifyKbRemoved "Protocols"'
expect_changes 'remove' <<'END'
+ Alice\KBProcessState = 2
- Alice\ProjectEvent = 3
+ Alice\ProjectEvent = 1
END
press End Return # the removed one is still recorded
wait_gone 'Select auto-update knowledgebase'
expect_calls 'another one is chosen' <<<'page > add-in SetDefaultKnowledgebase "Library"'
expect_changes 'another one is chosen' <<'END'
- Alice\DefaultProject = "Protocols"
+ Alice\DefaultProject = "Library"
END
expect_commands 'locked' ''
tell_add_in --finish-now
expect_calls 'the end' <<'END'
add-in > page ProcessFinished "Protocols", false
page > search window WM_KEYDOWN knowledgebase gone wParam 2, lParam 0
END
expect_changes 'the end' <<'END'
- Alice\KBProcessState = 2
- Alice\Project1 = "Protocols"
+ Alice\Project1 = "Library"
- Alice\Project2 = "Library"
- Alice\ProjectCount = 2
+ Alice\ProjectCount = 1
- Alice\Projectname = "Protocols"
+ Alice\Projectname = "Library"
- Alice\Protocols\KBDocuments = 1275
- Alice\Protocols\KBLastUpdate = "a date"
- Alice\Protocols\KBSize = 1573350
END

say 'remove the last one'
choose_row 1
click Remove "$DIALOG"
answer_message 'the last one' y <<<"You specified 'Library' as the auto-update knowledgebase.\\r\\rAre you sure you \
want to remove the knowledgebase 'Library'?"
expect_calls 'no other one is asked for' <<'END'
page > add-in NotifyKbRemoved "Library"
page > add-in SetDefaultKnowledgebase ""
END
expect_changes 'nothing is updated automatically' <<'END'
- Alice\DefaultProject = "Library"
+ Alice\DefaultProject = ""
+ Alice\KBProcessState = 2
- Alice\ProjectEventName = "Protocols"
+ Alice\ProjectEventName = "Library"
END
tell_add_in --finish-now
expect_calls 'the end' <<'END'
add-in > page ProcessFinished "Library", false
page > search window WM_KEYDOWN knowledgebase gone wParam 2, lParam 0
END
expect_changes 'the end' <<'END'
- Alice\KBProcessState = 2
- Alice\Library\KBDocuments = 1275
- Alice\Library\KBLastUpdate = "a date"
- Alice\Library\KBSize = 1573350
- Alice\Project1 = "Library"
- Alice\ProjectCount = 1
+ Alice\ProjectCount = 0
- Alice\Projectname = "Library"
END
expect_commands 'an empty list' Add

say 'close, sorted by size'
click "$LIST" "$DIALOG" 320 10
click "$LIST" "$DIALOG" 60 10 # two clicks on the same header would be a double click
click "$LIST" "$DIALOG" 320 10
click Close "$DIALOG"
wait_gone "$DIALOG"
expect_calls 'closing' <<<'page > add-in disconnects from the event'
expect_changes 'closing' <<'END'
+ Alice\KBConfigColumn = 2
+ Alice\KBConfigSortOrder = 1
+ Alice\KBConfigSortType = 8
END
close_page Cancel
finish
