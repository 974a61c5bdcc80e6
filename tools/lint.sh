#!/usr/bin/env bash
# Checks the product's C++ sources with clang-tidy and the scripts with shellcheck.
#
#   tools/lint.sh [file.cpp...]        the given sources; all when none
#   tools/lint.sh --changed [COMMIT]   those that changed since the commit; without it, since the
#                                      branch main, or in the last commit when that is the branch
set -euo pipefail
# shellcheck source=tools/common.sh
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

tools/install-packages.sh build develop
# Generated sources have to be there for what includes them.
build release OFF all
# Clang cannot read the headers that GCC precompiled.
mkdir -p build/lint
sed -E 's| -Winvalid-pch -include [^ ]*/cmake_pch[.]hxx||g' build/release/compile_commands.json \
    >build/lint/compile_commands.json

# changed_sources [COMMIT]
changed_sources() {
    local base=${1:-}
    if [[ -z $base ]]; then
        base=$(git merge-base HEAD origin/main 2>/dev/null || git merge-base HEAD main 2>/dev/null || true)
    fi
    if [[ -z $base || $base == "$(git rev-parse HEAD)" ]]; then
        base=HEAD~1
    fi
    git diff --name-only --diff-filter=d "$base" -- '*.cpp'
}

linted() { grep -v -E '^(tests|benchmarks|fuzz)/' || true; }

sources=("$@")
if [[ ${1:-} == --changed ]]; then
    mapfile -t sources < <(changed_sources "${2:-}" | linted)
elif ((${#sources[@]} == 0)); then
    mapfile -t sources < <(git ls-files '*.cpp' | linted)
fi
status=0
shellcheck -x .ci/run tools/*.sh tools/tour/*.sh || status=1
if ((${#sources[@]} > 0)); then
    printf '%s\0' "${sources[@]}" |
        xargs -0 -P "$(nproc)" -n 4 clang-tidy --quiet -p build/lint || status=1
fi
exit "$status"
