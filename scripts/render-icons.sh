#!/usr/bin/env bash
# Renders the application icon's PNG sizes for the hicolor theme from its SVG:
#   packaging/icons/zonara.svg -> packaging/icons/hicolor/NxN/apps/zonara.png
# The PNGs are committed, so a build needs no SVG renderer. Needs rsvg-convert
# (Debian's librsvg2-bin).
set -euo pipefail

here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
icons="$here/../packaging/icons"
command -v rsvg-convert >/dev/null || { echo "$0: rsvg-convert is missing (librsvg2-bin)" >&2; exit 1; }

for size in 16 22 24 32 48 64 128 256; do
    dir="$icons/hicolor/${size}x${size}/apps"
    mkdir -p "$dir"
    # Written beside the target and renamed, so a failed run leaves no half file.
    rsvg-convert --width "$size" --height "$size" --format png \
        --output "$dir/.zonara.png.tmp" "$icons/zonara.svg"
    mv "$dir/.zonara.png.tmp" "$dir/zonara.png"
done
