# The tables of an installer package (an .msi is a small database): how they are written, and those that are the same
# in every package.
# shellcheck shell=bash

# table NAME KEYS COLUMN:TYPE ...: begins a table; `row` then adds its rows. The first KEYS columns are its key. Types
# are those of the format: s text, l text that may be translated, i number, v file; capitals may be empty.
table() {
    local name=$1 keys=$2
    shift 2
    table_file=$tables/$name.idt
    {
        tab_separated "${@%%:*}"
        tab_separated "${@##*:}"
        local columns=("${@%%:*}")
        tab_separated "$name" "${columns[@]:0:keys}"
    } >"$table_file"
}

row() { tab_separated "$@" >>"$table_file"; }

tab_separated() {
    local IFS=$'\t'
    printf '%s\r\n' "$*"
}

# The installer's steps, each at its customary place.
sequence() {
    local name=$1 step
    shift
    table "$name" 1 Action:s72 Condition:S255 Sequence:I2
    for step in "$@"; do row "${step%%:*}" "" "${step##*:}"; done
}

write_sequences() {
    # What an earlier version left is taken away inside the transaction: where the installation fails, it comes back.
    sequence InstallExecuteSequence FindRelatedProducts:25 LaunchConditions:100 ValidateProductID:700 \
        CostInitialize:800 FileCost:900 CostFinalize:1000 InstallValidate:1400 InstallInitialize:1500 \
        RemoveExistingProducts:1525 ProcessComponents:1600 UnpublishFeatures:1800 RemoveRegistryValues:2600 \
        RemoveFiles:3500 RemoveFolders:3600 CreateFolders:3700 InstallFiles:4000 WriteRegistryValues:5000 \
        RegisterUser:6000 RegisterProduct:6100 PublishFeatures:6300 PublishProduct:6400 InstallFinalize:6600
    sequence InstallUISequence FindRelatedProducts:25 LaunchConditions:100 ValidateProductID:700 CostInitialize:800 \
        FileCost:900 CostFinalize:1000 ExecuteAction:1300
    sequence AdminExecuteSequence CostInitialize:800 FileCost:900 CostFinalize:1000 InstallValidate:1400 \
        InstallInitialize:1500 InstallAdminPackage:3900 InstallFiles:4000 InstallFinalize:6600
    sequence AdminUISequence CostInitialize:800 FileCost:900 CostFinalize:1000 ExecuteAction:1300
    sequence AdvtExecuteSequence CostInitialize:800 CostFinalize:1000 InstallValidate:1400 InstallInitialize:1500 \
        PublishFeatures:6300 PublishProduct:6400 InstallFinalize:6600
}
