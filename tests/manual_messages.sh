#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Both manuals tell of every message: of all texts in the sources where operations and file commands
# tell the user something.
set -euo pipefail
cd "$(dirname "$0")/.."
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cp translations/tolvex_en.ts "$folder"
tools/update-translations "$folder/tolvex_en.ts" link/writer_*.cpp \
    image/{buffer_patch,file_commands,listing_files}.cpp \
    device/{chip_operations,device_check,lock_fuse_bits,verify_chip}.cpp workbench/*.cpp \
    app/window_program.cpp >/dev/null

# The pieces of the texts between what is put in, one a line. The titles and filters of file dialogs
# are no messages, and nothing on the screen switches the LED.
pieces() {  # source or translation
    awk -v RS='</message>' -v tag="$1" '
        /<source>/ && !/\|\*|\(\*\.|ファイル ＆|>LED o/ {
            gsub(".*<" tag ">|</" tag ">.*", "")
            gsub(/<byte value="xd"\/>|%[0-9n]/, "\n")
            print
        }' "$folder/tolvex_en.ts" |
        sed 's/&lt;/</g; s/&gt;/>/g; s/&#x3000;/\xe3\x80\x80/g; s/&quot;/"/g; s/&apos;/\x27/g; s/&amp;/\&/g; /^ *$/d' | sort -u
}
faults=0
missing() {  # manual, source or translation
    while IFS= read -r piece; do
        grep -qF -- "$piece" "$1" || { echo "$1 does not tell of: $piece" >&2; faults=1; }
    done < <(pieces "$2")
}
missing docs/manual.md source
missing docs/manual.en.md translation
[ "$(pieces source | wc -l)" -gt 80 ] || { echo "few texts were found" >&2; faults=1; }
exit $faults
