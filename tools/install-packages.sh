#!/usr/bin/env bash
# Installs the Debian packages that the project needs and that are missing.
#
#   tools/install-packages.sh [role...]      roles as in packaging/packages.txt; all when none
#
# Says and does nothing when all are there.
set -euo pipefail

list="$(dirname "${BASH_SOURCE[0]}")/../packaging/packages.txt"

wanted() {
    local package role
    while read -r package role _; do
        if [[ -z $package || $package == \#* ]]; then
            continue
        fi
        if (($# == 0)) || [[ " $* " == *" $role "* ]]; then
            echo "$package"
        fi
    done <"$list"
}

missing() {
    local installed package
    installed="$(dpkg-query -W -f='${db:Status-Status} ${Package}\n' "$@" 2>/dev/null || true)"
    for package; do
        if ! grep -q -x -F "installed $package" <<<"$installed"; then
            echo "$package"
        fi
    done
}

if ! command -v dpkg-query >/dev/null || ! command -v apt-get >/dev/null; then
    echo "This is no Debian system; install what $list names by other means." >&2
    exit 0
fi

mapfile -t wanted_packages < <(wanted "$@")
mapfile -t missing_packages < <(missing "${wanted_packages[@]}")
if ((${#missing_packages[@]} == 0)); then
    exit 0
fi

as_root=()
if ((EUID != 0)); then
    if ! command -v sudo >/dev/null; then
        echo "Packages are missing, and neither root nor sudo is here to install them:" >&2
        echo "  apt-get install ${missing_packages[*]}" >&2
        exit 1
    fi
    as_root=(sudo)
fi

echo "Installing ${missing_packages[*]}"
"${as_root[@]}" apt-get update -q -q
"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -q -q -y --no-install-recommends \
    "${missing_packages[@]}" </dev/null
