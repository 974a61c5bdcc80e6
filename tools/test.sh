#!/usr/bin/env bash
# Builds the launcher and runs all tests; needs no display.
#
#   tools/test.sh [gnome] [release|debug|asan|asan-input] [option of ctest...]
#
# With "gnome" those in a real GNOME as well, whose packages are many.
# The last is the sanitizers for the layers alone that read what others wrote, in minutes. For example: tools/test.sh asan -R SearchEngine
set -euo pipefail
# shellcheck source=tools/common.sh
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

roles=(build run test)
if [[ ${1:-} == gnome ]]; then
    roles+=(gnome)
    configure_options+=(-DQUORVANTEL_GNOME_TESTS=ON)
    shift
fi
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

tools/install-packages.sh "${roles[@]}"
build "$preset" ON "$target"
echo "• Testing ($preset)"
exec ctest --preset "$preset" "$@" </dev/null
