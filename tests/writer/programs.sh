#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# programs.sh FOLDER: tolvex-cli in front of tolvex-writer, on a real pseudo-terminal.
. "$(dirname "$0")/../board_programs.sh"

state=(--device AT90S2313 --state "$folder/state" --baud 0)
holds() { [[ $1 = *$2* ]]; }
lacks() { ! holds "$@"; }
milliseconds() { echo $((${EPOCHREALTIME/[.,]/} / 1000)); }

# Signals end the tool in order. A second one waits for the orderly stop too; the third gives it up,
# of a board that hangs.
for signals in INT\ 2 TERM\ 1 HUP\ 1 INT\ 3; do
    read -r signal times <<<"$signals"
    start_board tolvex-writer --device AT90S2313 --log "$folder/log"
    # A script's & and nohup have a signal ignored, which is inherited.
    env --default-signal "$bin/tolvex-cli" --port "$folder/port" --device AT90S2313 \
        program samples/blink.hex >/dev/null 2>"$folder/error" &
    tool=$!
    until grep -q '^c ' "$folder/log" || ! kill -0 $tool; do sleep 0.001; done
    [ "$times" != 3 ] || kill -STOP "$board"
    began=$(milliseconds)
    for ((sent = 0; sent < times || times == 3; ++sent)); do
        kill -"$signal" $tool 2>/dev/null || break
        sleep 0.02  # signals that come together count once
    done
    wait $tool
    must "$signals: exit status" same $? $((128 + $(kill -l "$signal")))
    kill -CONT "$board"
    told=$'Interrupted.\nThe chip was erased.\nFlash: '
    if [ "$times" = 3 ]; then
        must "$signals: gives up" lacks "$(<"$folder/error")" "$told"
        # On a loaded machine the orderly stop may have got so far before the third.
        [ $(($(milliseconds) - began)) -gt 200 ] ||
            must "$signals: and the board heard nothing" lacks "$(tail -1 "$folder/log")" L
    else
        must "$signals: tells" holds "$(<"$folder/error")" "$told"
        must "$signals: leaves programming mode" same "$(tail -1 "$folder/log")" 'L -> 0D'
    fi
    end_board
done

# What the surroundings of a program can do to it.
start_board tolvex-writer --baud 0 --device AT90S2313
ends 0 'cli program samples/blink.hex && cli read $folder/r.hex && cli verify $folder/r.hex'
ends 0 'cli verify samples/blink.hex && test ! -e $XDG_CONFIG_HOME'
ends 4 'cli devices >/dev/full'
ends 4 'cli devices >&-'
ends 4 'cli --json --version >/dev/full'
ends 0 'cli --json detect 2>&- <&- | grep -q "\"exitStatus\":0"'
ends 4 'cli detect --trace /dev/full'
ends 0 '{ cli program samples/blink.hex; echo $? >$folder/status; } | head -1 && grep 4 $folder/status'
ends 0 'cat samples/blink.hex | cli program -'
ends 0 'cat samples/blink.hex | cli --quiet verify --only flash - >&- 2>&-'
ends 0 'cli read --only flash - 2>/dev/null | cli check -'
ends 0 'mkfifo $folder/f; cat samples/blink.eep >$folder/f & cli check $folder/f'
ends 2 'cli check $(printf "caf\351").hex'
ends 0 'flock $(readlink -f $folder/port) $bin/tolvex-cli --port $folder/port doctor | grep "^  kill "'
ends 1 'LC_ALL=C cli --quiet detect 2>&1 | grep Qt'
end_board

# Files of the other tools, and for them.
if command -v avr-gcc >/dev/null && command -v srec_cat >/dev/null; then
    cat >"$folder/t.c" <<'END'
__attribute__((section(".eeprom"))) char e[] = {1, 2};
volatile int d = 0x1234;
int main(void) { return d++; }
END
    avr-gcc -mmcu=at90s2313 "$folder/t.c" -o "$folder/t.elf"
    avr-objcopy -O ihex -R .eeprom "$folder/t.elf" "$folder/t.hex"
    avr-objcopy -O srec -R .eeprom "$folder/t.elf" "$folder/t.srec"
    srec_cat "$folder/t.hex" -intel -o "$folder/t.s19" -motorola
    start_board tolvex-writer --baud 0 --device AT90S2313
    ends 0 'cli program $folder/t.elf && cli verify $folder/t.elf | grep "t.elf (.eeprom)"'
    ends 0 'for f in hex srec s19; do cli verify --only flash $folder/t.$f || exit; done'
    ends 0 'cli read $folder/r.bin --format bin --overwrite && cli read --only flash - --format srec >$folder/r.s'
    ends 0 'avr-objcopy -I srec -O binary $folder/r.s $folder/b1 && cmp $folder/r.bin $folder/b1'
    ends 0 'srec_cat $folder/r.s -motorola -o $folder/b2 -binary && cmp $folder/r.bin $folder/b2'
    ends 2 'avr-gcc -c -mmcu=at90s2313 $folder/t.c -o $folder/t.o; cli program $folder/t.o'
    ends 2 'cli program $bin/tolvex-cli'
    end_board
fi

