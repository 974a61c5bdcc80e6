#!/usr/bin/env bash
# Measures the launcher, with the peers that are installed beside it, and writes the tables of
# docs/performance.md. Best on a machine that does nothing else; about twenty minutes.
#
#   tools/bench.sh [--short] [search | scan | store | latency | wayland | start | memory]...
#
# All when none is named. --short measures a few rounds, which is good for no figure, and writes
# build/bench/performance.md in place of the document.
set -Eeuo pipefail
# shellcheck source=tools/common.sh
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

folder=build/bench
programs=build/release/bin
document=docs/performance.md
# The rounds and the uses; empty for what each program takes by itself.
rounds=()
uses=()
least_time=1
fzy_repetitions=100

# A line for each package that this machine's lists have: the name and what it is.
write_package_list() {
    apt-cache dumpavail | awk '
        /^Package: / { name = $2 }
        /^Description(-en)?: / { sub(/^[^:]*: /, "")
                                 if (!seen[name]++ && ++count <= 51000) print name, $0 }' \
        >"$folder/packages"
    local count
    count=$(wc -l <"$folder/packages")
    awk -v step="$((count / 300 + 1))" 'NR % step == 1' "$folder/packages" >"$folder/sample"
}

# google_benchmark PROGRAM [ARGUMENT...]: name,iterations,real_time,cpu_time,time_unit,...
google_benchmark() {
    local program=$1
    shift
    "$programs/$program" --benchmark_format=csv --benchmark_min_time="$least_time" "$@" \
        2>"$folder/log" </dev/null
}

# Milliseconds of processor time that fzy takes to rank the list for a query.
fzy_time() {
    local TIMEFORMAT='%U' once often
    once=$({ time fzy -j 1 -e "$1" --benchmark=1 <"$folder/packages" >/dev/null; } 2>&1 | tail -n 1)
    often=$({ time fzy -j 1 -e "$1" --benchmark="$((fzy_repetitions + 1))" \
        <"$folder/packages" >/dev/null; } 2>&1 | tail -n 1)
    awk -v once="$once" -v often="$often" -v count="$fzy_repetitions" \
        'BEGIN { printf "%.1f ms", (often - once) * 1000 / count }'
}

# list_row FILE QUERY: time, results and allocations of a keystroke, as cells of a table
list_row() {
    google_benchmark search_benchmark --benchmark_filter="^listKeystroke/$2\$" "$1" |
        awk -F, '
            /^name/ { for (i = 1; i <= NF; ++i) { gsub(/"/, "", $i); column[$i] = i } }
            /^"list/ { printf "%.0f µs | %d | %.0f |", $4, $column["results"],
                              $column["allocations"] }'
}

bench_search() {
    write_package_list
    echo "Names and descriptions of $(wc -l <"$folder/packages") Debian packages, one key each; processor time."
    echo
    echo "| Query | $(wc -l <"$folder/sample") of them | found | allocations | all | found | allocations | fzy, all |"
    echo "|---|--:|--:|--:|--:|--:|--:|--:|"
    local query peer sample all
    for query in f lo gim fire chrom vscode; do
        peer=–
        if command -v fzy >/dev/null; then
            peer=$(fzy_time "$query")
        fi
        sample=$(list_row "$folder/sample" "$query")
        all=$(list_row "$folder/packages" "$query")
        echo "| $query | $sample $all $peer |"
    done
    google_benchmark search_benchmark --benchmark_filter='^listReplacement$' "$folder/packages" |
        awk -F, '/^"list/ { printf "\nTo take in the whole list anew: %.0f ms.\n", $4 }'
    echo
    echo "| Generated catalogue | targets | processor time | found |"
    echo "|---|--:|--:|--:|"
    google_benchmark search_benchmark --benchmark_filter='^(keystroke|targetReplacement)' | awk -F, '
        /^name/ { for (i = 1; i <= NF; ++i) { gsub(/"/, "", $i); column[$i] = i } }
        /^"keystroke/ { gsub(/"/, ""); split($1, part, /[:\/]/)
                        printf "| letter %d | %d | %.0f µs | %d |\n", part[5], part[3], $4,
                               $column["results"] }
        /^"target/ { gsub(/"/, ""); split($1, part, ":")
                     printf "| new catalogue | %d | %.0f µs | |\n", part[2], $4 }'
}

bench_scan() {
    echo "| Entries | Processor time |"
    echo "|--:|--:|"
    LANG=de_DE.UTF-8 google_benchmark scan_benchmark |
        awk -F, '/^"scan/ { gsub(/"/, ""); split($1, part, "/")
                            printf "| %d | %.1f ms |\n", part[2], $4 }'
}

