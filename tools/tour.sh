#!/usr/bin/env bash
# Shows the launcher at work where there is no display: starts the real program on a desktop of its
# own, an X server or sway, and uses it with real key presses. Every step is checked by what it did;
# the first that did not do it ends the tour.
#
#   tools/tour.sh [x11|sway] [program]        build/release/bin/quorvantel on X11 by default
#
# Leaves pictures and a log in build/tour/x11/ or build/tour/sway/. Exits with 0 only when every step
# held.
set -euo pipefail
# shellcheck source=tools/common.sh
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

desktop=x11
if [[ ${1:-} == x11 || ${1:-} == sway ]]; then
    desktop=$1
    shift
fi
program="$(realpath "${1:-build/release/bin/quorvantel}")"
output="$PWD/build/tour/$desktop"
stage="$(mktemp -d)"
processes=()
launcher=
picture_number=0

# Ends what this script started, the last first, and nothing else.
clean_up() {
    local index
    for ((index = ${#processes[@]} - 1; index >= 0; index--)); do
        kill "${processes[index]}" 2>/dev/null || true
        wait "${processes[index]}" 2>/dev/null || true
    done
    rm -rf "$stage"
}
trap clean_up EXIT
trap 'exit 130' INT
trap 'exit 143' TERM HUP

say() {
    echo "$*" | tee -a "$output/tour.log"
}

fail() {
    say "✗ $*"
    if [[ -s $output/launcher.log ]]; then
        say "  The launcher printed:"
        sed 's/^/    /' "$output/launcher.log" | tee -a "$output/tour.log"
    fi
    exit 1
}

# until_true WHAT COMMAND...: waits for a condition, at most ten seconds.
until_true() {
    local what=$1 end=$((SECONDS + 10))
    shift
    until "$@"; do
        if ((SECONDS >= end)); then
            fail "$what"
        fi
        sleep 0.05
    done
}

picture() {
    picture_number=$((picture_number + 1))
    local file
    file="$output/$(printf '%02d' "$picture_number")-$1.png"
    # What was just changed is drawn a moment later.
    sleep 0.3
    take_picture "$file"
    say "    picture: ${file#"$PWD/"}"
}

start_desktop() {
    export HOME="$stage/home" XDG_RUNTIME_DIR="$stage/run"
    export XDG_DATA_HOME="$HOME/.local/share" XDG_CONFIG_HOME="$HOME/.config"
    export XDG_CACHE_HOME="$HOME/.cache" XDG_DATA_DIRS="$stage/share" LC_ALL=C.UTF-8
    unset DISPLAY WAYLAND_DISPLAY XDG_CURRENT_DESKTOP QT_QPA_PLATFORM
    mkdir -p "$XDG_DATA_HOME/applications" "$XDG_CONFIG_HOME" "$stage/proofs" "$XDG_DATA_DIRS"
    mkdir -m 700 "$XDG_RUNTIME_DIR"

    dbus-daemon --session --nofork --nopidfile --address="unix:dir=$XDG_RUNTIME_DIR" \
        --print-address=3 3>"$stage/bus" 2>"$output/bus.log" &
    processes+=($!)
    until_true "The session bus does not start" test -s "$stage/bus"
    DBUS_SESSION_BUS_ADDRESS="$(<"$stage/bus")"
    export DBUS_SESSION_BUS_ADDRESS
    start_display
}

# add_application ID NAME COLOUR: an application that proves each of its runs by a line in a file.
add_application() {
    local id=$1 name=$2 colour=$3 icon="$stage/$1.png"
    convert -size 64x64 "gradient:$colour-black" -resize 64x128\! -crop 64x64+0+0 +repage \
        -font /usr/share/fonts/truetype/dejavu/DejaVuSans-Bold.ttf -pointsize 40 -fill white \
        -gravity center -annotate +0+0 "${name:0:1}" "$icon"
    cat >"$XDG_DATA_HOME/applications/$id.desktop" <<END
[Desktop Entry]
Type=Application
Name=$name
Icon=$icon
Exec=$stage/prove $id
END
}

install_applications() {
    cat >"$stage/prove" <<'END'
#!/bin/sh
echo "$1 ran as process $$" >>"$(dirname "$0")/proofs/$1"
END
    chmod +x "$stage/prove"
    add_application calculator "Calculator" '#5e81ac'
    add_application castle-attack "Castle Attack" '#bf616a'
    add_application calendar "Calendar" '#d08770'
    add_application camera "Camera" '#a3be8c'
    add_application music "Music" '#b48ead'
    add_application photos "Photos" '#ebcb8b'
}

start_launcher() {
    : >"$output/launcher.log"
    "$program" 2>>"$output/launcher.log" &
    launcher=$!
    processes+=("$launcher")
    until_true "The launcher does not say how to summon it" bind_hotkey
}

stop_launcher() {
    kill "$launcher"
    wait "$launcher" || fail "The launcher ends with status $?"
    # The last that was started, and no longer there to be ended.
    unset 'processes[-1]'
}

runs_of() {
    if [[ -e $stage/proofs/$1 ]]; then
        wc -l <"$stage/proofs/$1"
    else
        echo 0
    fi
}

has_run_times() {
    (($(runs_of "$1") == $2))
}

panel_is_hidden() {
    ! panel_is_shown
}

summon() {
    press alt super space
    until_true "The hotkey does not summon the panel" panel_is_shown
    until_true "The panel does not start empty" panel_is_empty
    # The panel takes the keyboard right after it is shown.
    sleep 0.2
}

search() {
    type_text "$1"
    until_true "Typing '$1' lists nothing" panel_lists_results
}

# launches ID: presses Return and sees that this application runs, once more than before.
launches() {
    local before
    before="$(runs_of "$1")"
    press Return
    until_true "Return does not launch $1" has_run_times "$1" $((before + 1))
    until_true "The panel stays after a launch" panel_is_hidden
    say "    launched: $(tail -n 1 "$stage/proofs/$1")"
}

tour() {
    say "• Start the launcher"
    start_launcher
    panel_is_hidden || fail "The start shows a window"

    say "• Summon it by its hotkey"
    summon
    picture summoned

    say "• Type 'calc': Calculator is on top, Castle Attack below"
    search calc
    picture search
    say "• Return launches Calculator"
    launches calculator

    say "• Summon it again, move the selection down, launch Castle Attack"
    summon
    search calc
    press Down
    picture second-result
    launches castle-attack
    say "• Once more: it is still the second"
    summon
    search calc
    press Down
    launches castle-attack

    say "• It has learned: 'calc' now finds Castle Attack first"
    summon
    search calc
    picture learned
    launches castle-attack

    say "• Escape dismisses the panel"
    summon
    search ca
    picture other-search
    press Escape
    until_true "Escape does not dismiss the panel" panel_is_hidden
    picture dismissed

    say "• Restart it: what it learned is still there"
    stop_launcher
    start_launcher
    summon
    search calc
    picture after-restart
    launches castle-attack
    has_run_times calculator 1 || fail "Calculator ran $(runs_of calculator) times, not once"

    say "• End it"
    stop_launcher
    say "✓ Every step held. The pictures are in ${output#"$PWD/"}/"
}

[[ -x $program ]] || {
    echo "There is no program at $program" >&2
    exit 1
}
# shellcheck source=tools/tour/x11.sh
source "tools/tour/$desktop.sh"
rm -rf "$output"
mkdir -p "$output"
start_desktop
install_applications
tour
