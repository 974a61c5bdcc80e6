#!/usr/bin/env bash
# Builds the launcher and starts it. Without a display it gives a tour of it instead: on an X server
# of its own and in a sway of its own, with real key presses, leaving pictures in build/tour/.
#
#   tools/run.sh
set -euo pipefail
# shellcheck source=tools/common.sh
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

if [[ -n ${DISPLAY:-} || -n ${WAYLAND_DISPLAY:-} ]]; then
    tools/install-packages.sh build run
    build release OFF quorvantel
    exec build/release/bin/quorvantel
fi

echo "No display here, so this is a tour."
tools/install-packages.sh build run test
build release ON quorvantel wayland_input
tools/tour.sh x11
tools/tour.sh sway