# Chips by the dozen: whatever is killed when, and with two tools at once, no number is given twice.
echo AT90S2313 "$folder/c0" >"$folder/socket"
cp samples/blink.hex "$folder/b.hex"
start_board tolvex-writer --baud 0 --socket "$folder/socket"
batch=(batch "$folder/b.hex" --count 1 --serial eeprom:0=text:%03d)
for ((chip = 1; chip <= 8; ++chip)); do
    echo AT90S2313 "$folder/c$chip" >"$folder/socket"
    # From before the number is taken to the middle of the work.
    (timeout -s KILL 1.$((chip + 1)) "$bin/tolvex-cli" --port "$folder/port" --device AT90S2313 \
        "${batch[@]}" --log "$folder/log.csv" || true) >/dev/null 2>&1
done
echo AT90S2313 "$folder/c9" >"$folder/socket"
ends 0 'cli "${batch[@]}" --log $folder/log.csv && grep "^20.*,OK," $folder/log.csv'
end_board
numbers=$(grep -ho '"eeprom": "[0-9A-F]\{6\}' "$folder"/c[1-9] | grep -v FFFFFF)
must 'every chip has a number of its own' same "$(sort -u <<<"$numbers")" "$(sort <<<"$numbers")"
must 'and the next one is new' test "$(<"$folder/b.serial")" -gt "$(wc -l <<<"$numbers")"

# The board keeps chip, log and link over hang-ups and runs.
# Bytes that a terminal would take for control characters or new lines.
printf ':100000000003040A0D1113151617191A1C7F80FF1F\r\n:00000001FF\r\n' >"$folder/raw.hex"
ln -s /dev/pts/99999 "$folder/port"  # left behind by a crash
start_board tolvex-writer --device AT90S2313
kill -KILL "$board"  # and a link to the terminal whose number mostly comes next
end_board await 2>/dev/null
echo mine >"$folder/port.new"
start_board tolvex-writer "${state[@]}" --fault 3:wrong --fault 12:hang-up --log "$folder/log"
terminal=$(sed 's/ready //' "$folder/ready")
must 'the link leads to the terminal' same "$(readlink "$folder/port")" "$terminal"
ends 1 'exec $bin/tolvex-writer --link $folder/port'
must 'a second board is refused' \
    same "$(<"$folder/error")" "tolvex-writer: $folder/port leads to $terminal already"
ends 0 'cli detect | grep ": ?.0"'
ends 0 'cli --json detect | grep lineLost'
must 'it is plugged in again' ready 2
ends 0 'cli program $folder/raw.hex'
must 'the log tells each command' same "$(head -5 "$folder/log")" \
    $'S -> 41 56 52 20 49 53 50\nV -> 33 39\nv -> 3F 30 (wrong)\nT 21 00 -> 0D\nP -> 0D'
must 'and the hang-up' holds "$(<"$folder/log")" $'\nP -> nothing (hang-up)\nS -> 41 '
end_board
must 'the board ends in order' same $? 0
must 'the link goes, another file stays' test ! -L "$folder/port" -a -s "$folder/port.new"
# 26 bytes of 33 ms each; and 7 replies that an adapter hands over every 100 ms.
for line in '300 0 900' '0 100 700'; do
    read -r baud latency least <<<"$line"
    start_board tolvex-writer "${state[@]:0:4}" --baud "$baud" --latency "$latency"
    start=$(milliseconds)
    ends 0 'cli detect'
    must "$line: takes its time" test $(($(milliseconds) - start)) -ge "$least"
    end_board
done
start_board tolvex-writer "${state[@]}"
ends 0 'cli verify $folder/raw.hex'  # the next run has the same chip
end_board

# The board plays what the tool has recorded, and ends with it.
start_board tolvex-writer --baud 0 --device AT90S2313
ends 0 'cli detect --trace $folder/trace'
end_board
start_board tolvex-writer --replay "$folder/trace"
ends 0 'cli detect'
end_board await
must 'the record is played to its end' same "$? $(<"$folder/board_error")" '0 '
start_board tolvex-writer --replay "$folder/trace"
ends 1 'cli --device AT90S1200 detect'
end_board await
must 'the PC has departed' same $? 1
must 'the board says where' holds "$(<"$folder/board_error")" 'the PC sent 11 instead of 21'

# The board ends at once when it can't work.
refuses() {
    ends "$1" "exec \$bin/tolvex-writer $2"
    must "$2: $3" holds "<$(<"$folder/error")" "<tolvex-writer: $3"
}
echo '{' >"$folder/damaged"
ln -s /dev/null "$folder/adapter"
refuses 2 '--baud x' '--baud is a number from 0 to 4000000'
refuses 2 '--fault 0:silent' '--fault is K:KIND, such as 3:silent, and not 0:silent'
refuses 2 '--empty --device 1' '--empty goes with neither --device nor --state'
refuses 2 '--log x --log y' '--log was given twice'
refuses 2 '--device 99' '--device: no such chip: 99'
refuses 2 blink.hex 'unknown argument: blink.hex'
refuses 1 '--device 8 --state $folder/state' "state file $folder/state holds another chip: AT90S2313"
refuses 1 '--state $folder/damaged' "state file $folder/damaged"
refuses 1 '--link $folder/damaged' "$folder/damaged is in the way: it is no symbolic link"
refuses 1 '--link $folder/adapter' "$folder/adapter leads to /dev/null already"
must "what wasn't understood is left alone" same "$(<"$folder/damaged")" '{'
must 'and so is a link to a device' same "$(readlink "$folder/adapter")" /dev/null
exit $faults
