#!/usr/bin/env bash
# Checks the product's C++ sources with clang-tidy and the scripts with shellcheck.
#
#   tools/lint.sh [file.cpp...]    the given sources; all when none
set -euo pipefail
# shellcheck source=tools/common.sh
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

tools/install-packages.sh build develop
# Generated sources have to be there for what includes them.
build release OFF all

sources=("$@")
if ((${#sources[@]} == 0)); then
    mapfile -t sources < <(git ls-files '*.cpp' | grep -v -E '^(tests|benchmarks|fuzz)/')
fi
status=0
shellcheck -x .ci/run tools/*.sh || status=1
printf '%s\0' "${sources[@]}" |
    xargs -0 -P "$(nproc)" -n 4 clang-tidy --quiet -p build/release || status=1
exit "$status"
