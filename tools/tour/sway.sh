# The tour's desktop on Wayland: sway without a screen, and a keyboard that is a program of the
# tests'. To be sourced by the tour.
# shellcheck shell=bash disable=SC2154

# The kernel's codes.
declare -A key_codes=([alt]=56 [super]=125 [space]=57 [Return]=28 [Escape]=1 [Down]=108
    [a]=30 [c]=46 [l]=38)
keyboard="$(dirname "$program")/../tests/wayland_input"
# What the screen shows where the panel is not.
background=

# Sway refuses to run as root: the tour begins anew as nobody, in a folder that has all it needs.
if ((EUID == 0)); then
    mkdir "$stage/bin" "$stage/libexec" "$stage/tests"
    cp "$program" "$stage/bin/"
    cp -r "$(dirname "$program")/../libexec/quorvantel" "$stage/libexec/"
    cp "$keyboard" "$stage/tests/"
    cp -r tools "$stage/"
    chown -R nobody: "$stage"
    result=0
    setpriv --reuid=nobody --regid=nogroup --clear-groups \
        bash "$stage/tools/tour.sh" sway "$stage/bin/quorvantel" || result=$?
    rm -rf "$output"
    mkdir -p "$(dirname "$output")"
    cp -r "$stage/build/tour/sway" "$output"
    exit "$result"
fi

start_display() {
    export XDG_CURRENT_DESKTOP=sway SWAYSOCK="$XDG_RUNTIME_DIR/sway"
    cat >"$stage/sway.conf" <<'END'
xwayland disable
output * resolution 1280x800 background #3b4252 solid_color
END
    WLR_BACKENDS=headless WLR_LIBINPUT_NO_DEVICES=1 WLR_RENDERER=pixman XDG_DATA_DIRS=/usr/share \
        sway --config "$stage/sway.conf" >"$output/sway.log" 2>&1 &
    processes+=($!)
    export WAYLAND_DISPLAY=wayland-1
    until_true "Sway does not start" sway_answers
    coproc keys { exec "$keyboard"; }
    # shellcheck disable=SC2154
    processes+=("$keys_PID")
    await_keyboard
    # What draws the background is a program of its own.
    sleep 1
    background="$(pixel_at 200)"
}

sway_answers() {
    swaymsg -t get_version >"$stage/sway.answer" 2>&1
}

await_keyboard() {
    local answer
    if ! read -r -t 10 answer <&"${keys[0]}" || [[ $answer != "done" ]]; then
        fail "The keyboard does not work"
    fi
}

# Binds the key as the launcher asks the user to.
bind_hotkey() {
    local line
    line="$(grep -m 1 '^bindsym ' "$output/launcher.log")" && swaymsg -q "$line" && say "    $line"
}

take_picture() {
    grim "$1"
}

set_key() {
    echo "key ${key_codes[$1]} $2" >&"${keys[1]}"
    await_keyboard
}

# press [alt] [super] KEY
press() {
    local index
    for ((index = 1; index <= $#; index++)); do
        set_key "${!index}" 1
    done
    for ((index = $#; index >= 1; index--)); do
        set_key "${!index}" 0
    done
}

type_text() {
    local index
    for ((index = 0; index < ${#1}; index++)); do
        press "${1:index:1}"
        sleep 0.06
    done
}

# pixel_at Y: the colour that the screen shows there, just inside the panel's left edge.
pixel_at() {
    grim -t ppm -g "324,$1 1x1" - | tail -c 3 | od -An -tx1
}

panel_is_shown() {
    [[ $(pixel_at 170) != "$background" ]]
}

panel_is_empty() {
    ! panel_lists_results
}

# The panel is of one colour, and its list begins at 217.
panel_lists_results() {
    [[ $(pixel_at 250) == "$(pixel_at 170)" ]]
}
