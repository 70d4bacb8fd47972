# Whether what "reg query" printed has, under $KEY, the value $NAME with the text $VALUE; without a text the key is enough.
BEGIN { line = "    " ENVIRON["NAME"] "    REG_SZ    " ENVIRON["VALUE"] }
/^HKEY_/ { here = (tolower($0) == tolower(ENVIRON["KEY"])); found = found || (here && ENVIRON["VALUE"] == "") }
here && $0 == line { found = 1 }
END { exit !found }
