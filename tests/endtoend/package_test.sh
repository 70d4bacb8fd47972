#!/usr/bin/env bash
# The installer packages in a Windows of their own: what each step of their lives leaves in the registry, in both views,
# and among the files.
export LC_ALL=C.UTF-8
source "$(dirname "$0")/lib.sh"
cd "$root"
source packaging/registration_rows.sh
source tests/endtoend/registered_rows.sh

# A new Windows: a run that was broken off may have left something installed.
release_prefix
rm -rf "$WINEPREFIX"
use_prefix "$(basename "$0" .sh)"

drive=$WINEPREFIX/drive_c
version=$(scripts/version)
packages=$work/packages
older=$work/older
REBOOT_REQUIRED=3010  # of which a process of this system keeps the lower byte
HUNG=124              # what timeout says of what it has ended

# --- Looking ------------------------------------------------------------------------------------------------------

# What is not there, and what is empty, gives nothing.
registry() { wine_program reg query "$1" /s "/reg:${2:-64}" 2>/dev/null | tr -d '\r' | sed '/^reg: /d; /^$/d' || true; }

# Everything of ours that is registered. HIVE VIEW
classes() {
    local key
    for key in 'CLSID\{A415E37F-A60D-4C4B-A34D-44D056493DA9}' 'Interface\{197AF41F-62A7-4E90-B1AD-4E5BBB872D61}' \
        'TypeLib\{4EC83D7F-A3B5-42BE-A4D5-7625D0FA59DB}' VexaPPE.ctlPPE; do
        registry "$1\\Software\\Classes\\$key" "$2"
    done
}

