#!/usr/bin/env bash
# Draws the launcher's views in all their states into docs/gallery/, and the pictures that the
# README and the help show. Needs no display.
#
#   tools/gallery.sh [scene...]        all scenes when none; gallery --list names them
set -euo pipefail
# shellcheck source=tools/common.sh
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

# publish SCENE FILE: gives a scene, if it was drawn, another place.
publish() {
    if [[ -e $drawn/$1@2x.png ]]; then
        mkdir -p "$(dirname "$2")"
        cp "$drawn/$1@2x.png" "$2"
    fi
}

tools/install-packages.sh build run test
build release ON gallery

drawn="$(mktemp -d)"
trap 'rm -rf "$drawn"' EXIT
echo "• Drawing"
build/release/bin/gallery "$drawn" "$@" >/dev/null

publish many-results-dark docs/images/panel.png
publish cutout-results resources/help/images/panel-results.png
publish settings-hotkey-light resources/help/images/settings-hotkey.png
publish settings-appearance-light resources/help/images/settings-appearance.png
publish cutout-empty resources/help/images/panel-empty.png
mkdir -p docs/gallery
rm -f "$drawn"/cutout-*
cp "$drawn"/*.png docs/gallery/
echo "✓ The pictures are in docs/gallery/"
