#!/usr/bin/env bash
# Installs the packages of a folder in a new Debian 12 root, uses them as a stranger would, removes them, and looks for
# what they left. For root, with debootstrap; takes some minutes, most of them the compiler's installation.
set -euo pipefail
folder=$(realpath "$1")
root=$(mktemp -d)
trap 'rm -rf --one-file-system "$root"' EXIT

debootstrap --variant=minbase bookworm "$root" >"$root.log" || {
    cat "$root.log"
    exit 1
}
rm "$root.log"
cp /etc/apt/apt.conf.d/* "$root/etc/apt/apt.conf.d/"
cp "$(dirname "$0")/try-inside.sh" "$folder"/*.deb "$root/root/"
cp -r "$(dirname "$0")/../tests/install/consumer" "$root/root/"
# A name space of its own, so that /proc goes with it, and nothing of the environment here, which may name compilers.
unshare --mount bash -c "mount -t proc proc '$root/proc' &&
    env --ignore-environment PATH=/usr/sbin:/usr/bin:/sbin:/bin chroot '$root' bash /root/try-inside.sh"
