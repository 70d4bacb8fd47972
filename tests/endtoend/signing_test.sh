#!/usr/bin/env bash
# Signed packages: made with a certificate and a time-stamp authority of this test's own; a changed byte is found out.
source "$(dirname "$0")/lib.sh"
cd "$root"
keys=$work/keys
mkdir -p "$keys/cgi-bin"

# --- A certificate, and an authority for time stamps ---------------------------------------------------------------

# new_certificate NAME USE: signed by the authority "root".
new_certificate() {
    openssl req -newkey rsa:2048 -nodes -keyout "$keys/$1.key" -out "$keys/$1.csr" -subj "/CN=Test $1"
    printf 'extendedKeyUsage=critical,%s\nkeyUsage=digitalSignature\n' "$2" >"$keys/$1.ext"
    openssl x509 -req -in "$keys/$1.csr" -CA "$keys/root.pem" -CAkey "$keys/root.key" -CAcreateserial -days 30 \
        -extfile "$keys/$1.ext" -out "$keys/$1.pem"
}

make_certificates() {
    openssl req -x509 -newkey rsa:2048 -nodes -keyout "$keys/root.key" -out "$keys/root.pem" -days 30 -subj "/CN=Test root"
    new_certificate signer codeSigning
    new_certificate stamper timeStamping
    echo secret >"$keys/password"
    openssl pkcs12 -export -in "$keys/signer.pem" -inkey "$keys/signer.key" -certfile "$keys/root.pem" \
        -out "$keys/signer.p12" -passout "file:$keys/password"
}

# Answers requests for time stamps at http://127.0.0.1:$port/cgi-bin/stamp.
start_stamper() {
    cat >"$keys/stamper.conf" <<END
[tsa]
default_tsa = stamper
[stamper]
serial = $keys/serial
crypto_device = builtin
signer_cert = $keys/stamper.pem
signer_key = $keys/stamper.key
certs = $keys/root.pem
signer_digest = sha256
default_policy = 1.2.3.4.1
digests = sha256, sha384, sha512
ess_cert_id_chain = no
END
    echo 01 >"$keys/serial"
    cat >"$keys/cgi-bin/stamp" <<END
#!/bin/sh
printf 'Content-Type: application/timestamp-reply\r\n\r\n'
head -c "\$CONTENT_LENGTH" >"$keys/request"
openssl ts -reply -config "$keys/stamper.conf" -queryfile "$keys/request" 2>"$keys/stamper.log"
END
    chmod +x "$keys/cgi-bin/stamp"
    port=$((20000 + RANDOM % 20000))
    busybox httpd -f -p "127.0.0.1:$port" -h "$keys" &
    stamper=$!
    trap 'kill "$stamper" 2>/dev/null; end_test' EXIT
}

verify() { osslsigncode verify -CAfile "$keys/root.pem" -TSA-CAfile "$keys/root.pem" -in "$1"; }
is_stamped() { verify "$1" | grep -qi 'timestamp.*ok\|timestamp server signature verification: ok'; }
is_refused() { ! verify "$1"; }

# change_byte FILE: one byte in its middle.
change_byte() {
    local middle=$(($(stat -c %s "$1") / 2)) byte
    byte=$(dd if="$1" bs=1 skip=$middle count=1 status=none | od -An -tu1)
    printf "\\x$(printf %02x $(((byte + 1) % 256)))" | dd of="$1" bs=1 seek=$middle conv=notrunc status=none
}

check "a certificate is made" make_certificates
start_stamper
check "packages are made and signed" env SIGNING_PASSWORD_FILE="$keys/password" scripts/package --out "$work/signed" \
    --sign "$keys/signer.p12" --time-stamp-server "http://127.0.0.1:$port/cgi-bin/stamp"
version=$(scripts/version)
mkdir -p "$work/x64"
check "the archive opens" unzip -q "$work/signed/VexaPPE-$version-x64.zip" VexaPPE.ocx -d "$work/x64"
for file in "$work/signed"/*.msi "$work/x64/VexaPPE.ocx"; do
    name=$(basename "$file")
    check "$name is signed" verify "$file"
    check "$name bears a time stamp" is_stamped "$file"
    change_byte "$file"
    check "$name with one byte changed is found out" is_refused "$file"
done
check "an unsigned package is no signed one" is_refused build/windows-x64/VexaPPE.ocx
check "a wrong password is told" bash -c "! SIGNING_PASSWORD_FILE=/dev/null scripts/package --out '$work/wrong' --sign '$keys/signer.p12'"
finish
