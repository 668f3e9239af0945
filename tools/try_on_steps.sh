#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Inside the fresh root of tools/try-on: every step ends at the first thing that is not as it
# should be, and the others go on. It runs as root; `someone` is an ordinary user who may use sudo.
set -euo pipefail
cd "$(dirname "$0")/.."
person=someone
home=/home/$person

step() { printf '\n== %s (%s)\n' "$1" "$(date +%T)"; }
fail() { echo "try-on: $1" >&2; exit 1; }
install_quietly() {
    ls /var/lib/apt/lists/*Packages* >/dev/null 2>&1 || apt-get update -qq
    DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "$@" >/dev/null
}
as_person() { sudo -u $person -H -- "$@"; }
until_true() {  # seconds command...
    local end=$((SECONDS + $1))
    shift
    until "$@"; do
        [ $SECONDS -lt $end ] || fail "did not happen: $*"
        sleep 0.2
    done
}
no_process() { ! pgrep '^tolvex' >/dev/null; }

# A display for `on_display`. Without a window manager, which the window does not need.
start_display() {
    [ ! -S /tmp/.X11-unix/X5 ] || return 0
    install_quietly xvfb xdotool
    Xvfb :5 -ac -screen 0 1024x768x24 -nolisten tcp >/dev/null 2>&1 &
    until_true 10 test -S /tmp/.X11-unix/X5
    as_person mkdir -m 700 /tmp/session
}
on_display() { as_person env DISPLAY=:5 XDG_RUNTIME_DIR=/tmp/session "$@"; }
# By its class: the title comes after the panel of a first start.
is_window() { DISPLAY=:5 xdotool search --onlyvisible --class '^tolvex$' >/dev/null 2>&1; }
window_appears() { until_true 30 is_window; }
end_programs() {
    pkill '^tolvex' || true
    until_true 10 no_process
}

a_person() {
    useradd -m -s /bin/bash $person
    echo "127.0.1.1 $(hostname)" >>/etc/hosts # sudo wants to know
    echo "$person ALL=(ALL) NOPASSWD: ALL" >/etc/sudoers.d/$person
    # Answers for the person, and no more packages than asked for.
    printf 'APT::Get::Assume-Yes "true";\nAPT::Install-Recommends "false";\n' \
        >/etc/apt/apt.conf.d/99try-on
}

run_as_root() {
    step "./run as root, on the terminal"
    ./run
    chown -R $person: .
}

# A block labelled sh, counted from 1, by the plainest shell.
sh_block() { awk -v n="$2" '/^```/ { inside = /^```sh$/; i += inside; next } inside && i == n' "$1"; }
run_block() {
    sh_block "$@" >/tmp/block
    as_person dash -e /tmp/block </dev/null
}

the_two_commands() {
    step "README's two commands as an ordinary user"
    run_block README.md 1
}

test_as_root() {
    step "./test as root"
    ./test
}

run_as_person() {
    step "./run as an ordinary user: terminal, dead display, no HOME, wrong use, window"
    as_person ./run --chip 8515
    as_person env DISPLAY=:987 ./run
    as_person env -u HOME ./run
    local status=0
    as_person ./run --chip || status=$?
    [ $status -eq 2 ] || fail "wrong use ended with $status"
    start_display
    on_display ./run --chip 8515 &
    local run=$!
    window_appears
    [ -L $home/.config/Tolvex/ports/com1 ] || fail "no writer at COM1"
    grep -qx device=8 $home/.config/Tolvex/Tolvex.conf || fail "another device is selected"
    pkill -TERM -f '^bash ./run' # ./run itself, not sudo
    wait $run || true
    until_true 10 no_process
    [ ! -L $home/.config/Tolvex/ports/com1 ] || fail "COM1 is still mapped"
    ! grep -q device=8 $home/.config/Tolvex/Tolvex.conf || fail "--chip's device stayed selected"
    rm -r $home/.config
}

# Only what needs quoting of its own: with an apostrophe in the path Ninja builds all anew each time.
build_with_apostrophe() {
    step "a folder with an apostrophe"
    as_person sh -ec "cp -r . \"$home/someone's\"
        cd \"$home/someone's\"
        rm -rf build*
        cmake --preset dev >/dev/null
        cmake --build build --target tolvex_companions tolvex_man tolvex_icon_sizes tolvex_icons
        rm -rf \"$home/someone's\""
}

install_it() {
    step "README's way to the package as an ordinary user"
    chown -R $person: .
    run_block README.md 2
    dpkg-deb --info build-release/tolvex_*.deb
    dpkg --verify tolvex
    cp build-release/tolvex_*.deb /tmp
}

check_files() {
    step "lintian, desktop entry, software catalogue, file types, udev"
    install_quietly lintian desktop-file-utils appstream shared-mime-info libglib2.0-bin udev
    as_person lintian --version
    as_person lintian --fail-on error,warning /tmp/tolvex_*.deb
    desktop-file-validate /usr/share/applications/tolvex.desktop
    appstreamcli validate --no-net /usr/share/metainfo/example.tolvex.Tolvex.metainfo.xml
    [ -f /usr/share/tolvex/tolvex_writer.hex ] || fail "the writer's firmware is missing"
    for suffix in hex rom eep; do
        cp samples/blink.hex $home/blink.$suffix
        gio info -a standard::content-type $home/blink.$suffix | grep -q 'application/x-intel-hex$' ||
            fail ".$suffix has no type"
        rm $home/blink.$suffix
    done
    head -c 4096 /dev/urandom >$home/game.rom
    ! gio info -a standard::content-type $home/game.rom | grep -q intel-hex ||
        fail "a .rom without HEX in it is taken for a HEX file"
    rm $home/game.rom
    ! udevadm verify --help >/dev/null 2>&1 || udevadm verify /usr/lib/udev/rules.d/70-tolvex.rules
}

# By the desktop entry's command, as a desktop fills it in.
use_the_window() {
    step "the window, by the desktop entry's command"
    start_display
    local command settings=$home/.config/Tolvex/Tolvex.conf
    command=$(sed -n '/^.Desktop Action/q; s/^Exec=//p' /usr/share/applications/tolvex.desktop)
    on_display sh -c "${command/\%f/}" 2>/tmp/said &
    window_appears
    end_programs
    [ ! -s /tmp/said ] || { cat /tmp/said; fail "the window said something on the terminal"; }
    find / -xdev -name libqsvgicon.so | grep -q . || fail "no plug-in for the icons"
    [ -n "$(fc-list :lang=ja)" ] || fail "no Japanese font"
    as_person sh -c "mkdir -p $home/.config/Tolvex
        printf '[Settings]\nIndex_First_Flag=1\nIndex_Com_Flag=1\n' >$settings
        cp samples/blink.hex samples/blink.eep $home"
    on_display sh -c "${command/\%f/$home/blink.hex}" &
    window_appears
    until_true 10 grep -q "OPEN_DIR=$home" $settings
    end_programs
}

use_the_terminal() {
    step "the terminal tools, as an ordinary user"
    cp samples/blink.hex samples/blink.eep $home
    as_person timeout 120 bash -c '
        set -e
        mkdir -p ~/.config/Tolvex/ports
        tolvex-writer --link ~/.config/Tolvex/ports/com1 --device AT90S2313 >~/ready &
        until [ -s ~/ready ]; do sleep 0.1; done
        cd
        rm -f read.* fault.trace
        tolvex-cli --port COM1 --device AT90S2313 --trace fault.trace program blink.hex
        tolvex-cli --port COM1 --device AT90S2313 read read.hex
        tolvex-cli --port COM1 --device AT90S2313 verify read.hex
        tolvex-cli --device AT90S2313 check read.hex read.eep
        tolvex-cli --port COM1 doctor
        kill %1; wait
        [ ! -e ~/.config/Tolvex/ports/com1 ]
        tolvex-writer --link ~/board --replay fault.trace >/dev/null &
        until [ -e ~/board ]; do sleep 0.1; done
        tolvex-cli --quiet --port ~/board --device AT90S2313 program blink.hex
        kill %1 2>/dev/null || true; wait
        rm -f ready read.* fault.trace'
    rm $home/blink.*
    for command in 'tolvex-cli --version' 'tolvex-writer --help'; do
        as_person env LANG=C sh -c "$command" >/dev/null 2>/tmp/said
        [ ! -s /tmp/said ] || { cat /tmp/said; fail "$command warns under LANG=C"; }
    done
}

read_the_pages() {
    step "manual pages and completion"
    install_quietly man-db bash-completion
    for page in tolvex tolvex-cli tolvex-writer; do
        as_person env MANWIDTH=80 MANROFFOPT=-ww man --warnings -P cat $page 2>/tmp/said >/tmp/page
        [ "$(wc -l </tmp/page)" -gt 20 ] || fail "no page $page"
        [ ! -s /tmp/said ] || { cat /tmp/said; fail "the page $page has faults"; }
    done
    completes 'tolvex-cli fuses CK' CKSEL=
    completes 'tolvex-cli fuses BODEN=' Enable
    completes 'tolvex-cli --device=AT90S44' AT90S4414
    completes 'tolvex-cli --device AT90S23' AT90S2313
    completes 'tolvex-cli ver' verify
    completes 'tolvex-writer --fir' --firmware
}

# What bash offers for a line contains a word.
completes() {  # line word
    as_person bash -c '
        . /usr/share/bash-completion/bash_completion
        COMP_LINE=$1 COMP_POINT=${#1} COMP_TYPE=9 COMP_KEY=9
        mapfile -t COMP_WORDS < <(grep -oE "=|[^ =]+" <<<"$1") # as readline cuts
        COMP_CWORD=$((${#COMP_WORDS[@]} - 1))
        program=${COMP_WORDS[0]}
        declare -F __load_completion >/dev/null && load=__load_completion || load=_comp_load
        $load "$program"
        function=$(complete -p "$program" | sed "s/.*-F \([^ ]*\).*/\1/")
        "$function" "$program" "${COMP_WORDS[COMP_CWORD]}" "${COMP_WORDS[COMP_CWORD - 1]}"
        printf "%s\n" "${COMPREPLY[@]}"' completion "$1" 2>/dev/null | grep -q "^ *$2" ||
        fail "\"$1\" is not completed by $2"
}

