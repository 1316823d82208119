#!/usr/bin/env bash
# Starts Zonara's window on a private Xvfb display and reports, for each device
# profile, the time from start to the mapped window, a screenshot, and the CPU
# time the ticking clock uses over a period.
#
#   scripts/measure-window.sh BUILD_DIR OUT_DIR [SECONDS] [PROFILE...]
#
# ZONARA_VIEW=1 (the globe) or 2 (the multi-clock page) starts on that view instead of
# the full clock; the screenshots are then named after it.
#
# Needs xvfb, xdotool and imagemagick (Debian packages); development use only.
set -euo pipefail

build=${1:?build folder, e.g. build}
out=${2:?folder for screenshots}
seconds=${3:-60}
shift $(( $# < 3 ? $# : 3 ))
profiles=("$@")
view=${ZONARA_VIEW:-0}
case $view in
    0) name=window ;;
    1) name=globe ;;
    2) name=multi ;;
    *) echo "ZONARA_VIEW is 0, 1 or 2" >&2; exit 2 ;;
esac
[ ${#profiles[@]} -gt 0 ] || profiles=(480x640 240x320 176x220 640x480 320x240)

zonara="$build/bin/zonara"
mkdir -p "$out"
# Xvfb picks a free display itself and writes its number, so runs side by side never meet.
numberfile=$(mktemp)
Xvfb -displayfd 3 -screen 0 1280x1024x24 3>"$numberfile" >/dev/null 2>&1 &
xvfb=$!
trap 'kill $xvfb 2>/dev/null; rm -f "$numberfile"' EXIT
for _ in $(seq 100); do [ -s "$numberfile" ] && break; sleep 0.05; done
export DISPLAY=:$(cat "$numberfile")

ticks=$(getconf CLK_TCK)
for profile in "${profiles[@]}"; do
    root=$(mktemp -d)
    cp -r "$build/bin/Data" "$build/bin/Graphics" "$root/"
    rm -f "$root/Data/tstamp.dat" # the first start prepares the data, as a fresh install does
    if [ "$view" != 0 ]; then
        "$zonara" --root "$root" settings --set "currentView=$view" >/dev/null
    fi
    start=$(date +%s%N)
    "$zonara" --root "$root" --screen "$profile" &
    pid=$!
    # xdotool's own --sync polls only twice a second; poll every 5 ms instead.
    tries=0
    until xdotool search --onlyvisible --name '^Zonara$' >/dev/null 2>&1; do
        if ! kill -0 "$pid" 2>/dev/null || [ $(( tries += 1 )) -gt 2000 ]; then
            echo "$profile: no window within 10 s" >&2
            exit 1
        fi
        sleep 0.005
    done
    mapped=$(date +%s%N)
    sleep 1
    window=$(xdotool search --onlyvisible --name '^Zonara$' | head -n 1)
    import -window "$window" "$out/$name-$profile.png"
    read -r -a stat < "/proc/$pid/stat"
    before=$(( stat[13] + stat[14] ))
    sleep "$seconds"
    read -r -a stat < "/proc/$pid/stat"
    after=$(( stat[13] + stat[14] ))
    kill "$pid"
    wait "$pid" 2>/dev/null || true
    rm -rf "$root"
    cpu_ms=$(( (after - before) * 1000 / ticks ))
    printf '%s\tstart to window %d ms\tCPU %d ms over %d s (%s%%)\n' "$profile" \
        $(( (mapped - start) / 1000000 )) "$cpu_ms" "$seconds" \
        "$(awk -v c="$cpu_ms" -v s="$seconds" 'BEGIN { printf "%.2f", c / (s * 10) }')"
done
