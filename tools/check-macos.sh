#!/usr/bin/env bash
# Compiles everything of the macOS build, as CMake sees it, against the platform's headers; nothing
# is linked or run.
#
#   tools/check-macos.sh HEADERS              all files
#   tools/check-macos.sh HEADERS FILE...      these sources
#
# HEADERS is a folder with the platform's "Frameworks" and "include". The toolkit's headers, and the
# sources that its tools generate, are those of this system.
set -euo pipefail
# shellcheck source=tools/common.sh
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

if [[ ! -d ${1:-}/Frameworks ]]; then
    sed -n 's/^# \{0,1\}//; 2,9p' tools/check-macos.sh >&2
    exit 2
fi
headers=$(realpath "$1")
shift
out=$PWD/build/macos-headers

tools/install-packages.sh build macos
# Not from /usr/include, where this system's own headers are.
mkdir -p "$out/cmark-gfm"
ln -sf /usr/include/cmark-gfm*.h "$out/cmark-gfm/"
step "Configuring (macOS)" "$out/configure.log" \
    cmake -S . -B "$out" -G Ninja -DQUORVANTEL_WERROR=ON -DQUORVANTEL_PRECOMPILE=ON \
    -DCMAKE_TOOLCHAIN_FILE=cmake/MacOSHeaders.cmake -DMACOS_HEADERS="$headers" \
    -DCMARK_GFM_INCLUDE_DIR="$out/cmark-gfm"

if (($# > 0)); then
    # Ninja's name for what is made of a source.
    targets=()
    for source in "$@"; do
        targets+=("$(realpath "$source")^")
    done
else
    mapfile -t targets < <(ninja -C "$out" -t targets all | sed -n 's/^\([^:]*\.o\): .*/\1/p')
fi
echo "• Compiling ${#targets[@]} files (macOS)"
ninja -C "$out" -k 0 "${targets[@]}"
echo "✓ All of them compile for macOS"
