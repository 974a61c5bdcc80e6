#!/usr/bin/env bash
# Formats the C++ sources under version control with clang-format.
#
#   tools/format.sh            rewrites them
#   tools/format.sh --check    changes nothing; fails when one is not formatted
set -euo pipefail
# shellcheck source=tools/common.sh
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

mode=(-i)
if [[ ${1:-} == --check ]]; then
    mode=(--dry-run --Werror)
fi

tools/install-packages.sh develop
git ls-files -z -- '*.cpp' '*.h' '*.mm' | xargs -0 --no-run-if-empty clang-format "${mode[@]}"
