# SPDX-License-Identifier: MIT
# shellcheck shell=bash
# Sourced by run and test: installs what is missing on a Debian machine; elsewhere it names what is
# needed and stops.

need_packages() {  # reason package...
    local reason=$1 missing=() package
    shift
    if ! command -v dpkg-query >/dev/null; then
        if command -v cmake >/dev/null && command -v ninja >/dev/null; then
            return 0  # another system, prepared by hand
        fi
        echo "This is no Debian system. Please install, $reason, what Debian calls:" >&2
        printf '  %s\n' "$@" >&2
        exit 1
    fi
    for package in "$@"; do
        dpkg-query -W -f '${db:Status-Status}\n' "$package" 2>/dev/null | grep -qx installed ||
            missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] && return 0
    local as_root=()
    if [ "$(id -u)" -ne 0 ]; then
        if ! command -v sudo >/dev/null; then
            echo "Please install, $reason: ${missing[*]}" >&2
            exit 1
        fi
        as_root=(sudo)
    fi
    echo "Installing $reason: ${missing[*]}"
    "${as_root[@]}" apt-get update -qq
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive LC_ALL=C apt-get install -y -q \
        --no-install-recommends "${missing[@]}" | tell_progress
}

# On a fresh system the packages bring some hundred others.
tell_progress() {
    local line count=0
    while read -r line; do
        case $line in
            "Need to get "* | "Fetched "*) echo "  $line" ;;
            "Setting up "*)
                count=$((count + 1))
                [ $((count % 25)) -ne 0 ] || echo "  $count packages set up"
                ;;
        esac
    done
}

need_build_packages() {
    need_packages "to build Tolvex" \
        g++ cmake ninja-build qt6-base-dev qt6-serialport-dev qt6-svg-dev qt6-l10n-tools \
        libgl-dev libgtest-dev scdoc
    need_icon_plugin
}

# The plug-in that draws the icons is a package of its own since Debian 13.
need_icon_plugin() {
    local svg
    svg=$(dpkg-query -W -f '${Version}' libqt6svg6 2>/dev/null) || return 0
    ! dpkg --compare-versions "$svg" ge 6.7.2-5~ || need_packages "to draw the icons" qt6-svg-plugins
}

# For the firmware and its simulator; everything else builds without them.
need_firmware_packages() {
    need_packages "to build the firmware and to simulate it" \
        gcc-avr avr-libc libsimavr-dev libelf-dev
}

# A public decoder that reads what the simulated board does on its lines.
need_decoder_packages() {
    need_packages "to decode the lines of the simulated board" sigrok-cli libsigrokdecode4
}
