#!/usr/bin/env bash
# Takes the screenshot that the AppStream metadata shows: the main window of
# the 480x640 profile on a private Xvfb display, from a fresh root folder, at a fixed time.
#
#   scripts/make-screenshot.sh BUILD_DIR [OUT.png]
#
# OUT defaults to docs/screenshots/main-window.png. Needs xvfb, xdotool and
# imagemagick (Debian packages); development use only.
set -euo pipefail

here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
build=${1:?build folder, e.g. build}
out=${2:-$here/../docs/screenshots/main-window.png}
zonara=$build/bin/zonara
at=2026-03-20T14:30:00Z
export LC_ALL=C.UTF-8 # English texts and dates, whatever the developer's locale

work=$(mktemp -d)
pids=()
cleanup() {
    # The window first, then its X server.
    for ((i = ${#pids[@]} - 1; i >= 0; i--)); do
        kill "${pids[i]}" 2>/dev/null || true
        wait "${pids[i]}" 2>/dev/null || true
    done
    rm -rf "$work"
}
trap cleanup EXIT

# Xvfb picks a free display itself and tells its number.
Xvfb -displayfd 3 -screen 0 1024x768x24 3>"$work/display" >/dev/null 2>&1 &
pids+=($!)
for _ in $(seq 100); do
    [ -s "$work/display" ] && break
    sleep 0.1
done
[ -s "$work/display" ] || { echo "$0: Xvfb did not start" >&2; exit 1; }
export DISPLAY=:$(cat "$work/display")

root=$work/root
mkdir -p "$root"
cp -r "$build/bin/Data" "$build/bin/Graphics" "$root/"
rm -f "$root/Data/tstamp.dat" "$root/Data/settings.dat"
"$zonara" --root "$root" slot 0 tokyo >/dev/null 2>&1
"$zonara" --root "$root" --at "$at" --screen 480x640 &
pids+=($!)
window=""
for _ in $(seq 200); do
    window=$(xdotool search --onlyvisible --name '^Zonara$' 2>/dev/null | head -n 1) && [ -n "$window" ] && break
    sleep 0.05
done
[ -n "$window" ] || { echo "$0: no window within 10 s" >&2; exit 1; }
sleep 1 # the first paint
mkdir -p "$(dirname "$out")"
import -window "$window" "$work/shot.png"
size=$(identify -format '%wx%h' "$work/shot.png")
# The window: the 480x640 client area and the soft-key bar under it.
[ "$size" = 480x678 ] || { echo "$0: the window is $size, not 480x678" >&2; exit 1; }
# Without the time stamps ImageMagick writes, the same window gives the same file.
convert "$work/shot.png" -strip "$work/stripped.png"
mv "$work/stripped.png" "$out"
echo "$out"
