# SPDX-License-Identifier: MIT
# shellcheck shell=bash
# Sourced by packaging/windows: tries what people get, under Wine, in front of simulated writers, which
# are programs of this machine. A trial ends at the first thing that is not as it should be, and the
# others go on.
# shellcheck disable=SC2154  # `build` and `in_wine` are the script's

refuse() { echo "   NOT AS IT SHOULD BE: $1" >&2; exit 1; }
seconds_since() { bc <<<"scale=2; ($EPOCHREALTIME - $1) / 1"; }

writer_pid=
start_writer() {  # program option...
    stop_writer
    rm -f "$build/com1" "$build/writer.log"
    "build/bin/$1" --link "$build/com1" --device AT90S2313 "${@:2}" >/dev/null &
    writer_pid=$!
    until [ -e "$build/com1" ]; do
        kill -0 "$writer_pid" || refuse "$1 does not start"
        sleep 0.1
    done
}
stop_writer() {
    [ -z "$writer_pid" ] || { kill "$writer_pid" && wait "$writer_pid"; } 2>/dev/null || true
    writer_pid=
}

# The terminal tool from the zip. `cli` sets `status` and leaves what was said in build-windows/said.
app=$build/zip/tolvex
start_cli() {
    exec 3>"$build/said"
    in_wine env "LD_PRELOAD=$build/serial_on_pty.so" wine "$app/tolvex-cli.exe" "$@" >&3 2>&3
}
cli() {
    status=0
    start_cli "$@" || status=$?
}
expect() {  # status words-that-were-said
    if [ "$status" -ne "$1" ] || ! grep -qF -- "$2" "$build/said"; then
        cat "$build/said"
        refuse "status $status instead of $1, or not said: $2"
    fi
}
port=(--port COM1 --device AT90S2313)

trial_chip() {  # program of the writer
    local began
    start_writer "$1"
    began=$EPOCHREALTIME
    cli "${port[@]}" program samples/blink.hex samples/blink.eep
    expect 0 ""
    echo "   program with verify: $(seconds_since "$began") s"
    cli "${port[@]}" verify samples/blink.hex samples/blink.eep
    expect 0 ""
    cli "${port[@]}" --json detect
    expect 0 '"exitStatus":0'
    rm -f "$build"/read.*
    cli "${port[@]}" read "$build/read.hex" "$build/read.eep"
    expect 0 ""
    build/bin/tolvex-cli --quiet --port "$build/com1" --device AT90S2313 verify "$build/read.hex" \
        "$build/read.eep" || refuse "another tool reads something else"
}
trial_simulated_writer() { trial_chip tolvex-writer; }
trial_firmware() { trial_chip tolvex-firmware; }

# Runs `program` on a slow line, and in the middle of it sends a signal to a process.
interrupt() {  # signal name-of-the-process
    local run began
    start_writer tolvex-writer --log "$build/writer.log" --baud 2400
    start_cli "${port[@]}" program samples/blink.hex &
    run=$!
    until grep -q '^c' "$build/writer.log" 2>/dev/null; do
        kill -0 "$run" 2>/dev/null || { cat "$build/said"; refuse "it ended too early"; }
        sleep 0.1
    done
    kill "-$1" "$(pgrep -f "$2" | tail -n 1)"
    began=$EPOCHREALTIME
    status=0
    wait "$run" || status=$?
    ended=$(seconds_since "$began")
    echo "   ended after $ended s with status $status"
}
trial_board_goes_away() {
    interrupt KILL "bin/tolvex-writer.*$build"
    expect 1 ""
    [ "$(bc <<<"$ended < 1.5")" = 1 ] || refuse "too late"
}
# Wine takes this signal to the process for Ctrl-C.
trial_ctrl_c() {
    interrupt INT 'tolvex-cli[.]exe'
    expect 130 ""
    tail -n 1 "$build/writer.log" | grep -q '^L' || refuse "programming mode was not left"
}

trial_ports() {
    start_writer tolvex-writer
    cli ports
    expect 0 "COM1"
    cli "${port[@]}" doctor
    cat "$build/said"
    expect 0 "COM1"
    cli --port COM9 --device AT90S2313 doctor
    cat "$build/said"
    expect 3 "COM9"
    ! grep -qE '/dev|usermod|ls -l' "$build/said" || refuse "advice for a Unix"
    cli --port COM9 --device AT90S2313 --json detect
    expect 3 '"code":"portMissing"'
}

trial_names() {
    local name folder
    start_writer tolvex-writer
    folder="$build/wine/drive_c/家 と 𠮷野家"
    mkdir -p "$folder"
    cp samples/blink.hex "$folder/ﾌﾟﾛｸﾞﾗﾑ 𠮷.hex"
    for name in 'C:\家 と 𠮷野家\ﾌﾟﾛｸﾞﾗﾑ 𠮷.hex' 'C:/家 と 𠮷野家/ﾌﾟﾛｸﾞﾗﾑ 𠮷.hex' \
        '\\?\C:\家 と 𠮷野家\ﾌﾟﾛｸﾞﾗﾑ 𠮷.hex'; do
        cli "${port[@]}" program "$name"
        expect 0 ""
    done
    cli "${port[@]}" --overwrite read 'C:\家 と 𠮷野家\読む 𠮷.hex'
    expect 0 ""
    grep -q $'\r$' "$folder/読む 𠮷.hex" || refuse "lines without CRLF"
}

