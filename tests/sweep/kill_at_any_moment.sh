#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# kill_at_any_moment.sh BIN_FOLDER [TIMES]: SIGKILL at random moments of a start, of a settings
# write, of a read into files and of a backup. Afterwards the settings and the files are whole, the
# old ones or the new ones, and the program starts again.
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
killed() { wait "$1" 2>/dev/null && return 1 || [ $? = 137 ]; }
milliseconds() { echo $(($(date +%s%N) / 1000000)); }
pause() { sleep "$(printf '%d.%03d' $(($1 / 1000)) $(($1 % 1000)))"; }
settings_are_whole() {
    for line in ComNox=1 Index_Com_Flag=1 Index_First_Flag=1 'MainWidth=[0-9]*' device=0; do
        grep -qx "$line" "$settings" || fail "the settings lost $line"
    done
}

for ((i = 0; i < times; ++i)); do
    printf '%s\n' "$original" >"$settings"
    "$bin/tolvex" 2>/dev/null &
    program=$!
    pause $((RANDOM % 600))
    if ((i % 2)); then  # in the middle of writing the layout, if it has come so far
        kill -TERM "$program"
        pause $((RANDOM % 30))
        kill -KILL "$program" 2>/dev/null || true
        wait "$program" 2>/dev/null || true
    else
        kill -KILL "$program"
        killed "$program" || fail "the program was not there any more"
    fi
    settings_are_whole
done
# The killed one's lock must not keep the next one out.
"$bin/tolvex" 2>/dev/null &
program=$!
sleep 2
kill -0 "$program" 2>/dev/null || fail "the program does not start again"
kill -TERM "$program"
wait "$program" || true

"$bin/tolvex-writer" --link "$scratch/board" --device AT90S1200 --baud 0 >/dev/null &
writer=$!
sleep 0.5
chip=(--port "$scratch/board" --device AT90S1200 --quiet)
"$bin/tolvex-cli" read "$scratch/chip.hex" "${chip[@]}"
# Kills a run of the tool in its last tenth of a second, where it writes its files.
kill_late() {
    local started
    if [ "$longest" = 0 ]; then
        started=$(milliseconds)
        "$bin/tolvex-cli" "$@" "${chip[@]}"
        longest=$(($(milliseconds) - started))
    fi
    "$bin/tolvex-cli" "$@" "${chip[@]}" &
    tool=$!
    pause $((longest - RANDOM % 100))
    kill -KILL "$tool" 2>/dev/null || true
    wait "$tool" 2>/dev/null || true
}
longest=0
for ((i = 0; i < times; ++i)); do
    printf 'old\n' | tee "$scratch/out.hex" >"$scratch/out.eep"
    kill_late read "$scratch/out.hex" --overwrite
    for kind in hex eep; do
        printf 'old\n' | cmp -s - "$scratch/out.$kind" || cmp -s "$scratch/chip.$kind" "$scratch/out.$kind" ||
            fail "out.$kind is neither the old nor the new file"
    done
done
longest=0
for ((i = 0; i < times; ++i)); do
    rm -rf "$scratch/backup"
    kill_late erase --backup "$scratch/backup"
    for kind in hex eep; do
        for file in "$scratch/backup"/*."$kind"; do
            [ ! -e "$file" ] || cmp -s "$scratch/chip.$kind" "$file" || fail "half a backup: $file"
        done
    done
done
echo "killed $((3 * times)) times: settings, files, backups and lock were whole"
