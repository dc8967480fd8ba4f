#!/bin/bash
# Runs inside the Debian root of package_test.sh: installs /lobegraph.deb, uses it, removes it.
set -Eeuo pipefail
trap 'echo "line $LINENO has failed" >&2; cat /tmp/*.log >&2' ERR
export DEBIAN_FRONTEND=noninteractive LC_ALL=C.UTF-8 HOME=/root PATH=/usr/sbin:/usr/bin:/sbin:/bin

# Every file but what the package manager keeps for itself, and what programs leave where they run.
files() {
  find / -xdev \( -path /proc -o -path /sys -o -path /dev -o -path /tmp -o -path /run -o -path /root -o -path /var/cache \
    -o -path /var/lib/apt -o -path /var/lib/dpkg -o -path /var/log \) -prune -o -print | sort
}

# wait_for WHAT SECONDS COMMAND...
wait_for() {
  local what=$1 end=$((SECONDS + $2))
  shift 2
  until "$@"; do
    [ $SECONDS -lt $end ] || { echo "waited too long for $what" >&2; cat /tmp/*.log >&2; xwininfo -root -tree >&2 || true; exit 1; }
    sleep 0.2
  done
}
display() { xwininfo -root >/dev/null 2>&1; }
manager() { xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null | grep "window id" >/dev/null; }
window() { xwininfo -root -tree 2>/dev/null | grep "\"$1" >/dev/null; }
# Presses a key in the window, once it can be seen.
press() { timeout 60 xdotool search --sync --onlyvisible --name '^Lobegraph V' windowactivate --sync key "$1"; }
# The guide may have taken the focus in between, so the key is pressed until it works.
leave() { gone "$program" || { press alt+x && sleep 2 && gone "$program"; }; }
gone() { ! kill -0 "$1" 2>/dev/null; }

echo "== what it needs"
apt-get update -qq
apt-get satisfy -y -qq --no-install-recommends "$(dpkg-deb -f /lobegraph.deb Depends)" >/tmp/apt.log 2>&1 || { cat /tmp/apt.log; exit 1; }
files >/tmp/before

echo "== installing"
apt-get install -y -qq --no-install-recommends /lobegraph.deb >/tmp/apt.log 2>&1 || { cat /tmp/apt.log; exit 1; }
grep -q x-lobegraph-pattern /usr/share/mime/globs2
desktop-file-validate /usr/share/applications/lobegraph.desktop
for program in lobegraph-cli lobegraph-meter lobegraph-bench; do
  "$program" --help >/dev/null
  [ -s "/usr/share/man/man1/$program.1.gz" ]
done

echo "== starting"
mkdir -p /root/.config/lobegraph
printf '[Settings]\nUsername=N0CALL\n' >/root/.config/lobegraph/Lobegraph.conf
export DISPLAY=:77
mkdir -p -m 1777 /tmp/.X11-unix
Xvfb :77 -screen 0 1024x768x24 -nolisten tcp >/tmp/xvfb.log 2>&1 &
wait_for "the display" 60 display
openbox >/tmp/openbox.log 2>&1 &
wait_for "the window manager" 60 manager
dbus-run-session -- lobegraph >/tmp/lobegraph.log 2>&1 &
program=$!
wait_for "the window" 120 window "Lobegraph V"
press F1
wait_for "the guide" 60 window ".*Lobegraph Help"
echo "its window and its guide are there"
wait_for "its end" 60 leave

echo "== removing"
apt-get purge -y -qq lobegraph >/tmp/apt.log 2>&1 || { cat /tmp/apt.log; exit 1; }
files >/tmp/after
diff /tmp/before /tmp/after && echo "nothing is left"
