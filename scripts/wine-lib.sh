# Shared by all scripts that run the built programs under Wine: a display, a prefix, and what is registered and stored
# in it.
# shellcheck shell=bash disable=SC2034
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
source "$root/scripts/processor.sh"
stay_on_one_processor
programs=$root/build/windows-x64
SCREEN=${SCREEN:-1280x900}
PATIENCE=30  # seconds until a wait is in vain
display_process=

fail() {
    printf 'error: %s\n' "$*" >&2
    exit 1
}

# until_true COMMAND ...: runs it until it succeeds.
until_true() {
    local end=$((SECONDS + PATIENCE))
    until "$@" >/dev/null 2>&1; do
        [ "$SECONDS" -lt "$end" ] || return 1
        sleep 0.1
    done
}

# --- Display ------------------------------------------------------------------------------------------------------

# A display of its own, on a number that is free.
start_display() {
    local said
    said=$(mktemp)
    Xvfb -displayfd 1 -screen 0 "${SCREEN}x24" -nolisten tcp >"$said" 2>/dev/null &
    display_process=$!
    until_true test -s "$said" || fail "Xvfb does not start"
    DISPLAY=:$(cat "$said")
    export DISPLAY
    rm "$said"
}

end_display() {
    [ -z "$display_process" ] || kill "$display_process" 2>/dev/null || true
}

# --- Prefix -------------------------------------------------------------------------------------------------------

# use_prefix NAME
use_prefix() {
    WINEPREFIX=$("$root/scripts/wine-prefix" "$1")
    export WINEPREFIX WINEARCH=win64 WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml="
}

# prepare_prefix DPI SIZE [NAME]: everything that runs in it shows its windows in one virtual desktop: it has frames
# and focus without a window manager.
prepare_prefix() {
    local dpi=$1 size=$2
    [ -e "$programs/VexaPPE.ocx" ] || fail "build/windows-x64/VexaPPE.ocx is missing: ./run build"
    use_prefix "${3:-desktop}"
    release_prefix
    set_value 'HKCU\Control Panel\Desktop' LogPixels REG_DWORD "$dpi"
    set_value 'HKCU\Software\Wine\Explorer' Desktop REG_SZ Default
    set_value 'HKCU\Software\Wine\Explorer\Desktops' Default REG_SZ "$size"
    wineserver --wait
}

set_value() { quietly wine reg add "$1" /v "$2" /t "$3" /d "$4" /f; }

# quietly COMMAND ...: its output is seen only where it fails. Nothing that is asked of Wine here takes long; what
# hangs is ended.
quietly() {
    local code=0 said
    said=$(mktemp)
    timeout 120 "$@" >"$said" 2>&1 || code=$?
    if [ "$code" != 0 ]; then
        printf 'exit code %s: %s\n' "$code" "$*" >&2
        cat "$said" >&2
    fi
    rm "$said"
    return "$code"
}

# use_high_contrast: the system's colours of a black scheme, as Windows ships it, and no theme that paints over them.
use_high_contrast() {
    local name colour
    set_value 'HKCU\Software\Microsoft\Windows\CurrentVersion\ThemeManager' ThemeActive REG_SZ 0
    while read -r name colour; do
        set_value 'HKCU\Control Panel\Colors' "$name" REG_SZ "$colour"
    done <<'END'
Window 0 0 0
WindowText 255 255 255
WindowFrame 255 255 255
ButtonFace 0 0 0
ButtonText 255 255 255
ButtonHilight 192 192 192
ButtonLight 255 255 255
ButtonShadow 128 128 128
ButtonDkShadow 255 255 255
ButtonAlternateFace 0 0 0
GrayText 63 242 63
Hilight 26 235 255
HilightText 0 0 0
HotTrackingColor 255 255 0
ActiveTitle 0 0 0
GradientActiveTitle 0 0 0
TitleText 255 255 255
InactiveTitle 0 0 0
GradientInactiveTitle 0 0 0
InactiveTitleText 255 255 255
ActiveBorder 0 0 255
InactiveBorder 0 255 255
Menu 0 0 0
MenuBar 0 0 0
MenuHilight 26 235 255
MenuText 255 255 255
Scrollbar 0 0 0
Background 0 0 0
InfoWindow 0 0 0
InfoText 255 255 0
AppWorkspace 0 0 0
END
    wineserver --wait
}

# Keeps one process of the prefix alive: a session that is just ending serves no calls between processes.
hold_prefix() {
    coproc HOLDER { exec wine cmd /c "set /p line=" 2>/dev/null; }
    quietly wine reg query 'HKCU\Software\Wine'
}

release_prefix() {
    wineserver --kill 2>/dev/null || true
    wineserver --wait
}

# --- Programs -----------------------------------------------------------------------------------------------------

# The page's class, the add-in's class, and something to show.
register_all() {
    quietly wine regsvr32 /s "$(windows_path "$programs/VexaPPE.ocx")" || fail "regsvr32 VexaPPE.ocx failed"
    quietly wine "$programs/workbench.exe" --register --sample || fail "the workbench cannot register its add-in"
}

windows_path() { printf 'Z:%s' "${1//\//\\}"; }

# The settings that the page has written.
settings() { wine "$programs/workbench.exe" --dump 2>/dev/null | tr -d '\r'; }
