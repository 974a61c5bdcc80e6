#!/usr/bin/env bash
# Asks whether the tests notice: changes one operator, condition, constant or call of a layer at a
# time, in a copy of the working tree, and runs that layer's tests on it, and those of the layers
# above when they do not notice.
#
#   tools/mutate.sh [-s SEED] [-a LOG] [LAYER[:COUNT]...]
#
# COUNT changes of each layer (20), chosen by SEED (1): whatever else changes in the tree, a seed
# chooses the same ones. With LOG, what an earlier run wrote, only those again that survived it. The
# sample that CONTRIBUTING.md gives the result of when no layer is named. For example:
# tools/mutate.sh -s 2 search:30 catalogue
#
# Says of each change, by its line afterwards, whether the tests killed it or it survived, which means
# that a test is missing, that the code is not needed, or that both do the same. The last are in
# tools/mutate-equivalent.txt, with the reason, and do not count; nor do those that do not compile.
set -euo pipefail
# shellcheck source=tools/common.sh
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

seed=1
earlier=
while getopts s:a: option; do
    case $option in
    s) seed=$OPTARG ;;
    a) earlier=$OPTARG ;;
    *) exit 2 ;;
    esac
done
shift $((OPTIND - 1))
layers=("$@")
if ((${#layers[@]} == 0)); then
    layers=(search:24 catalogue:12 panel:15 hotkey:12 theme:10 shell:9 settings:13 platform:9
        keyboard:4 gui:4 x11:3)
fi

work="$PWD/build/mutation"
tree="$work/tree"
# Where the build preset has it in the copy, so that what ccache has of the working tree fits.
build="$tree/build/release"
equivalent=tools/mutate-equivalent.txt
# Of the layers above, those whose tests need neither a display server nor minutes.
above=(resources drawing theme hotkey preferences settings panel help shell portal session shortcuts)

# The sources of a layer. Of the platform only what decides: a change to what writes files or starts
# programs might do either elsewhere.
sources() {
    case $1 in
    platform)
        printf 'platform/linux/%s.cpp\n' DesktopEntry KeyedColorArchive LaunchReport PropertyList \
            PropertyListGuard SettingsPanelTable TypedNames
        ;;
    keyboard) git ls-files 'platform/linux/keyboard/*.cpp' ;;
    gui) printf 'platform/linux/gui/%s.cpp\n' DrawingCost IconGate SvgGuard ;;
    x11) printf 'platform/linux/x11/%s.cpp\n' GrabRetry KeyFate Strut ;;
    *) git ls-files "Quorvantel/$1/*.cpp" ;;
    esac
}

