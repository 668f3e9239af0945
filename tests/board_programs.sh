# SPDX-License-Identifier: MIT
# What the tests of the real programs share; for sourcing. $1 is the folder of the programs.
# Everything stands in $folder, with the board at $folder/port.
set -u
bin=$(realpath "$1")
cd "$(dirname "${BASH_SOURCE[0]}")/.."
folder=$(mktemp -d)
export XDG_CONFIG_HOME=$folder/config TOLVEX_LANGUAGE=en
board=
faults=0
trap '[ -z "$board" ] || kill -KILL "$board" 2>/dev/null; rm -rf "$folder"' EXIT

# must WHAT CONDITION...: tells a condition that doesn't hold, with the last errors of the programs.
must() {
    "${@:2}" && return
    echo "${BASH_SOURCE[1]##*/}:${BASH_LINENO[0]}: not so: $1" >&2
    cat "$folder"/*error >&2
    faults=1
}
same() { [ "$1" = "$2" ] || ! echo "  $1" >&2; }

# ready N: the board's N-th ready line has come. On a loaded machine that takes its time.
ready() {
    for ((wait = 0; wait < 2000; ++wait)); do
        [ "$(grep -cs '^ready /dev/' "$folder/ready")" != "$1" ] || return 0
        kill -0 "$board" 2>/dev/null || return 1
        sleep 0.01
    done
    return 1
}
# start_board PROGRAM OPTION...
start_board() {
    : >"$folder/ready"
    "$bin/$1" --link "$folder/port" "${@:2}" >"$folder/ready" 2>"$folder/board_error" &
    board=$!
    must "the board starts: $*" ready 1
}
# Ends the board, or awaits its end; its exit status.
end_board() {
    [ "${1-}" = await ] || kill "$board"
    wait "$board"
    local status=$?
    board=
    return $status
}
cli() { "$bin/tolvex-cli" --port "$folder/port" --device AT90S2313 "$@"; }
# ends STATUS SCRIPT: how a script ends; what it says on its error stream is kept.
ends() {
    (eval "$2") </dev/null >/dev/null 2>"$folder/error"
    must "$2 ends with $1" same $? "$1"
}
