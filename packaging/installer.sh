# Makes one installer package. The four differ in who they install for and in the bitnesses they carry:
#   make_installer OUTPUT.msi machine|user BITNESS ...      a bitness is x64 or x86
# Expects $version, $stage (a folder with VexaPPE-x64.ocx, VexaPPE-x86.ocx, notices.txt, product.ico), $rows (the
# program registration_rows) and $work.
# shellcheck shell=bash disable=SC2154
source "$(dirname "${BASH_SOURCE[0]}")/guid.sh"
source "$(dirname "${BASH_SOURCE[0]}")/tables.sh"

MAKER=Norvane
PRODUCT="Quillmark options page"
COMPONENT_IS_64_BIT=256
COMPONENT_KEY_IS_REGISTRY=4
HKCU=1
HKLM=2
ON_REMOVAL=2
UPGRADE_FROM_BELOW=256  # the lower bound belongs to the range
UPGRADE_DETECTS_ONLY=2

make_installer() {
    local output=$1 scope=$2
    shift 2
    local bitnesses=("$@")
    local kind="$scope $*" cabinet_files=()
    tables=$work/tables
    rm -rf "$tables" "$output"
    mkdir -p "$tables/Icon"
    write_product
    write_sequences
    write_folders
    write_content
    make_cabinet
    assemble "$output"
}

# --- What is installed --------------------------------------------------------------------------------------------

write_product() {
    local title=$PRODUCT all_users=1 hint="for all users"
    if [ "$scope" = user ]; then
        title="$PRODUCT (${bitnesses[0]}, this user)"
        all_users=
        hint="for one user"
    fi
    table Property 1 Property:s72 Value:l0
    row ProductCode "$(guid "product $version $kind")"
    row UpgradeCode "$(guid "upgrade $kind")"
    row ProductName "$title"
    row ProductVersion "$version"
    row Manufacturer "$MAKER"
    row ProductLanguage 1033
    [ -z "$all_users" ] || row ALLUSERS "$all_users"
    row SecureCustomProperties "NEWERISTHERE;OLDERISTHERE"
    row ARPPRODUCTICON product.ico
    row ARPNOMODIFY 1
    row ARPCOMMENTS "The options page of Quillmark in Outlook, $hint"
    # A damaged file keeps its version: repairing replaces whatever lies there.
    row REINSTALLMODE amus
    table Icon 1 Name:s72 Data:v0
    row product.ico product.ico
    cp "$stage/product.ico" "$tables/Icon/product.ico"
    write_versions
    write_conditions
}

write_versions() {
    local code
    code=$(guid "upgrade $kind")
    table Upgrade 5 UpgradeCode:s38 VersionMin:S20 VersionMax:S20 Language:S255 Attributes:i4 Remove:S255 \
        ActionProperty:s72
    row "$code" 0.0.0 "$version" "" $UPGRADE_FROM_BELOW "" OLDERISTHERE
    row "$code" "$version" "" "" $UPGRADE_DETECTS_ONLY "" NEWERISTHERE
}

write_conditions() {
    table LaunchCondition 1 Condition:s255 Description:l255
    row "Installed OR NOT NEWERISTHERE" \
        "A newer version of [ProductName] is installed already. Remove it first if you want version $version."
    row "Installed OR VersionNT >= 603" "[ProductName] needs Windows 10 or later."
    if [ "$kind" = "machine x86" ]; then
        row "Installed OR NOT VersionNT64" \
            "This package is for 32-bit Windows. On this computer use VexaPPE-$version.msi: it serves 64-bit and 32-bit Outlook."
    fi
}

write_folders() {
    local bitness
    table Directory 1 Directory:s72 Directory_Parent:S72 DefaultDir:l255
    row TARGETDIR "" SourceDir
    for bitness in "${bitnesses[@]}"; do folders_of "$bitness"; done
    if [ "$scope" = user ]; then
        row LocalAppDataFolder TARGETDIR .
        row userPrograms LocalAppDataFolder Programs
        row userMaker userPrograms "$MAKER"
        row userProduct userMaker "QUILLM~1|Quillmark"
    fi
}

folders_of() {
    case $scope-$1 in
        user-*) row "folder_$1" userProduct "$1" ;;
        machine-x64)
            row ProgramFiles64Folder TARGETDIR .
            row maker_x64 ProgramFiles64Folder "$MAKER"
            row folder_x64 maker_x64 "QUILLM~1|Quillmark"
            ;;
        machine-x86)
            row ProgramFilesFolder TARGETDIR .
            row maker_x86 ProgramFilesFolder "$MAKER"
            row folder_x86 maker_x86 "QUILLM~1|Quillmark"
            ;;
    esac
    row "log_$1" "folder_$1" Log
}

# --- Its components -----------------------------------------------------------------------------------------------

