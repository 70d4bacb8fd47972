#!/usr/bin/env bash
# The RTF of a formatted report, written in a real window, read back by unrtf, a reader of another house.
source "$(dirname "$0")/lib.sh"
document=$work/report.html

wine_program "$programs/tests/endtoend/report_rtf_sample.exe" | tr -d '\r' >"$work/report.rtf"
# Line breaks mean nothing between the tags.
unrtf --html "$work/report.rtf" 2>/dev/null | tr -d '\n' >"$document"

found() {
    grep -Eqi -- "$1" "$document" && return
    cat "$document"
    return 1
}
# expect WHAT PATTERN: the document, read back, matches the extended regular expression.
expect() { check "$1" found "$2"; }

expect "bold survives" '<b>[^/]*strong'
expect "bold ends behind its word" 'strong(</font>)*</b>'
expect "italic survives" '<i>[^/]*slanted'
expect "underline survives" '<u>[^/]*lined'
expect "red survives" 'color="#ff0000">[^/]*scarlet'
expect "blue survives" 'color="#0000ff">[^/]*azure'
expect "the size survives" 'size="6">[^/]*large|font-size:24pt[^/]*large'
# The face that was set last before the word.
expect "the font survives" 'face="Tahoma">([^f]|f[^a]|fa[^c]|fac[^e])*upright'
expect "centring survives" '<center>[^/]*middle|align="center">[^/]*middle'
expect "right alignment survives" 'align="right">[^/]*flushright'
expect "a bullet survives" '(&middot;|&bull;|<li>|·|•)(&nbsp;| |<[^>]*>)*point'
expect "umlauts survive" '(ä|&auml;)(ö|&ouml;)(ü|&uuml;)(ß|&szlig;)'
expect "Greek survives" '(α|&alpha;|&#945;)(β|&beta;|&#946;)(γ|&gamma;|&#947;)'
expect "Cyrillic survives" '(ж|&#1078;)(з|&#1079;)(и|&#1080;)'
expect "CJK survives" '(中|&#20013;)(文|&#25991;)'
expect "an emoji survives" '😀|&#128512;|&#55357;&#56832;'
expect "braces and backslashes survive" 'signs \{\\\}'
finish
