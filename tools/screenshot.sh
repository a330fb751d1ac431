#!/usr/bin/env bash
# screenshot.sh PICTURE.png [FILE…]: opens Quillmark on the files on a display of its own and takes a picture of the window
# as soon as it has been painted. The size of the display may be given as SCREEN=1280x900.
set -euo pipefail
picture=$(readlink -m "$1")
shift
root=$(readlink -f "$(dirname "$0")/..")
work=$(mktemp -d)
pids=()
cleanup() {
  kill "${pids[@]}" 2>/dev/null || true
  wait 2>/dev/null || true
  rm -rf "$work"
}
trap cleanup EXIT

# Waits at most 20 seconds for a command to succeed.
wait_for() {
  local tries=200
  until "$@" >/dev/null 2>&1; do
    tries=$((tries - 1))
    [ $tries -gt 0 ] || { echo "screenshot.sh: waited in vain for: $*" >&2; exit 1; }
    sleep 0.1
  done
}

mkfifo "$work/display"
Xvfb -displayfd 3 -screen 0 "${SCREEN:-1280x900}x24" -nolisten tcp 3>"$work/display" >/dev/null 2>&1 &
pids+=($!)
DISPLAY=:$(head -n 1 "$work/display")
export DISPLAY
openbox >/dev/null 2>&1 &
pids+=($!)
# A window that is mapped while the window manager starts may be overlooked by it.
manager_is_ready() { xprop -root _NET_SUPPORTING_WM_CHECK | grep -q "window id"; }
wait_for manager_is_ready
export HOME="$work" XDG_DATA_HOME="$work/data" XDG_RUNTIME_DIR="$work" QT_QPA_PLATFORM=xcb
"$root/build/bin/quillmark" "$@" &
pids+=($!)

# The last thing that the program does at the start is to colour its last file; then its window's picture stays the same.
unchanged() {
  import -window root "$work/now.png" && cmp -s "$work/now.png" "$work/before.png" && return 0
  cp "$work/now.png" "$work/before.png"
  return 1
}
wait_for xdotool search --onlyvisible --class quillmark
xdotool search --onlyvisible --class quillmark windowsize 1100 760 windowmove 90 60
sleep 0.5  # the program opens its files one by one, each of which repaints
wait_for unchanged
import -window "$(xdotool search --onlyvisible --class quillmark | tail -n 1)" "$work/window.png"
mkdir -p "$(dirname "$picture")"
convert "$work/window.png" +dither -colors 255 -strip "$picture"