write_content() {
    table Feature 1 Feature:s38 Feature_Parent:S38 Title:L64 Description:L255 Display:I2 Level:i2 Directory_:S72 \
        Attributes:i2
    row page "" "$PRODUCT" "" 1 1 "" 0
    table CreateFolder 2 Directory_:s72 Component_:s72
    table FeatureComponents 2 Feature_:s38 Component_:s72
    table Component 1 Component:s72 ComponentId:S38 Directory_:s72 Attributes:i2 Condition:S255 KeyPath:S72
    table File 1 File:s72 Component_:s72 FileName:l255 FileSize:i4 Version:S72 Language:S20 Attributes:I2 Sequence:i2
    table RemoveFile 1 FileKey:s72 Component_:s72 FileName:L255 DirProperty:s72 InstallMode:i2
    table Registry 1 Registry:s72 Root:i2 Key:l255 Name:L255 Value:L0 Component_:s72
    local bitness registry_rows=0
    for bitness in "${bitnesses[@]}"; do add_bitness "$bitness"; done
    table Media 1 DiskId:i2 LastSequence:i2 DiskPrompt:L64 Cabinet:S255 VolumeLabel:S32 Source:S72
    row 1 ${#cabinet_files[@]} "" "#files.cab" "" ""
}

to() { table_file=$tables/$1.idt; }

add_bitness() {
    local bitness=$1 control=control_$1 attributes=0 key first_common
    [ "$bitness" = x86 ] || attributes=$COMPONENT_IS_64_BIT
    first_common=row_$((registry_rows + $("$rows" "$(platform_of "$bitness")" x | grep -c '^apart')))
    key=$control
    # For one user a component is known by a registry row, not by a file.
    if [ "$scope" = user ]; then
        key=row_$registry_rows
        attributes=$((attributes + COMPONENT_KEY_IS_REGISTRY))
    fi
    add_component "$control" "$(guid "control $scope $bitness")" "$bitness" $attributes "$key"
    add_file "$control" "$control" VexaPPE.ocx "VexaPPE-$bitness.ocx"
    add_file "notices_$bitness" "$control" "THIRD-~1.TXT|THIRD-PARTY-NOTICES.txt" notices.txt
    to RemoveFile
    row "log_file_$bitness" "$control" VexaPPE.log "log_$bitness" $ON_REMOVAL
    row "log_folder_$bitness" "$control" "" "log_$bitness" $ON_REMOVAL
    add_folders "$control"
    add_component "common_$bitness" "$(common_guid "$bitness")" "$bitness" "$(common_attributes "$bitness")" "$first_common"
    add_registry "$bitness"
}

platform_of() { case $1 in x64) echo win64 ;; x86) echo win32 ;; esac; }

# Whoever installs both bitnesses for one user has the rows that they share in both packages: one component, which goes
# with the last of them.
common_guid() { if [ "$scope" = user ]; then guid "common user"; else guid "common machine $1"; fi; }

common_attributes() {
    if [ "$scope-$1" = machine-x64 ]; then
        echo $((COMPONENT_IS_64_BIT + COMPONENT_KEY_IS_REGISTRY))
    else
        echo $COMPONENT_KEY_IS_REGISTRY
    fi
}

add_component() {
    to Component
    row "$1" "$2" "folder_$3" "$4" "" "$5"
    to FeatureComponents
    row page "$1"
}

# add_file KEY COMPONENT NAME STAGED
add_file() {
    local file_version="" language=""
    case $3 in *.ocx) file_version=$version.0 language=1033 ;; esac
    cabinet_files+=("$work/cabinet/$1")
    to File
    row "$1" "$2" "$3" "$(stat -c %s "$stage/$4")" "$file_version" "$language" "" ${#cabinet_files[@]}
    mkdir -p "$work/cabinet"
    cp --preserve=timestamps "$stage/$4" "$work/cabinet/$1"
}

# The folders that go with the control, from the inmost on.
add_folders() {
    local folder folders=("folder_$bitness" "maker_$bitness")
    [ "$scope" = machine ] || folders=("folder_$bitness" userProduct userMaker userPrograms)
    to CreateFolder
    for folder in "${folders[@]}"; do row "$folder" "$1"; done
}

add_registry() {
    local bitness=$1 sharing key name value root=$HKLM
    [ "$scope" = machine ] || root=$HKCU
    to Registry
    while IFS='|' read -r sharing key name value; do
        local component=control_$bitness
        [ "$sharing" = apart ] || component=common_$bitness
        # A row without a text stands for its key, which goes with the component.
        [ -n "$name$value" ] || name='*'
        row "row_$registry_rows" $root "$key" "$name" "$value" "$component"
        registry_rows=$((registry_rows + 1))
    done < <("$rows" "$(platform_of "$bitness")" "[#control_$bitness]")
}

# --- The package --------------------------------------------------------------------------------------------------

make_cabinet() {
    rm -f "$work/files.cab"
    gcab --create --zip --nopath "$work/files.cab" "${cabinet_files[@]}"
}

assemble() {
    local output=$1 platform=Intel name flags=2 code
    case " ${bitnesses[*]} " in *" x64 "*) platform=x64 ;; esac
    # Without elevation.
    [ "$scope" = machine ] || flags=10
    code=$(guid "package $(cat "$tables"/*.idt "$work/files.cab" | sha256sum)")
    table _SummaryInformation 1 PropertyId:i2 Value:l255
    row 1 1252
    row 2 "Installation Database"
    row 3 "$PRODUCT"
    row 4 "$MAKER"
    row 6 "Installs $PRODUCT $version"
    row 7 "$platform;1033"
    row 9 "$code"
    row 12 "$release_date 00:00:00"
    row 13 "$release_date 00:00:00"
    row 14 500
    row 15 $flags
    row 18 "VexaPPE"
    row 19 2
    (
        cd "$tables" || exit 1
        for name in *.idt; do msibuild "$output" -i "$name" || exit 1; done
        msibuild "$output" -a files.cab "$work/files.cab"
    )
}