documents() {
    step "blocks labelled sh"
    local file n
    for file in *.md docs/*.md; do
        for ((n = 1; ; n++)); do
            sh_block "$file" $n >/tmp/block
            [ -s /tmp/block ] || break
            dash -n /tmp/block || fail "$file, block $n"
        done
    done
    for n in 1 2; do
        [ "$(sh_block README.md $n | sed 's/ *#.*//')" = "$(sh_block README.ja.md $n |
            sed 's/ *#.*//')" ] || fail "the two READMEs differ"
    done
}

purge_it() {
    step "purge"
    DEBIAN_FRONTEND=noninteractive apt-get purge -y -qq --autoremove tolvex >/dev/null
    local left
    left=$(find / -xdev -path "$PWD" -prune -o -path $home -prune -o -path /proc -prune -o \
        -path /tmp -prune -o -iname '*tolvex*' -print)
    [ -z "$left" ] || fail "purge leaves: $left"
    left=$(cd $home && find . -type f -newer /etc/sudoers.d/$person -not -path './.config/Tolvex/*' \
        -not -path './.local/share/Tolvex/*' -not -path './.cache/*')
    [ -z "$left" ] || fail "more than settings is left: $left"
    [ -f $home/.config/Tolvex/Tolvex.conf ] || fail "the settings are gone"
}

a_person
failed=()
for name in "$@"; do
    set +e  # only so does it still hold inside the step
    (set -e; "$name")
    [ $? -eq 0 ] || failed+=("$name")
    set -e
done
[ ${#failed[@]} -eq 0 ] || fail "not as it should be: ${failed[*]}"
step "all is as it should be"
