#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Who may include what: the house as a stack, drawn as it stands. Build targets hold the rest (no
# widgets in what is no window) but not this: with one include root, any file finds any header.
set -euo pipefail
cd "$(dirname "$0")/.."

# From the ground up: a folder, and what it may include besides itself: folders that stand above it
# in this list, or single headers of them (the face of a folder that it must not know more of).
house='base
widgets
packaging/win32
writer              base/command_line_help.h base/language.h base/stop_signals.h base/system_cause.h base/text.h
platform            base
port                base
link                base widgets
image               base widgets
device              base widgets link/link.h image/image.h
workbench           base link image device
app                 base widgets platform port link image device workbench
cli                 base platform port link image device workbench
firmware/simulator  base/language.h base/system_cause.h base/text.h writer
tests/support       base link image device workbench writer
benchmark           base widgets platform port link image device workbench app cli writer firmware/simulator tests/support'

faults=0
fault() {
    echo "$*" >&2
    faults=1
}

standing=" "
while read -r folder below; do
    for floor in $below; do
        [[ $standing = *" ${floor%/*.h} "* ]] || fault "$folder stands on $floor"
    done
    standing+="$folder "
    seen=" "
    while IFS='"' read -r where included _; do
        to=${included%/*}
        [[ " $below " != *" $included "* ]] || to=$included
        [[ " $folder $below " = *" $to "* ]] || fault "${where%%:*} includes $included"
        [[ $to = "$folder" || $seen = *" $to "* ]] || seen+="$to "
    done < <(grep -sHE '^ *# *include *"' "$folder"/*.h "$folder"/*.cpp)
    printf '%-18s %s\n' "$folder" "$seen"
done <<<"$house"
while read -r folder; do
    [[ $standing = *" $folder "* ]] || fault "$folder is not in the list"
done < <(find . \( -path './build*' -o -path ./tests -o -path ./tools \) -prune -o -name '*.cpp' -printf '%h\n' |
    sort -u | cut -c3-)
exit $faults
