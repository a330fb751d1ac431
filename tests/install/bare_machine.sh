#!/usr/bin/env bash
# bare_machine.sh PACKAGE.deb: installs the package on a bare Debian 12 (debootstrap, below build/bare), lets an ordinary
# user with an empty home write a file with it, removes it, and looks for what is left. For the administrator, with network.
set -euo pipefail
package=$(readlink -f "$1")
build=$(readlink -f "$(dirname "$0")/../..")/build
picture=$build/bare_machine.png
pids=()

say() { printf '%s\n' "$*"; }
fail() { say "bare_machine: $*" >&2; exit 1; }

mkdir -p "$build"
if [ ! -e "$build/bare/debian/etc/debian_version" ]; then
  rm -rf "$build/bare"
  mkdir -p "$build/bare"
  debootstrap --variant=minbase bookworm "$build/bare/partial" >"$build/bare/debootstrap.log" || fail "no bare Debian; see $build/bare/debootstrap.log"
  mv "$build/bare/partial" "$build/bare/debian"
fi
machine=$(mktemp -d)
cleanup() {
  kill "${pids[@]}" 2>/dev/null || true
  wait 2>/dev/null || true
  umount "$machine/proc" 2>/dev/null || true
  rm -rf --one-file-system "$machine"
}
trap cleanup EXIT
cp -a "$build/bare/debian/." "$machine"
cp /etc/resolv.conf "$machine/etc/"
rm -f "$machine/etc/apt/sources.list"
cp -a /etc/apt/. "$machine/etc/apt/"
cp -a /usr/share/keyrings/. "$machine/usr/share/keyrings/"
mount -t proc proc "$machine/proc"

inside() { chroot "$machine" env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/root LC_ALL=C.UTF-8 DEBIAN_FRONTEND=noninteractive "$@"; }
as_user() { chroot "$machine" su - tester -s /bin/sh -c "LC_ALL=C.UTF-8 DISPLAY=${DISPLAY:-} $*"; }
# Everything on the machine but what users write, what the package manager notes, and what changes by itself.
files() { (cd "$machine" && find . -xdev \( -path ./proc -o -path ./home -o -path ./tmp -o -path ./var/log -o -path ./var/lib/dpkg -o -path ./var/lib/apt -o -path ./var/cache \) -prune -o -print | sort); }
wait_for() {
  local tries=300
  until "$@" >/dev/null 2>&1; do
    tries=$((tries - 1))
    [ $tries -gt 0 ] || fail "waited in vain for: $*"
    sleep 0.1
  done
}

inside apt-get -qq update
inside apt-get -qq -y --no-install-recommends satisfy "$(dpkg-deb -f "$package" Depends)" >/dev/null 2>&1
inside useradd --create-home tester
files >"$build/bare/before"
cp "$package" "$machine/tmp/quillmark.deb"
inside dpkg -i /tmp/quillmark.deb >/dev/null
say "installed: $(inside dpkg -L quillmark | wc -l) entries"

count=$(as_user quillmark-colour --list | wc -l)
[ "$count" -gt 0 ] || fail "quillmark-colour finds no templates"
as_user "mkdir files && echo 'var one = 1;' >files/one.js"
as_user "quillmark-colour --to ansi files/one.js" | grep -q $'\e\[' || fail "quillmark-colour does not colour"
say "an ordinary user's quillmark-colour: $count templates"

mkfifo "$machine/tmp/display"
Xvfb -displayfd 3 -screen 0 1100x800x24 -nolisten tcp 3>"$machine/tmp/display" >/dev/null 2>&1 &
pids+=($!)
DISPLAY=:$(head -n 1 "$machine/tmp/display")
export DISPLAY
[ -z "$(ls -A "$machine/home/tester/.local" 2>/dev/null)" ] || fail "the home is not empty"
as_user quillmark files/one.js &
pids+=($!)
wait_for xdotool search --onlyvisible --name 'one\.js'
window=$(xdotool search --onlyvisible --name 'one\.js' | tail -n 1)
xdotool windowfocus "$window"
typed_and_saved() {
  xdotool key --delay 30 x ctrl+s
  grep -q '^x' "$machine/home/tester/files/one.js"
}
wait_for typed_and_saved
import -window root "$picture"
xdotool key ctrl+q
wait_for sh -c "! xdotool search --onlyvisible --name 'Quillmark'"
[ "$(ls "$machine/home/tester/.local/share/quillmark/"*.def | wc -l)" -eq "$count" ] || fail "the home lacks templates"
say "an ordinary user's quillmark: started with an empty home, typed, saved, ended; $picture"

inside dpkg --purge quillmark >/dev/null
files >"$build/bare/after"
left=$(diff "$build/bare/before" "$build/bare/after") || fail "left or lost after the removal: $left"
say "removed: nothing is left"
