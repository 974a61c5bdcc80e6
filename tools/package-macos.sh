#!/usr/bin/env bash
# Makes a disk image with the launcher's bundle, the toolkit in it, signed ad hoc; it lies in
# build/package/. Takes a Mac.
#
#   tools/package-macos.sh
#
# Whoever gets the image from elsewhere has to allow the launcher in System Settings once: a signature
# that the system trusts by itself takes a certificate of its maker's.
set -euo pipefail
# shellcheck source=tools/common.sh
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

if [[ $(uname -s) != Darwin ]]; then
    echo "✗ A disk image can only be made on a Mac" >&2
    exit 1
fi

out=$PWD/build/package
contents=$out/contents
bundle=$contents/Quorvantel.app
version=$(sed -n 's/^project(Quorvantel VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
image=$out/Quorvantel-$version.dmg

# A newer compiler or toolkit may warn of something, which is nothing to whoever packages.
configure_options+=(-DQUORVANTEL_WERROR=OFF)
build release OFF all
rm -rf "$contents" "$image"
mkdir -p "$contents"
step "Putting the bundle together" "$out/install.log" \
    cmake --install build/release --prefix "$contents"
# From within outwards, as a signature covers what is inside. Copying the toolkit has spoilt that of
# its libraries.
step "Signing it" "$out/sign.log" codesign --force --deep --sign - "$bundle"
step "Checking the signature" "$out/verify.log" codesign --verify --deep --strict "$bundle"
ln -s /Applications "$contents/Applications"
step "Making the disk image" "$out/image.log" \
    hdiutil create -volname Quorvantel -srcfolder "$contents" -format UDZO "$image"
echo "✓ $image"