bench_store() {
    local launches="$folder/store"
    TMPDIR=/dev/shm google_benchmark store_benchmark >"$launches"
    echo "| Targets, ten learned queries each | A launch | of which the files | Reading both at the start |"
    echo "|--:|--:|--:|--:|"
    awk -F, '/^"/ { gsub(/"/, ""); split($1, part, /[:\/]/)
                    time[part[1], part[3]] = $4
                    if (part[1] == "launch") order[++count] = part[3] }
             END { for (i = 1; i <= count; ++i)
                       printf "| %d | %.2f ms | %.2f ms | %.1f ms |\n", order[i],
                              time["launch", order[i]], time["disk", order[i]],
                              time["start", order[i]] }' "$launches"
}

series_head() {
    echo "| $1 | Median | 95th percentile | Minimum | Maximum |"
    echo "|---|--:|--:|--:|--:|"
}

bench_latency() {
    series_head "From the deed to the first changed pixel"
    "$programs/latency_benchmark" "${rounds[@]}" 2>"$folder/log" </dev/null
}

bench_wayland() {
    series_head "From the start to the first frame's callback"
    "$programs/wayland_latency_benchmark" "${rounds[@]}" 2>"$folder/log" </dev/null
}
bench_start() {
    series_head "From the execution of the program"
    "$programs/start_benchmark" "${rounds[@]}" 2>"$folder/log" </dev/null
}

bench_memory() {
    echo "| Two hundred applications with icons | Resident | of its own |"
    echo "|---|--:|--:|"
    "$programs/memory_benchmark" "${uses[@]}" 2>"$folder/log" </dev/null
}

circumstances() {
    echo "$(date +'%-d %B %Y'), $(lscpu | sed -n 's/^Model name: *//p' | head -n 1)," \
        "$(nproc) processors, load $(cut -d ' ' -f 1 /proc/loadavg) before," \
        "$("${CXX:-c++}" --version | head -n 1), optimised build of $(git rev-parse --short HEAD)."
    echo
}

# fill_in SECTION FILE: puts a file between the section's markers in the document
fill_in() {
    local markers
    markers=$(grep -c -E "^<!-- (end of )?$1 -->\$" "$document" || true)
    if ((markers != 2)); then
        echo "✗ $document lacks the markers of $1" >&2
        return 1
    fi
    awk -v first="<!-- $1 -->" -v last="<!-- end of $1 -->" -v content="$2" '
        $0 == last { while ((getline line < content) > 0) print line; inside = 0 }
        !inside { print }
        $0 == first { inside = 1 }' "$document" >"$folder/filled"
    cp "$folder/filled" "$document"
}

mkdir -p "$folder"
trap 'cat "$folder/log" >&2' ERR
if [[ ${1:-} == --short ]]; then
    shift
    cp "$document" "$folder/performance.md"
    document=$folder/performance.md
    rounds=(3)
    uses=(5)
    least_time=0.01
    fzy_repetitions=3
fi
sections=("$@")
if ((${#sections[@]} == 0)); then
    sections=(search scan store latency wayland start memory)
fi

tools/install-packages.sh build run test bench
build release ON search_benchmark scan_benchmark store_benchmark latency_benchmark \
    wayland_latency_benchmark start_benchmark memory_benchmark
for section in "${sections[@]}"; do
    if [[ $(type -t "bench_$section") != function ]]; then
        echo "There is no section $section." >&2
        exit 2
    fi
    echo "• Measuring: $section"
    { circumstances; "bench_$section"; } >"$folder/$section.md"
    fill_in "$section" "$folder/$section.md"
done
echo "$document"
