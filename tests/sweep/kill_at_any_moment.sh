#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# kill_at_any_moment.sh BIN_FOLDER [TIMES]: SIGKILL at random moments of a start, of a settings
# write and of a read into files. Afterwards the settings and the files are whole, the old ones or
# the new ones, and the program starts again.
set -euo pipefail
bin=$1
times=${2:-20}
scratch=$(mktemp -d)
writer=
trap '[ -z "$writer" ] || kill "$writer"; rm -rf "$scratch"' EXIT
export XDG_CONFIG_HOME=$scratch XDG_RUNTIME_DIR=$scratch XDG_DATA_HOME=$scratch QT_QPA_PLATFORM=offscreen
chmod 700 "$scratch"
settings=$scratch/Tolvex/Tolvex.conf
mkdir -p "$scratch/Tolvex"
fail() { echo "kill_at_any_moment: $*" >&2; exit 1; }
# A whole file is one that a further key can be added to without losing one.
original='[Settings]
ComNox=1
Index_Com_Flag=1
Index_First_Flag=1
MainWidth=9000
device=0'
moment() { printf '0.%03d' $((RANDOM % $1)); }
killed() { wait "$1" 2>/dev/null && return 1 || [ $? = 137 ]; }

for ((i = 0; i < times; ++i)); do
    printf '%s\n' "$original" >"$settings"
    "$bin/tolvex" 2>/dev/null &
    program=$!
    sleep "$(moment 600)"
    kill -KILL "$program"
    killed "$program" || fail "the program was not there any more"
    for key in ComNox=1 Index_Com_Flag=1 Index_First_Flag=1 MainWidth=9000 device=0; do
        grep -qx "$key" "$settings" || fail "the settings lost $key"
    done
done
# The killed one's lock must not keep the next one out.
"$bin/tolvex" 2>/dev/null &
program=$!
sleep 2
kill -0 "$program" 2>/dev/null || fail "the program does not start again"
kill -TERM "$program"
wait "$program" || true

"$bin/tolvex-writer" --link "$scratch/board" --baud 0 >/dev/null &
writer=$!
sleep 0.5
"$bin/tolvex-cli" read "$scratch/new.hex" --port "$scratch/board" --device AT90S1200 --quiet
for ((i = 0; i < times; ++i)); do
    printf 'old\n' | tee "$scratch/out.hex" >"$scratch/out.eep"
    "$bin/tolvex-cli" read "$scratch/out.hex" --overwrite --port "$scratch/board" --device AT90S1200 --quiet &
    tool=$!
    sleep "1.$(moment 700 | cut -c3-)"
    kill -KILL "$tool" 2>/dev/null || true
    wait "$tool" 2>/dev/null || true
    for kind in hex eep; do
        printf 'old\n' | cmp -s - "$scratch/out.$kind" || cmp -s "$scratch/new.$kind" "$scratch/out.$kind" ||
            fail "out.$kind is neither the old nor the new file"
    done
done
echo "killed $((2 * times)) times: settings, files and lock were whole"