# Every change of the given sources, one a line, its fields apart by the unit separator: file, line,
# column, the old text, the new one, the whole line.
changes() {
    perl -ne '
        BEGIN {
            @swaps = ([" == ", " != "], [" != ", " == "], [" < ", " <= "], [" <= ", " < "],
                [" > ", " >= "], [" >= ", " > "], [" && ", " || "], [" || ", " && "],
                [" + ", " - "], [" - ", " + "], [" * ", " / "], [" / ", " * "], [" % ", " * "],
                ["++", "--"], ["--", "++"], [" += ", " -= "], [" -= ", " += "],
                ["true", "false"], ["false", "true"]);
        }
        sub change { print join("\x1f", $ARGV, $., @_, $_), "\n" }
        chomp;
        my $code = $_;
        # Texts and comments blanked, so that columns stay.
        $code =~ s{("(?:[^"\\]|\\.)*"|\x27(?:[^\x27\\]|\\.)\x27)}{"_" x length $1}ge;
        $code =~ s{//.*}{};
        if ($code !~ /^\s*(#|namespace|using|template|static_assert|constexpr std::array)/) {
            for my $swap (@swaps) {
                my ($old, $new) = @$swap;
                for (my $at = 0; ($at = index($code, $old, $at)) >= 0; $at += length $old) {
                    next if $old =~ /^\w/ &&
                        ($at > 0 && substr($code, $at - 1, 1) =~ /\w/ ||
                         substr($code, $at + length $old, 1) =~ /\w/);
                    change($at, $old, $new);
                }
            }
            while ($code =~ /(?<![\w.\x27])(\d+)(?![\w.\x27])/g) {
                change($-[1], $1, $1 + 1);
            }
            if ($code =~ /\bif \(([^;{}]*)\) \{$/) {
                change($-[1], substr($_, $-[1], length $1), "!(" . substr($_, $-[1], length $1) . ")");
            }
            if ($code =~ /^ +((?:[\w.:]|->)+\(.*\));$/ && $code !~ /\breturn\b/) {
                change($-[1], substr($_, $-[1], length $1), "");
            }
        }
        close ARGV if eof;
    ' "$@"
}

# sample SEED: the lines of the input in an order of the seed's. A line's place among the others depends
# on nothing but its file, its text and its change.
sample() {
    perl -MDigest::MD5=md5_hex -ne 'BEGIN { $seed = shift @ARGV }
        my ($file, $line, @change) = split /\x1f/;
        print md5_hex(join "\x1f", $seed, $file, @change), "\t$_"' "$1" | sort | cut -f 2-
}

# changed AT OLD NEW CODE: the line after the change, without the spaces around it, or that it is gone.
changed() {
    perl -e '($at, $old, $new, $code) = @ARGV;
        print "without " if $new eq ""; substr($code, $at, length $old) = $new unless $new eq "";
        $code =~ s/^\s+|\s+$//g; print $code' "$@"
}

# apply FILE LINE COLUMN OLD NEW: makes the change in the copy.
apply() {
    perl -i -pe 'BEGIN { ($line, $at, $old, $new) = splice(@ARGV, 0, 4); }
        substr($_, $at, length $old) = $new if $. == $line' "$2" "$3" "$4" "$5" "$tree/$1"
}

# programs DIRECTORY...: the test programs of these directories of tests/.
programs() {
    local directory
    for directory; do
        sed -n '/compositor/d; s/^ *quorvantel_test(\([a-z0-9_]*\).*/\1/p' "tests/$directory/CMakeLists.txt"
    done
}

# run_tests PROGRAM: its tests, up to the first failure, in one process or, where they need it, each in
# one of its own.
run_tests() {
    if [[ -z ${apart[$1]:-} ]]; then
        "$build/tests/$1" --gtest_fail_fast
        return
    fi
    # shellcheck disable=SC2016 # The inner shell expands them.
    "$build/tests/$1" --gtest_list_tests | awk '/^[^ ]/ { suite = $1; next } { print suite $1 }' |
        xargs -I '{}' sh -c '"$1" --gtest_filter="$2" || exit 255' - "$build/tests/$1" '{}'
}

# passes PROGRAM: whether its tests pass. A failure counts when it is seen twice, lest the load of the
# machine passes for one.
passes() {
    local status
    for _ in 1 2; do
        status=0
        (
            # What goes astray is not to take the machine with it.
            ulimit -v 8000000 -c 0
            cd "$work/run"
            export build TMPDIR="$work/run" QUORVANTEL_KILLS=3
            timeout --kill-after=5 "$((20 + 4 * usual[$1]))" \
                bash -o pipefail -c "$(declare -f run_tests); $(declare -p apart); run_tests $1" \
                >"$work/test.log" 2>&1 </dev/null
        ) || status=$?
        find "$work/run" -mindepth 1 -delete
        if ((status == 0)); then
            return 0
        elif ((status == 124 || status == 137)); then
            return 1
        fi
    done
    return 1
}

# outcome LAYER: whether the tests of the layer and of those above it pass; 2 when they do not build.
outcome() {
    local program
    mapfile -t own < <(programs "$1")
    touch "$work/stamp"
    ninja -C "$build" "${own[@]}" >"$work/build.log" 2>&1 </dev/null || return 2
    for program in "${own[@]}"; do
        passes "$program" || return 1
    done
    mapfile -t others < <(programs "${above[@]}" | grep -v -x -F -f <(printf '%s\n' "${own[@]}"))
    ninja -C "$build" "${others[@]}" >"$work/build.log" 2>&1 </dev/null || return 2
    for program in "${others[@]}"; do
        # The others do not know the layer.
        if [[ $build/tests/$program -nt $work/stamp ]]; then
            passes "$program" || return 1
        fi
    done
}

# survivors LOG: the changes that survived, without the numbers of their lines.
survivors() { sed -n '/^  survived  /{ s///; s/:[0-9]*: /: /; p }' "$1"; }

mutate_layer() {
    local layer=$1 count=$2 killed=0 survived=0 same=0 result file line at old new code report
    if [[ -n $earlier ]]; then
        count=$(survivors "$earlier" | grep -c -F -f <(sources "$layer" | sed 's/$/: /') || true)
    fi
    while IFS=$'\x1f' read -r file line at old new code; do
        if ((killed + survived + same == count)); then
            break
        fi
        report="$file: $(changed "$at" "$old" "$new" "$code")"
        if grep -q -F -x "$report" <(sed 's/  # .*//' "$equivalent"); then
            same=$((same + 1))
            continue
        elif [[ -n $earlier ]] && ! survivors "$earlier" | grep -F -x -e "$report" >/dev/null; then
            continue
        fi
        cp "$tree/$file" "$work/original"
        apply "$file" "$line" "$at" "$old" "$new"
        result=0
        MUTANT=$file outcome "$layer" || result=$?
        cp "$work/original" "$tree/$file"
        case $result in
        0)
            survived=$((survived + 1))
            echo "  survived  $file:$line: ${report#*: }"
            ;;
        1)
            killed=$((killed + 1))
            echo "  killed    $file:$line: ${report#*: }"
            ;;
        esac
    done < <(mapfile -t files < <(sources "$layer") && changes "${files[@]}" | sample "$seed")
    echo "• $layer: $killed of $((killed + survived)) killed, $same more change nothing"
    total_killed=$((total_killed + killed))
    total=$((total + killed + survived))
}

tools/install-packages.sh build run test
mkdir -p "$tree" "$work/run"
# What is under version control, as it is now; unchanged files keep their times, and their objects.
while IFS= read -r -d '' file; do
    cmp -s "$file" "$tree/$file" || cp --parents "$file" "$tree"
done < <(git ls-files -z)
# The changed source alone is compiled anew: quickly, without a warning for an error, and so that what
# passes the end of a container is noticed.
cat >"$work/compile" <<'END'
#!/bin/sh
case "$*" in *"/${MUTANT:-none}"*) exec "$@" -O0 -g0 -w -D_GLIBCXX_ASSERTIONS ;; esac
if command -v ccache >/dev/null; then exec ccache "$@"; fi
exec "$@"
END
chmod +x "$work/compile"
step "Configuring" "$work/configure.log" cmake -S "$tree" -B "$build" -G Ninja \
    -DCMAKE_BUILD_TYPE=RelWithDebInfo -DCMAKE_EXPORT_COMPILE_COMMANDS=ON -DQUORVANTEL_WERROR=ON \
    -DQUORVANTEL_BENCHMARKS=OFF -DCMAKE_CXX_COMPILER_LAUNCHER="$work/compile" \
    -DCMAKE_EXE_LINKER_FLAGS='-fuse-ld=gold -Wl,--strip-debug' \
    -DCMAKE_GTEST_DISCOVER_TESTS_DISCOVERY_MODE=PRE_TEST
mapfile -t tests < <(programs "${above[@]}" "${layers[@]%:*}" | sort -u)
step "Building" "$work/build.log" ninja -C "$build" "${tests[@]}"
# The tests have to pass without any change, and tell how many seconds they take.
declare -A usual apart
for program in "${tests[@]}"; do
    usual[$program]=150
    start=$SECONDS
    if ! passes "$program"; then
        start=$SECONDS
        apart[$program]=1
    fi
    if [[ -n ${apart[$program]:-} ]] && ! passes "$program"; then
        cat "$work/test.log" >&2
        echo "✗ $program fails without any change" >&2
        exit 1
    fi
    usual[$program]=$((SECONDS - start))
done
total=0
total_killed=0
for layer in "${layers[@]}"; do
    count=${layer#*:}
    mutate_layer "${layer%:*}" "$([[ $layer == *:* ]] && echo "$count" || echo 20)"
done
echo "$total_killed of $total killed"
