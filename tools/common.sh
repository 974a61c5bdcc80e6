# What the scripts share. To be sourced; changes into the project's folder.
# shellcheck shell=bash

cd "$(dirname "${BASH_SOURCE[0]}")/.." || exit

# step TITLE LOG COMMAND...: one line for a command whose output matters only when it fails.
step() {
    local title=$1 log=$2
    shift 2
    mkdir -p "$(dirname "$log")"
    echo "• $title"
    if ! "$@" >"$log" 2>&1 </dev/null; then
        cat "$log" >&2
        echo "✗ $title failed" >&2
        return 1
    fi
}

# What the caller of `build` wants configured besides.
configure_options=(-DQUORVANTEL_GNOME_TESTS=OFF)

# build PRESET TESTS TARGET...: configures and builds; TESTS is ON or OFF.
build() {
    local preset=$1 tests=$2
    shift 2
    step "Configuring ($preset)" "build/$preset/configure.log" \
        cmake --preset "$preset" -DQUORVANTEL_TESTS="$tests" -DQUORVANTEL_BENCHMARKS="$tests" \
        "${configure_options[@]}"
    step "Building ($preset)" "build/$preset/build.log" \
        cmake --build --preset "$preset" --target "$@"
}
