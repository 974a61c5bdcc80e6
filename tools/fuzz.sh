#!/usr/bin/env bash
# Builds the fuzzers and runs each of them for so many seconds, two at a time.
#
#   tools/fuzz.sh SECONDS [fuzzer...]      all fuzzers when none is named
#
# Each begins with its seeds and with what earlier runs found worth keeping, in build/fuzz/corpus/.
# Inputs that break something are left in build/fuzz/findings/; the exit status is then not 0.
set -euo pipefail
# shellcheck source=tools/common.sh
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

seconds="${1:?How many seconds?}"
shift
work="$PWD/build/fuzz"
findings="$work/findings"
stage="$(mktemp -d -p /dev/shm 2>/dev/null || mktemp -d)"
trap 'rm -rf "$stage"' EXIT

# seeds FUZZER: the folder of the inputs to begin with.
seeds() {
    case "$1" in
    DefaultsFuzzer | PropertyListFuzzer) echo fuzz/propertylists ;;
    DesktopEntryFuzzer) echo fuzz/entries ;;
    HelpManifestFuzzer | MarkdownFuzzer) echo resources/help ;;
    IconFuzzer) echo fuzz/icons ;;
    RankingStoreFuzzer) echo fuzz/stores ;;
    ScorerFuzzer) echo fuzz/names ;;
    *)
        echo "There is no fuzzer $1" >&2
        return 1
        ;;
    esac
}

# options FUZZER: its words to try, and its limits, where those of all do not suit it.
options() {
    case "$1" in
    DefaultsFuzzer | PropertyListFuzzer) echo -dict=fuzz/PropertyList.dict ;;
    DesktopEntryFuzzer | HelpManifestFuzzer | IconFuzzer | RankingStoreFuzzer)
        echo "-dict=fuzz/${1%Fuzzer}.dict"
        ;;
    ScorerFuzzer) echo -max_len=200 ;;
    esac
}

# run FUZZER: one line about it, and its whole log only for a finding.
run() {
    local name=$1 log="$work/logs/$1.log" seed option status=0
    seed="$(seeds "$name")"
    option="$(options "$name")"
    mkdir -p "$work/corpus/$name" "$work/logs" "$findings"
    # shellcheck disable=SC2086 # Without an option there is no argument.
    TMPDIR="$stage" "$work/fuzz/$name" -max_total_time="$seconds" -timeout=10 -max_len=4096 \
        -print_final_stats=1 -artifact_prefix="$findings/$name-" $option \
        "$work/corpus/$name" "$seed" >"$log" 2>&1 </dev/null || status=$?
    if ((status != 0)); then
        tail -n 60 "$log" >&2
        echo "✗ $name has a finding; its input is in build/fuzz/findings/. Run build/fuzz/fuzz/$name" \
            "with it, write a test that fails as it does, mend what it shows, keep the input as a" \
            "seed in $seed/." >&2
        return 1
    fi
    echo "✓ $name: $(sed -n 's/^stat::number_of_executed_units: *//p' "$log") inputs in" \
        "$seconds seconds"
}

tools/install-packages.sh build run develop
fuzzers=("$@")
if ((${#fuzzers[@]} == 0)); then
    fuzzers=(fuzz/*Fuzzer.cpp)
    fuzzers=("${fuzzers[@]#fuzz/}")
    fuzzers=("${fuzzers[@]%.cpp}")
fi
step "Configuring (fuzz)" "$work/configure.log" cmake --preset fuzz
step "Building (fuzz)" "$work/build.log" cmake --build --preset fuzz
echo "• Fuzzing"
processes=()
for name in "${fuzzers[@]}"; do
    while (($(jobs -rp | wc -l) >= 2)); do
        wait -n || true
    done
    run "$name" &
    processes+=($!)
done
status=0
for process in "${processes[@]}"; do
    wait "$process" || status=1
done
exit "$status"
