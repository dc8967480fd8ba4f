#!/usr/bin/env bash
# Builds the Debian package, looks at it as Debian's archive would, installs it into a Debian root of its own, starts the
# program there on a virtual display, removes it, and shows that nothing is left. Needs root rights.
#
# usage: scripts/package_test.sh [PACKAGE]    without PACKAGE it is built (cmake --workflow --preset package)
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. scripts/packages.sh
need $PACKAGES_PACKAGE

package=${1:-}
if [ -z "$package" ]; then
  rm -f build/package/*.deb
  cmake --workflow --preset package
  package=$(ls build/package/lobegraph_*.deb)
fi
echo "== lintian"
lintian --allow-root --fail-on error "$package"

work=$(mktemp -d /var/tmp/lobegraph-root.XXXXXX)
trap 'rm -rf --one-file-system "$work"' EXIT
root=$work/root

echo "== a Debian root from this machine's own package sources"
mapfile -t sources < <(grep -lsE 'debian-archive-keyring|debian\.org' /etc/apt/sources.list /etc/apt/sources.list.d/*)
mmdebstrap --mode=root --variant=apt --quiet --dpkgopt=force-unsafe-io \
  --include=xvfb,x11-utils,xdotool,openbox,dbus,shared-mime-info,desktop-file-utils,hicolor-icon-theme,man-db \
  "$(. /etc/os-release && echo "$VERSION_CODENAME")" "$root" "${sources[@]}"
cp "$package" "$root/lobegraph.deb"
cp scripts/package_root.sh "$root/package_root.sh"
cp /etc/resolv.conf /etc/hosts "$root/etc/"

# With process numbers and mounts of its own: whatever runs in there ends with it, and nothing stays mounted.
unshare --mount --pid --fork --kill-child bash -c '
  mount -t proc proc "$1/proc"
  mount -t tmpfs tmpfs "$1/dev/shm"
  exec chroot "$1" /bin/bash /package_root.sh' bash "$root"
echo "== the package is good"
