#!/usr/bin/env bash
# The 32-bit control in the 32-bit workbench: Apply writes the settings.
set -euo pipefail
programs=${1:?"the folder of VexaPPE.ocx and workbench.exe"}
workbench() { "$(dirname "$0")/../../scripts/wine-root-run" x86 "$programs/workbench.exe" "$@"; }
workbench --register --sample
workbench --ocx "Z:${programs//\//\\}\\VexaPPE.ocx" --show-options --press apply --press cancel --exit-after-options
workbench --dump | tr -d '\r' | grep -xF 'Software\Norvane\Quillmark\Default\MinRel = 40' >/dev/null || {
    echo "FAILED: the 32-bit page did not write its settings"
    exit 1
}
