#!/usr/bin/env bash
# Builds the launcher and runs all tests; needs no display.
#
#   tools/test.sh [release|debug|asan] [option of ctest...]
#
# For example: tools/test.sh asan -R SearchEngine
set -euo pipefail
# shellcheck source=tools/common.sh
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

preset=release
case "${1:-}" in
release | debug | asan)
    preset=$1
    shift
    ;;
esac

tools/install-packages.sh build run test
build "$preset" ON all
echo "• Testing ($preset)"
exec ctest --preset "$preset" "$@" </dev/null
