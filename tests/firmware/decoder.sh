#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# decoder.sh FOLDER: a public decoder reads the record of the lines; what it knows of the chips'
# protocol comes from nobody here. It knows four of the chips, and has the signature of a fifth wrong.
. "$(dirname "$0")/../board_programs.sh"

if ! command -v sigrok-cli >/dev/null; then
    echo 'Skipped: sigrok-cli is not installed'
    exit 77
fi
# ask BYTES COUNT: a command, and so many bytes of its reply.
ask() {
    printf "$1" >&3
    LC_ALL=C read -r -t 20 -N "$2" -u 3 _
}
count() { grep -c "$1" "$folder/words"; }
for part in AT90S{1200,2313,2323,2333,2343,4414,4433,8515,8535}; do
    start_board tolvex-firmware --device $part --vcd "$folder/record.vcd"
    exec 3<>"$folder/port"
    ask P 1
    ask s 3
    ask e 1
    ask 'l\xF9' 1
    ask L 1
    exec 3>&-
    end_board
    must "$part: the board ends in order" same $? 0
    sigrok-cli -I vcd:downsample=100 -i "$folder/record.vcd" -A avr_isp,uart=rx-data \
        -P spi:clk=SCK:mosi=MOSI:miso=MISO:cs=RESET:cs_polarity=active-low,avr_isp \
        -P uart:rx=RXD:baudrate=19200 >"$folder/words" 2>"$folder/error"
    case $part in *1200 | *2313 | *4414 | *8515) known=1 ;; *) known=0 ;; esac
    must "$part: enabled" test "$(count 'Programming enable')" -gt 0
    must "$part: identified" test $(($(count "Device: Atmel $part") > 0)) = $known
    must "$part: erased" test $(($(count 'Chip erase') > 0)) = $known
    [ $part = AT90S1200 ] && warned=1 || warned=0
    must "$part: warnings" test $(($(count Warning) > 0)) = $warned
    must "$part: the PC's bytes" test "$(count '^uart-1: 73$')" -gt 0
done
exit $faults
