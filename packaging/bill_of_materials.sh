# The list of what is linked into the controls, as SPDX 2.3. Versions are those of the packages that this machine builds
# with.
# shellcheck shell=bash disable=SC2154

# write_bill_of_materials OUTPUT
write_bill_of_materials() {
    local gcc mingw
    gcc=$(package_version gcc-mingw-w64-x86-64-posix-runtime)
    mingw=$(package_version mingw-w64-x86-64-dev)
    {
        bill_head
        bill_package VexaPPE "$version" NOASSERTION Norvane ","
        bill_package libstdc++ "$gcc" "GPL-3.0-or-later WITH GCC-exception-3.1" "Free Software Foundation" ","
        bill_package libgcc "$gcc" "GPL-3.0-or-later WITH GCC-exception-3.1" "Free Software Foundation" ","
        bill_package libssp "$gcc" "GPL-3.0-or-later WITH GCC-exception-3.1" "Free Software Foundation" ","
        bill_package mingw-w64-crt "$mingw" ZPL-2.1 "mingw-w64 project" ","
        bill_package winpthreads "$mingw" "MIT AND BSD-3-Clause" "mingw-w64 project" ""
        printf '  ],\n  "relationships": [\n'
        bill_relation DOCUMENT DESCRIBES VexaPPE ","
        local part end=","
        for part in libstdc++ libgcc libssp mingw-w64-crt winpthreads; do
            [ "$part" != winpthreads ] || end=
            bill_relation VexaPPE STATIC_LINK "$part" "$end"
        done
        printf '  ]\n}\n'
    } >"$1"
}

package_version() { dpkg-query -W -f '${Version}' "$1"; }

bill_head() {
    cat <<END
{
  "spdxVersion": "SPDX-2.3",
  "dataLicense": "CC0-1.0",
  "SPDXID": "SPDXRef-DOCUMENT",
  "name": "VexaPPE-$version",
  "documentNamespace": "urn:uuid:$(guid "bill of materials $version $gcc $mingw" | tr -d '{}' | tr '[:upper:]' '[:lower:]')",
  "creationInfo": {"created": "${release_date//\//-}T00:00:00Z", "creators": ["Organization: Norvane"]},
  "packages": [
END
}

# bill_package NAME VERSION LICENCE SUPPLIER END
bill_package() {
    printf '    {"SPDXID": "SPDXRef-%s", "name": "%s", "versionInfo": "%s", "supplier": "Organization: %s",\n' \
        "$(reference "$1")" "$1" "$2" "$4"
    printf '     "licenseConcluded": "%s", "licenseDeclared": "%s", "copyrightText": "NOASSERTION",\n' "$3" "$3"
    printf '     "downloadLocation": "NOASSERTION", "filesAnalyzed": false}%s\n' "$5"
}

bill_relation() {
    printf '    {"spdxElementId": "SPDXRef-%s", "relationshipType": "%s", "relatedSpdxElement": "SPDXRef-%s"}%s\n' \
        "$(reference "$1")" "$2" "$(reference "$3")" "$4"
}

# An identifier holds letters, digits, points and hyphens alone.
reference() { printf '%s' "${1//+/p}"; }
