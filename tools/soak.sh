#!/usr/bin/env bash
# Uses the launcher at random on an X server of its own, and checks at the end that the keyboard is
# free, the memory flat, every file whole, and the process alive and idle.
#
#   tools/soak.sh MINUTES [SEED]
set -euo pipefail
# shellcheck source=tools/common.sh
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

tools/install-packages.sh build run test
build release ON soak
exec build/release/bin/soak "$@"
