# The program that tells the rows of the control's registration, made where it is needed: it takes a second.
# shellcheck shell=bash

# build_registration_rows PROGRAM
build_registration_rows() {
    c++ -std=c++20 -Wall -Wextra -Wconversion -Wold-style-cast -Werror -I . -I build/windows-x64/version \
        packaging/registration_rows.cpp -o "$1"
}