# Without a window manager, which the window does not need. Pictures lie in build-windows.
start_display() {
    need_packages "to try the window" xvfb xdotool imagemagick
    export DISPLAY=:88
    rm -f /tmp/.X11-unix/X88 /tmp/.X88-lock
    Xvfb $DISPLAY -ac -screen 0 1024x768x24 -nolisten tcp >/dev/null 2>&1 &
    until [ -S /tmp/.X11-unix/X88 ]; do sleep 0.1; done
    in_wine wineserver -k || true  # the one that runs was started without a display
}
picture() { import -window root "$build/$1.png"; }
press() { xdotool mousemove "$1" "$2" click 1; }
home=$build/wine/drive_c/users/$(id -un)
settings=$home/AppData/Roaming/Tolvex/Tolvex.conf

# Opens the sample, programs and verifies it, and closes the window.
trial_window() {
    local second=0
    start_writer tolvex-writer --log "$build/writer.log"
    start_display
    rm -rf "$(dirname "$settings")" "$build/tolvex-$(id -un).lock"
    mkdir -p "$(dirname "$settings")"
    printf '[Settings]\nIndex_First_Flag=1\nIndex_Com_Flag=1\nComNox=1\ndevice=2\n' >"$settings"
    in_wine env "LD_PRELOAD=$build/serial_on_pty.so" "TOLVEX_FILE=Z:$PWD/samples/blink.hex" \
        wine "$app/tolvex.exe" &
    timeout 90 xdotool search --sync --onlyvisible --name '^Tolvex Version' >/dev/null ||
        refuse "no window"
    sleep 5
    picture opened
    [ -s "$app/avrhex.txt" ] || refuse "no listing beside the program"
    in_wine timeout 20 wine "$app/tolvex.exe" || second=$?
    [ $second -eq 0 ] || refuse "a second instance does not end"
    press 170 78
    sleep 8
    picture programmed
    xdotool key Escape
    press 260 78
    sleep 5
    picture verified
    xdotool key Escape
    in_wine wine taskkill /im tolvex.exe >/dev/null 2>&1
    sleep 3
    grep -q OPEN_DIR "$settings" || refuse "no settings in %APPDATA%"
    [ ! -e "$app/avrhex.txt" ] || refuse "the listing is left"
    build/bin/tolvex-cli --quiet --port "$build/com1" --device AT90S2313 verify samples/blink.hex ||
        refuse "the window did not program the chip"
}

unpack_zip() {
    rm -rf "$build/zip"
    mkdir -p "$build/zip"
    (cd "$build/zip" && cmake -E tar xf "$build"/tolvex-*-windows.zip)
    mv "$build"/zip/tolvex-*-windows "$app"
}

trial_installer() {
    local name installed="$home/AppData/Local/Programs/Tolvex"
    mkdir -p "$(dirname "$settings")"
    echo '[Settings]' >"$settings"
    in_wine wine "$build"/tolvex-*-windows.exe /S
    for name in tolvex.exe licences/LGPL-3.0-only.txt firmware/tolvex_writer.hex; do
        [ -s "$installed/$name" ] || refuse "not installed: $name"
    done
    find "$home" -name Tolvex.lnk | grep -q . || refuse "no menu entry"
    in_wine wine reg query 'HKCU\Software\Classes\.hex\OpenWithProgids' | grep -q Tolvex ||
        refuse "no file association"
    in_wine wine "$installed/tolvex-cli.exe" --version >"$build/said"
    status=0 expect 0 tolvex-cli
    in_wine wine "$installed/uninstall.exe" /S
    sleep 5
    [ ! -e "$installed" ] || refuse "left after uninstalling: $(find "$installed")"
    ! in_wine wine reg query 'HKCU\Software\Classes\Tolvex.Image' >/dev/null 2>&1 ||
        refuse "the file association is left"
    [ -s "$settings" ] || refuse "the settings are gone"
}

run_trials() {
    local name failed=()
    unpack_zip
    for name in ${TOLVEX_TRIALS:-simulated_writer firmware board_goes_away ctrl_c ports names window \
        installer}; do
        echo "-- $name"
        set +e  # only so does it still hold inside the trial
        (set -e; trap stop_writer EXIT; "trial_$name")
        # shellcheck disable=SC2181
        [ $? -eq 0 ] || failed+=("$name")
        set -e
    done
    [ ${#failed[@]} -eq 0 ] || fail "not as it should be: ${failed[*]}"
}
