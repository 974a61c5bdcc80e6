#!/usr/bin/env bash
# Installs a package of the launcher in a fresh Debian 12 of its own, takes the tour with what was
# installed, removes it again and sees that nothing is left of it. As root.
#
#   tools/try-package.sh PACKAGE.deb
#
# Leaves the tour's pictures in build/package/tour/.
set -euo pipefail
# shellcheck source=tools/common.sh
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

package="$(realpath "$1")"
out="$PWD/build/package"
mkdir -p "$out"
root="$(mktemp -d)"
mounted=()

clean_up() {
    local place
    for place in "${mounted[@]}"; do
        umount --lazy "$place"
    done
    # Never across what could not be unmounted.
    rm -rf --one-file-system "$root"
}
trap clean_up EXIT
trap 'exit 130' INT
trap 'exit 143' TERM HUP

within() {
    chroot "$root" env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/root LC_ALL=C.UTF-8 \
        DEBIAN_FRONTEND=noninteractive "$@"
}

make_root() {
    debootstrap --variant=minbase bookworm "$root"
    # The way to the archive is this machine's.
    cp /etc/resolv.conf "$root/etc/"
    find /etc/apt/apt.conf.d -name '*registry*' -exec cp {} "$root/etc/apt/apt.conf.d/" \;
    for place in proc dev; do
        mount --rbind "/$place" "$root/$place"
        mount --make-rslave "$root/$place"
        mounted+=("$root/$place")
    done
    within apt-get update
}


step "Making a fresh root" "$out/root.log" make_root
mapfile -t needed < <(awk '$2 == "test" && $1 ~ /^(dbus-daemon|fonts-dejavu-core|imagemagick|openbox|x11-utils|x11-xserver-utils|xdotool|xvfb)$/ { print $1 }' packaging/packages.txt)
step "Giving it a desktop" "$out/desktop.log" \
    within apt-get install -y --no-install-recommends "${needed[@]}"
mkdir -p "$root/opt/try"
cp -r tools "$root/opt/try/"
cp "$package" "$root/opt/try/quorvantel.deb"

step "Installing the package" "$out/install.log" \
    within apt-get install -y --no-install-recommends /opt/try/quorvantel.deb
step "Taking the tour" "$out/tour.log" within bash /opt/try/tools/tour.sh x11 /usr/bin/quorvantel
rm -rf "$out/tour"
cp -r "$root/opt/try/build/tour" "$out/"

mapfile -t own < <(within dpkg-query -L quorvantel)
step "Removing it" "$out/remove.log" within apt-get purge -y quorvantel
left=0
for file in "${own[@]}"; do
    if [[ -e $root$file && ! -d $root$file ]]; then
        echo "✗ left behind: $file" >&2
        left=1
    fi
done
if find "$root/etc" "$root/usr" "$root/var" -xdev -iname '*quorvantel*' | grep .; then
    left=1
fi
if ((left)); then
    echo "✗ removing the package leaves files behind" >&2
    exit 1
fi
echo "✓ Installed, used and removed in a fresh root; the pictures are in build/package/tour/"
