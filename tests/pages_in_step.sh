#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# A page in two languages has the same headings, table rows, pictures and examples in both, in the same
# order, and a manual page the same sections, terms and examples. What of them is code stands in both.
cd "$(dirname "$0")/.." || exit 1

skeleton() {
    awk '
        /^```/ { fenced = !fenced }
        fenced || /^    / || (/^\t/ && last == "") { gsub(/\047[^\047]*\047/, "TEXT"); print; next }
        /^#/ { print $1 }
        /^%%/
        /^!\[/ { sub(/.*\]/, "!"); print }
        /^\|/ { row = $0; sub(/^\| */, "", row); sub(/ *\|.*/, "", row)
                print row ~ /^(`[^`]*`(, )?)+$/ ? "| " row : "|" }
        /^\t/ && last ~ /^[*_]/ { print last }  # the term above its explanation
        { last = $0 }' "$1"
}

faults=0
for page in docs/*.ja.md docs/man/*.ja.scd; do
    diff <(skeleton "${page/.ja/}") <(skeleton "$page") || { echo "$page is out of step"; faults=1; }
done
# In the manual the codes are mostly what the windows show, in the language of the page.
outline() { skeleton "$1" | sed -n 's/^|.*/|/; /^[#|!`]/p'; }
for page in docs/*.en.md; do
    diff <(outline "${page/.en/}") <(outline "$page") || { echo "$page is out of step"; faults=1; }
done
exit $faults
