# Signs controls and packages, where a certificate is given.
# shellcheck shell=bash disable=SC2154

# sign FILE: in place. $certificate is a PKCS #12 file, whose password stands in the file $SIGNING_PASSWORD_FILE names;
# $time_stamp_server is the address of an RFC 3161 server. Does nothing without a certificate.
sign() {
    [ -n "$certificate" ] || return 0
    local password=()
    [ -z "${SIGNING_PASSWORD_FILE:-}" ] || password=(-readpass "$SIGNING_PASSWORD_FILE")
    osslsigncode sign -pkcs12 "$certificate" "${password[@]}" -h sha256 -n "Quillmark options page" \
        -ts "$time_stamp_server" -in "$1" -out "$1.signed" >"$work/sign.log" 2>&1 || {
        cat "$work/sign.log" >&2
        fail "$(basename "$1") cannot be signed"
    }
    mv "$1.signed" "$1"
}
