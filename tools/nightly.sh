#!/usr/bin/env bash
# What takes too long for every change: a second compiler, the whole suite under the sanitizers, the
# launcher under valgrind while the end-to-end tests use it, and the fuzzers. An hour and a half, or more.
#
#   tools/nightly.sh [SECONDS]      for each fuzzer; 600 by default
#
# Exits with 0 only when nothing was found.
set -euo pipefail
# shellcheck source=tools/common.sh
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

# What measures time, traces or stops the launcher or breaks the disk says nothing under valgrind.
unsuited='*Stopped*:*Busy*:*AtOnce*:*Silent*:*Killed*:*InAHurry*:FaultTest.*:SystemCallTest.*'

# Runs the tests and what they start of ours. Its complaints begin with "==", and nothing else does.
under_valgrind() {
    local logs="$PWD/build/valgrind" program status=0
    rm -rf "$logs"
    mkdir -p "$logs"
    for program in e2e_tests settings_e2e_tests; do
        QUORVANTEL_TEST_SLOWNESS=10 valgrind --quiet --fair-sched=try --trace-children=yes \
            --trace-children-skip='/usr/*,/bin/*,*/prove' --log-file="$logs/%p.log" \
            --leak-check=full --show-leak-kinds=definite --suppressions=tests/valgrind.supp \
            "build/release/tests/$program" --gtest_filter="-$unsuited" </dev/null || status=1
    done
    if grep -H '^==' "$logs"/*.log; then
        status=1
    fi
    return "$status"
}

status=0
tools/install-packages.sh build run test develop
build clang ON all || status=1
tools/test.sh asan || status=1
tools/install-packages.sh build run test develop
build release ON all
echo "• Using the launcher under valgrind"
under_valgrind || status=1
tools/fuzz.sh "${1:-600}" || status=1
exit "$status"
