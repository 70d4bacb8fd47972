# Identifiers that follow from a name: the same name gives the same identifier, at any time and on any machine.
# shellcheck shell=bash

# guid NAME
guid() {
    printf '{%s}' "$(uuidgen --sha1 --namespace 6d1f0e6c-3a0b-4f5e-9d4e-0b1c7a52c8f3 --name "$1" | tr '[:lower:]' '[:upper:]')"
}
