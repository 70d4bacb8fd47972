# What is registered, held against the control's own table. Expects $work with the program registration_rows in it.
# shellcheck shell=bash disable=SC2154

# rows_are_in FILE ROOT PLATFORM CONTROL [PART]: what "reg query" printed holds every row of the table for the control
# in this place, below this root; with a part only the rows whose keys hold that.
rows_are_in() {
    local sharing key name value
    while IFS='|' read -r sharing key name value; do
        case $key in *"${5:-}"*) ;; *) continue ;; esac
        KEY="$2\\$key" NAME=${name:-(Default)} VALUE=$value awk -f tests/endtoend/registry_row.awk "$1" || {
            echo "missing ($sharing): $key, ${name:-(Default)} = $value"
            return 1
        }
    done < <("$work/registration_rows" "$3" "$4")
}
