#!/usr/bin/env bash
# Asks whether the tests notice: changes one operator, condition, constant or call of a layer at a
# time, in a copy of the working tree, and runs that layer's tests on it.
#
#   tools/mutate.sh [-n COUNT] [-s SEED] LAYER...
#
# COUNT changes of each layer (20), chosen by SEED (1), which tells them apart from other runs. For
# example: tools/mutate.sh -n 30 search catalogue
#
# Says of each change whether the tests killed it or it survived, which means that a test is missing,
# that the code is not needed, or that both do the same. Those that do not compile do not count.
set -euo pipefail
# shellcheck source=tools/common.sh
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

count=20
seed=1
while getopts n:s: option; do
    case $option in
    n) count=$OPTARG ;;
    s) seed=$OPTARG ;;
    *) exit 2 ;;
    esac
done
shift $((OPTIND - 1))

tree="$PWD/build/mutation/tree"
build="$PWD/build/mutation/build"

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

# Every change of the given sources, one a line: file, line, column, the old text, the new one.
changes() {
    perl -ne '
        BEGIN {
            @swaps = ([" == ", " != "], [" != ", " == "], [" < ", " <= "], [" <= ", " < "],
                [" > ", " >= "], [" >= ", " > "], [" && ", " || "], [" || ", " && "],
                [" + ", " - "], [" - ", " + "], [" * ", " / "], [" / ", " * "], [" % ", " * "],
                ["++", "--"], ["--", "++"], [" += ", " -= "], [" -= ", " += "],
                ["true", "false"], ["false", "true"]);
        }
        sub change { print join("\t", $ARGV, $., @_), "\n" }
        my $code = $_;
        chomp $code;
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

# sample COUNT SEED: as many of the lines of the input, the same for the same seed.
sample() {
    perl -e 'my ($count, $seed) = splice(@ARGV, 0, 2); srand($seed); my @lines = <STDIN>;
        for my $i (reverse 1 .. $#lines) { my $j = int(rand($i + 1)); @lines[$i, $j] = @lines[$j, $i]; }
        print grep { defined } @lines[0 .. $count - 1]' "$@"
}

# apply FILE LINE COLUMN OLD NEW: makes the change in the copy.
apply() {
    perl -i -pe 'BEGIN { ($line, $at, $old, $new) = splice(@ARGV, 0, 4); }
        substr($_, $at, length $old) = $new if $. == $line' "$2" "$3" "$4" "$5" "$tree/$1"
}

# test_layer LAYER: whether its tests still build and pass; 2 when they do not build.
test_layer() {
    ninja -C "$build" "tests/$1/all" >build/mutation/build.log 2>&1 </dev/null || return 2
    HOME="$build/home" timeout 600 ctest --test-dir "$build/tests/$1" -j 2 --timeout 30 \
        --stop-on-failure >build/mutation/test.log 2>&1 </dev/null || return 1
}

described() { if [[ -n $1 ]]; then echo "[$1]"; else echo "nothing"; fi; }

mutate_layer() {
    local layer=$1 killed=0 survived=0 outcome file line column old new
    outcome=0
    test_layer "$layer" || outcome=$?
    if ((outcome != 0)); then
        cat build/mutation/build.log build/mutation/test.log >&2
        echo "✗ The tests of $layer fail without any change" >&2
        return 1
    fi
    while IFS=$'\t' read -r file line column old new; do
        apply "$file" "$line" "$column" "$old" "$new"
        outcome=0
        test_layer "$layer" || outcome=$?
        cp "$file" "$tree/$file"
        case $outcome in
        0)
            survived=$((survived + 1))
            echo "  survived  $file:$line: $(described "$old") becomes $(described "$new")"
            ;;
        1)
            killed=$((killed + 1))
            echo "  killed    $file:$line: $(described "$old") becomes $(described "$new")"
            ;;
        esac
        if ((killed + survived == count)); then
            break
        fi
    done < <(mapfile -t files < <(sources "$layer") && changes "${files[@]}" | sample $((count * 2)) "$seed")
    echo "• $layer: $killed of $((killed + survived)) killed"
}

tools/install-packages.sh build run test
mkdir -p "$tree" "$build/home"
# What is under version control, as it is now; unchanged files keep their times, and their objects.
while IFS= read -r -d '' file; do
    cmp -s "$file" "$tree/$file" || cp --parents "$file" "$tree"
done < <(git ls-files -z)
step "Configuring" build/mutation/configure.log cmake -S "$tree" -B "$build" -G Ninja \
    -DCMAKE_BUILD_TYPE=Debug -DQUORVANTEL_BENCHMARKS=OFF
for layer; do
    mutate_layer "$layer"
done
