# The tour's desktop on X11: an X server without a screen, and openbox. To be sourced by the tour.
# shellcheck shell=bash disable=SC2154

panel=

start_display() {
    Xvfb -displayfd 3 -screen 0 1280x800x24 -dpi 96 -noreset -nolisten tcp \
        3>"$stage/display" 2>"$output/xserver.log" &
    processes+=($!)
    until_true "The X server does not start" test -s "$stage/display"
    DISPLAY=":$(<"$stage/display")"
    export DISPLAY

    XDG_DATA_DIRS=/usr/share openbox --sm-disable >"$output/openbox.log" 2>&1 &
    processes+=($!)
    until_true "The window manager does not start" window_manager_runs
    xsetroot -solid '#3b4252'
}

window_manager_runs() {
    xprop -root _NET_SUPPORTING_WM_CHECK | grep -q 'window id'
}

# Says how the launcher is summoned, which it has seen to itself.
bind_hotkey() {
    local line
    line="$(grep -m 1 '^Quorvantel: press ' "$output/launcher.log")" && say "    $line"
}

take_picture() {
    import -silent -window root "$1"
}

# press [alt] [super] KEY
press() {
    local IFS=+
    xdotool key "$*"
}

type_text() {
    xdotool type --delay 60 "$1"
}

# Sets `panel` to the launcher's visible window.
panel_is_shown() {
    panel="$(xdotool search --onlyvisible --pid "$launcher" 2>/dev/null | head -n 1)"
    [[ -n $panel ]]
}

panel_height() {
    xdotool getwindowgeometry --shell "$panel" | sed -n 's/^HEIGHT=//p'
}

panel_is_empty() {
    (($(panel_height) == 56))
}

panel_lists_results() {
    (($(panel_height) > 56))
}
