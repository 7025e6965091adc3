#!/usr/bin/env bash
# The package on a machine that has nothing but its own dependencies: a fresh
# Debian 12 chroot installs it with apt, runs the installed host on the installed
# examples, measures a program they wrote with pwm-measure, starts the desktop
# off screen, then purges the package and must find the file system as before.
#   clean_machine_test.sh PACKAGE.deb
# Needs root and debootstrap. The base system is made once and kept in
# $ZV_CHROOT_CACHE (~/.cache/zelvor-install-test) with the downloaded packages.
set -euo pipefail
deb=$(realpath "$1")
cache=${ZV_CHROOT_CACHE:-${XDG_CACHE_HOME:-$HOME/.cache}/zelvor-install-test}
mirror=${ZV_MIRROR:-http://deb.debian.org/debian}
root=$(mktemp -d "${TMPDIR:-/tmp}/zelvor-chroot.XXXXXX")
chmod 755 "$root"
mkdir -p "$cache/archives"

cleanup() {
  for m in var/cache/apt/archives dev/pts dev proc; do
    mountpoint -q "$root/$m" && umount "$root/$m"
  done
  rm -rf --one-file-system "$root"
}
trap cleanup EXIT

if [ ! -f "$cache/bookworm.tar" ]; then
  echo "making the base system (once)"
  debootstrap --variant=minbase --cache-dir="$cache/archives" bookworm "$root" "$mirror" >"$cache/debootstrap.log"
  tar -C "$root" --exclude="./var/cache/apt/archives/*.deb" -cf "$cache/bookworm.tar.part" . && mv "$cache/bookworm.tar.part" "$cache/bookworm.tar"
else
  tar -C "$root" -xf "$cache/bookworm.tar"
fi
cp /etc/resolv.conf "$root/etc/resolv.conf"
mount -t proc proc "$root/proc"
mount --bind /dev "$root/dev"
mount --bind /dev/pts "$root/dev/pts"
mount --bind "$cache/archives" "$root/var/cache/apt/archives"
cp "$deb" "$root/tmp/package.deb"
cp "$(dirname "$0")/clean_machine_inside.sh" "$root/tmp/inside.sh"
chroot "$root" env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin DEBIAN_FRONTEND=noninteractive \
  bash /tmp/inside.sh /tmp/package.deb
