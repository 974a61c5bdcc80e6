#!/usr/bin/env bash
# Kills the stores and the settings at random moments of their saves, a thousand times each or as
# often as said, and checks after every kill that nothing saved is lost and no file is torn. The
# tests do the same a hundred times.
#
#   tools/torture.sh [KILLS]
set -euo pipefail
# shellcheck source=tools/common.sh
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

kills=${1:-1000}
tools/install-packages.sh build test
build release ON search_tests platform_linux_tests
for tests in search_tests platform_linux_tests; do
    step "Killing $kills saves in $tests" "build/torture/$tests.log" \
        env QUORVANTEL_KILLS="$kills" "build/release/tests/$tests" --gtest_filter='*.AKill*'
done
