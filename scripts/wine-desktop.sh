# Shared by the tour and the workbench: the Wine prefix with windows on a display, and the programs in it.
# shellcheck shell=bash disable=SC2034
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
programs=$root/build/windows-x64

fail() {
    printf 'error: %s\n' "$*" >&2
    exit 1
}

# Everything that runs in the prefix shows its windows in one virtual desktop: it has frames and focus without a
# window manager.
prepare_prefix() {
    local dpi=$1 size=$2
    [ -e "$programs/VexaPPE.ocx" ] || fail "build/windows-x64/VexaPPE.ocx is missing: ./run build"
    WINEPREFIX=$("$root/scripts/wine-prefix" desktop)
    export WINEPREFIX WINEARCH=win64 WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml="
    wineserver --kill 2>/dev/null || true
    wineserver --wait
    set_value 'HKCU\Control Panel\Desktop' LogPixels REG_DWORD "$dpi"
    # A program that crashes ends at once, without a debugger that waits for someone.
    set_value 'HKLM\Software\Microsoft\Windows NT\CurrentVersion\AeDebug' Debugger REG_SZ false
    set_value 'HKCU\Software\Wine\Explorer' Desktop REG_SZ Default
    set_value 'HKCU\Software\Wine\Explorer\Desktops' Default REG_SZ "$size"
    wineserver --wait
}

set_value() { quietly wine reg add "$1" /v "$2" /t "$3" /d "$4" /f; }

# quietly COMMAND ...: its output is seen only where it fails. Nothing that is asked of Wine here takes long; what
# hangs is ended.
quietly() {
    local code=0
    timeout 120 "$@" >"$root/build/quiet.log" 2>&1 || code=$?
    [ "$code" = 0 ] && return
    printf 'exit code %s: %s\n' "$code" "$*" >&2
    cat "$root/build/quiet.log" >&2
    return "$code"
}

# Keeps one process of the prefix alive: a session that is just ending serves no calls between processes.
hold_prefix() {
    coproc HOLDER { exec wine cmd /c "set /p line=" 2>/dev/null; }
    quietly wine reg query 'HKCU\Software\Wine\Explorer'
}

# The page's class, the add-in's class, and something to show.
register_all() {
    quietly wine regsvr32 /s "$(windows_path "$programs/VexaPPE.ocx")" || fail "regsvr32 VexaPPE.ocx failed"
    quietly wine "$programs/workbench.exe" --register --sample || fail "the workbench cannot register its add-in"
}

windows_path() { printf 'Z:%s' "${1//\//\\}"; }