# What the steps change: our classes in both views, those of the user, the list of programs, files.
world() {
    classes HKLM 64
    classes HKLM 32
    classes HKCU 64
    classes HKCU 32
    registry 'HKLM\Software\Microsoft\Windows\CurrentVersion\Uninstall' 64
    registry 'HKLM\Software\Microsoft\Windows\CurrentVersion\Uninstall' 32
    (cd "$drive" && find "Program Files" "Program Files (x86)" users/*/AppData/Local -name Temp -prune -o -print0 | LC_ALL=C sort -z |
        xargs -0 ls -ld --time-style=+ | sed 's/^[^ ]* *[0-9]* *[^ ]* *[^ ]* *//')
}
# Every value of all classes, whoever they belong to. The installer keeps keys of its own there, and takes away keys
# that it leaves empty, also where they were empty before.
all_classes() {
    local view
    for view in 64 32; do registry 'HKLM\Software\Classes' $view; done |
        awk '/^HKEY/ { key = $0; next } NF { print key ": " $0 }' | grep -v '\\Installer' | LC_ALL=C sort -u
}

unchanged() {
    world >"$work/now"
    same "$1" "$work/now"
}

# rows_are_there HIVE BITNESS VIEW FOLDER: every row of the control's own table, for the file in this folder.
rows_are_there() {
    local hive=$1 platform=win64 view=$3
    local root_name=HKEY_LOCAL_MACHINE
    [ "$2" = x64 ] || platform=win32
    [ "$hive" = HKLM ] || root_name=HKEY_CURRENT_USER
    classes "$hive" "$view" >"$work/classes"
    rows_are_in "$work/classes" "$root_name" "$platform" "$4\\VexaPPE.ocx"
}

apps_entry() { registry 'HKLM\Software\Microsoft\Windows\CurrentVersion\Uninstall' 64 | grep -A40 "$1" >"$work/entry"; }

# --- Doing --------------------------------------------------------------------------------------------------------

msi() { timeout 120 wine msiexec "$1" "$(windows_path "$2")" "${@:3}" /qn; }
installs() { msi /i "$@"; }
removes() { msi /x "$@"; }
refuses() {
    local code=0
    msi /i "$@" || code=$?
    [ "$code" != 0 ] && [ "$code" != "$HUNG" ]
}
set_windows() { wine_program reg add 'HKCU\Software\Wine' /v Version /d "$1" /f >/dev/null; }

shows_the_page() {
    workbench --show-options --press apply --press cancel --exit-after-options --log "$(windows_path "$work/calls")" &&
        grep -q 'Apply returned' "$work/calls"
}

# --- The packages -------------------------------------------------------------------------------------------------

build_registration_rows "$work/registration_rows"
check "packages are made" scripts/package --out "$packages"
PACKAGE_VERSION=0.9.0 check "packages of an earlier version are made" env PACKAGE_VERSION=0.9.0 scripts/package --out "$older"
sleep 1
check "they are made again" scripts/package --out "$work/again"
check "with the same bytes" same "$packages/SHA256SUMS" "$work/again/SHA256SUMS"
checksums_hold() { (cd "$packages" && sha256sum --check --quiet SHA256SUMS); }
check "the checksums hold" checksums_hold

all=$packages/VexaPPE-$version.msi
all_older=$older/VexaPPE-0.9.0.msi
odd_folder="$work/Pakete für alle"
mkdir -p "$odd_folder"
cp "$all_older" "$odd_folder/Übung 1.msi"
head -c 100000 "$all" >"$work/damaged.msi"

hold_prefix
set_windows win10
workbench --register --sample
world >"$work/start"
all_classes >"$work/all-classes"

check "a damaged package is refused" refuses "$work/damaged.msi"
check "the package for 32-bit Windows is refused on a 64-bit one" refuses "$packages/VexaPPE-$version-x86.msi"
set_windows win7
check "a Windows that is too old is refused" refuses "$all"
set_windows win10
check "what was refused has changed nothing" unchanged "$work/start"

# What stands in the way of a file stands for a folder that nobody may write to.
program_folder="$drive/Program Files/Norvane/Quillmark"
mkdir -p "$program_folder/VexaPPE.ocx"
check "where the control cannot be written nothing is installed" refuses "$all"
rm -r "$drive/Program Files/Norvane"
check "and nothing is left of the attempt" unchanged "$work/start"

check "an earlier version installs, from a folder with blanks and letters outside ASCII" installs "$odd_folder/Übung 1.msi"
check "its 64-bit rows are there" rows_are_there HKLM x64 64 'C:\Program Files\Norvane\Quillmark'
check "its 32-bit rows are there" rows_are_there HKLM x86 32 'C:\Program Files (x86)\Norvane\Quillmark'
check "it stands among the programs" apps_entry 'Quillmark options page'
check "with its version" grep -q '0\.9\.0' "$work/entry"
check "the page is made by its name and shown" shows_the_page
# But for the windows that are there while the page is.
lasting_settings() { settings | grep -v hWnd | sort; }
lasting_settings >"$work/settings"

# Somebody has the page open: the process holds the file, as Outlook does.
installed="$program_folder/VexaPPE.ocx"
repair() { installs "$all" REINSTALL=ALL REINSTALLMODE=amus; }
show_and_hold() {
    wine "$programs/workbench.exe" --show-options --log "$(windows_path "$work/held")" >/dev/null 2>&1 &
    page_process=$!
    until_true grep -q 'page > add-in' "$work/held"
}
goes_on() {
    local lines
    lines=$(wc -l <"$work/held")
    more_lines() { [ "$(wc -l <"$work/held")" -gt "$lines" ]; }
    until_true more_lines
}
# The file's own version is the earlier one, too: the installer goes by it.
perl -0777 -pi -e 's/(\xbd\x04\xef\xfe.{4}).{8}/$1\x09\0\0\0\0\0\0\0/s' "$installed"
cp "$installed" "$work/earlier.ocx"
check "a page is shown, and stays" show_and_hold
waits_for_restart() {
    local code=0
    installs "$@" || code=$?
    [ "$code" = $((REBOOT_REQUIRED % 256)) ]
}
check "this version installs meanwhile, and asks for a new start" waits_for_restart "$all"
check "the page that is shown goes on" goes_on
check "with its own file" cmp "$installed" "$work/earlier.ocx"
kill "$page_process" && wait "$page_process" 2>/dev/null || true
restart_windows() {
    release_prefix
    hold_prefix
    wine_program wineboot --restart
}
check "Windows starts anew" restart_windows
check "this version's file is there" cmp build/windows-x64/VexaPPE.ocx "$installed"
check "the 64-bit rows are there" rows_are_there HKLM x64 64 'C:\Program Files\Norvane\Quillmark'
check "the 32-bit rows are there" rows_are_there HKLM x86 32 'C:\Program Files (x86)\Norvane\Quillmark'
apps_entry 'Quillmark options page'
check "the program's entry tells this version" grep -q "DisplayVersion.*$version" "$work/entry"
one_entry() { [ "$(registry 'HKLM\Software\Microsoft\Windows\CurrentVersion\Uninstall' | grep -c 'DisplayName.*Quillmark')" = 1 ]; }
check "and there is one entry" one_entry
lasting_settings >"$work/settings-after"
check "the settings are as they were" same "$work/settings" "$work/settings-after"
check "the page is shown" shows_the_page
world >"$work/installed"

rm "$installed"
check "a file that was deleted is repaired" repair
check "it is the control" cmp build/windows-x64/VexaPPE.ocx "$installed"
# Cut short: Wine's installer goes by the version, which another damage would leave readable.
head -c 5000 build/windows-x64/VexaPPE.ocx >"$installed"
check "a file that was damaged is repaired" repair
check "it is the control again" cmp build/windows-x64/VexaPPE.ocx "$installed"

check "an earlier version is refused" refuses "$all_older"
check "which has changed nothing" unchanged "$work/installed"
mkdir -p "$drive/Program Files/Norvane/Quillmark/Log"
echo line >"$drive/Program Files/Norvane/Quillmark/Log/VexaPPE.log"
check "removal works" removes "$all"
world >"$work/removed"
check "and leaves nothing, but for the user's settings" same "$work/start" "$work/removed"

# Somebody has registered a copy by hand before.
by_hand="$drive/Von Hand/Größe 1"
mkdir -p "$by_hand"
cp build/windows-x64/VexaPPE.ocx "$by_hand/"
check "regsvr32 registers a copy" wine_program regsvr32 /s 'C:\Von Hand\Größe 1\VexaPPE.ocx'
check "which then says that it is registered" wine_program regsvr32 /s /n /i:check 'C:\Von Hand\Größe 1\VexaPPE.ocx'
check "the package installs over it" installs "$all"
check "its rows replace those" rows_are_there HKLM x64 64 'C:\Program Files\Norvane\Quillmark'
check "removal works then, too" removes "$all"
check "and leaves nothing" unchanged "$work/start"

for bitness in x64 x86; do
    package=$packages/VexaPPE-$version-user-$bitness.msi
    folder="C:\\users\\$(whoami)\\AppData\\Local\\Programs\\Norvane\\Quillmark\\$bitness"
    view=64
    [ "$bitness" = x64 ] || view=32
    check "the $bitness package for one user installs" installs "$package"
    check "its rows are the user's" rows_are_there HKCU $bitness $view "$folder"
    check "removal works" removes "$package"
    check "and leaves nothing" unchanged "$work/start"
done
all_classes >"$work/all-classes-after"
check "the other classes of the machine are as they were" same "$work/all-classes" "$work/all-classes-after"
finish
