#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Every text in the code has an English translation with the same placeholders, and nothing else stands
# in translations/.
set -euo pipefail
cd "$(dirname "$0")/.."
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cp translations/tolvex_en.ts "$folder"
tools/update-translations "$folder/tolvex_en.ts" >/dev/null

faults=0
texts() { grep -E '<(message|source)|unfinished' "$1"; }
diff <(texts translations/tolvex_en.ts) <(texts "$folder/tolvex_en.ts") || {
    echo "Not what the code says; tools/update-translations brings it up to date." >&2
    faults=1
}
# A plural has two forms, of which the one for 1 may do without the number.
awk -v RS='</message>' '
    function Fault(text) { print text ":" source; faults = 1 }
    /<source>/ {
        source = translation = $0
        gsub(/.*<source>|<\/source>.*/, "", source)
        gsub(/.*<translation[^>]*>|<\/translation>.*/, "", translation)
        count = split(translation, forms, "</numerusform>")
        last = count > 1 ? count - 1 : 1
        if (/unfinished/) { Fault("not translated") }
        for (form = 1; form <= last; ++form) {
            text = forms[form]
            gsub(/<numerusform>|[ \n]/, "", text)
            if (text == "") { Fault("no translation") }
            for (i = 0; i < 10; ++i) {
                place = i == 0 ? "%n" : "%" i
                inSource = index(source, place) > 0
                if (inSource != (index(forms[form], place) > 0) && !(i == 0 && form < last)) {
                    Fault(place " stands in one of the two")
                }
            }
        }
    }
    END { exit faults }' "$folder/tolvex_en.ts" >&2 || faults=1
exit $faults
