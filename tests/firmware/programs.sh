#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# programs.sh FOLDER: tolvex-cli in front of tolvex-firmware, on a real pseudo-terminal.
. "$(dirname "$0")/../board_programs.sh"

# The chip is kept, and the board ends when the firmware does something wrong: its SCK is too fast for
# a chip with so slow a clock.
for clock in 4000000 300000; do
    start_board tolvex-firmware --device AT90S2313 --state "$folder/$clock" --clock $clock
    [ $clock = 4000000 ] && status=0 || status=1
    for command in 'program samples/blink.hex' 'lock write'; do
        cli --quiet $command >/dev/null 2>"$folder/error"
        must "$clock Hz, $command" test $(($? != 0)) = $status
    done
    end_board "$([ $status = 0 ] || echo await)"
    must "$clock Hz: the board's end" same $? $status
    grep -q 'SCK is too fast' "$folder/board_error"
    must "$clock Hz: the reason" test $? != $status
    grep -q '"lock": "FD"' "$folder/$clock"
    must "$clock Hz: the chip is kept" same $? $status
    must "$clock Hz: the link is gone" test ! -e "$folder/port"
done
exit $faults
