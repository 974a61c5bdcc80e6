#!/usr/bin/env bash
# Draws which target links which, from CMake's own graph, into docs/images/targets.svg.
set -euo pipefail
# shellcheck source=tools/common.sh
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

tools/install-packages.sh build develop
folder=build/graph
mkdir -p "$folder"
cp cmake/CMakeGraphVizOptions.cmake "$folder/"
step "Asking CMake for the targets" "$folder/configure.log" \
    cmake -S . -B "$folder" -G Ninja -DQUORVANTEL_TESTS=OFF -DQUORVANTEL_BENCHMARKS=OFF \
    --graphviz="$folder/targets.dot"
# Without CMake's legend, and without the lines that follow from others.
sed -e '/^subgraph clusterLegend/,/^}/d' -e 's/label = "quorvantel_/label = "/' \
    "$folder/targets.dot" | tred | dot -Tsvg -o docs/images/targets.svg
