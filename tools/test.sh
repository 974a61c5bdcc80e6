#!/usr/bin/env bash
# Builds the launcher and runs all tests; needs no display.
#
#   tools/test.sh [release|debug|asan|asan-input] [option of ctest...]
#
# The last is the sanitizers for the layers alone that read what others wrote, in minutes. For example: tools/test.sh asan -R SearchEngine
set -euo pipefail
# shellcheck source=tools/common.sh
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

preset=release
target=all
case "${1:-}" in
release | debug | asan)
    preset=$1
    shift
    ;;
asan-input)
    preset=$1
    target=input_tests
    shift
    ;;
esac

tools/install-packages.sh build run test
build "$preset" ON "$target"
echo "• Testing ($preset)"
exec ctest --preset "$preset" "$@" </dev/null
