#!/usr/bin/env bash
# The packages for 32-bit Windows and for one user in a 32-bit Windows.
set -euo pipefail
programs=${1:?"the folder of VexaPPE.ocx and workbench.exe"}
cd "$(dirname "$0")/../.."
source packaging/registration_rows.sh
source tests/endtoend/registered_rows.sh
version=$(scripts/version)
# Only what lies in the tree of the sources is seen in that Windows.
work=$programs/package-test
classes='Software\Classes\CLSID\{A415E37F-A60D-4C4B-A34D-44D056493DA9}'
mkdir -p "$work"

workbench() { scripts/wine-root-run x86 "$programs/workbench.exe" "$@"; }
system_program() { scripts/wine-root-run x86 "$prefix/drive_c/windows/system32/$1.exe" "${@:2}"; }
msi() { system_program msiexec "$1" "Z:${work//\//\\}\\packages\\$2" /qn; }
check() {
    local description=$1
    shift
    if "$@" >"$work/output" 2>&1; then
        printf 'ok      %s\n' "$description"
    else
        cat "$work/output"
        printf 'FAILED  %s\n' "$description"
        exit 1
    fi
}
registered() { system_program reg query "$1\\$classes" /s 2>/dev/null | tr -d '\r'; }
nothing_registered() { ! registered "$1" | grep -q REG_SZ; }
installed_files() { find "$prefix/drive_c" -iname VexaPPE.ocx; }

# rows_are_there HIVE ROOT FOLDER: what the class itself says in the control's own table, for the file in this folder.
rows_are_there() {
    registered "$1" >"$work/classes"
    rows_are_in "$work/classes" "$2" win32 "$3\\VexaPPE.ocx" '\CLSID\'
}
# The page is made by its name, from where it is installed.
page_applies() {
    rm -f "$work/calls"
    workbench --show-options --press apply --press cancel --exit-after-options --log "Z:${work//\//\\}\\calls"
    grep -q 'Apply returned' "$work/calls"
}

build_registration_rows "$work/registration_rows"
check "packages are made" scripts/package --out "$work/packages"
check "the add-in is registered" workbench --register --sample
prefix=$(scripts/wine-root x86)/prefix-${TEST_PREFIX:-tests}
check "Windows 10" system_program reg add 'HKCU\Software\Wine' /v Version /d win10 /f
if msi /i "VexaPPE-$version.msi"; then
    echo "FAILED  the package for 64-bit Windows is refused"
    exit 1
fi
check "the package for 64-bit Windows is refused" nothing_registered HKLM
check "and leaves no file" test -z "$(installed_files)"

check "the package for all users installs" msi /i "VexaPPE-$version-x86.msi"
check "its rows are there" rows_are_there HKLM HKEY_LOCAL_MACHINE 'C:\Program Files\Norvane\Quillmark'
check "it is the 32-bit control" cmp "$programs/VexaPPE.ocx" "$prefix/drive_c/Program Files/Norvane/Quillmark/VexaPPE.ocx"
check "the page is made by its name, and applies" page_applies
check "removal works" msi /x "VexaPPE-$version-x86.msi"
check "and leaves no row" nothing_registered HKLM
check "and no file" test -z "$(installed_files)"

# Wine makes no object by what is registered for one user.
check "the package for one user installs" msi /i "VexaPPE-$version-user-x86.msi"
user_folder=$(cd "$prefix/drive_c/users" && find . -ipath '*/AppData/Local/Programs/Norvane/Quillmark/x86' | cut -c3-)
check "its rows are the user's" rows_are_there HKCU HKEY_CURRENT_USER "C:\\users\\${user_folder//\//\\}"
check "removal works" msi /x "VexaPPE-$version-user-x86.msi"
check "and leaves no row" nothing_registered HKCU
check "and no file" test -z "$(installed_files)"
