#!/usr/bin/env bash
# Makes the Debian package of what is committed and checks it with lintian; it lies in build/package/.
#
#   tools/package.sh           makes it
#   tools/package.sh --try     also installs it in a fresh root, uses it there under Xvfb and
#                              removes it; as root
set -euo pipefail
# shellcheck source=tools/common.sh
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

tools/install-packages.sh build package

# The build dependencies stand in debian/control and in packages.txt; they have to agree.
listed() { awk '!/^#/ && $2 == "build" && $1 != "g++" { print $1 }' packaging/packages.txt | sort; }
declared() {
    sed -n '/^Build-Depends:/,/^[A-Z]/p' debian/control |
        sed -n 's/^ \([a-z0-9.+-]*\).*/\1/p' | grep -v -x debhelper-compat | sort
}
if ! diff <(listed) <(declared); then
    echo "✗ debian/control and packaging/packages.txt disagree (< packages.txt, > control)" >&2
    exit 1
fi

out="$PWD/build/package"
version="$(dpkg-parsechangelog --show-field Version)"
source="$out/quorvantel-$version"
rm -rf "$out"
mkdir -p "$source"
git archive HEAD | tar -x -C "$source"

make_package() { (cd "$source" && dpkg-buildpackage --unsigned-source --unsigned-changes --build=binary); }
step "Making the package" "$out/build.log" make_package
step "Checking it with lintian" "$out/lintian.log" \
    lintian --pedantic --display-info --fail-on error,warning,info,pedantic --allow-root "$out/"quorvantel_*.changes
package="$(echo "$out/quorvantel_${version}_"*.deb)"
echo "✓ $package"
if [[ ${1:-} == --try ]]; then
    tools/try-package.sh "$package"
fi
