#!/usr/bin/env python3
"""Makes the globe view's pictures: the day and night world maps, the city marker
and the small clocks' faces.

    /usr/bin/python3 scripts/make-globe-pictures.py

Needs Debian's python3-pil (hence the system interpreter) and the maps of
Marble's data (package marble-qt-data, pulled in by marble-data). Writes into
graphics/ beside this folder; running it twice gives identical files.

Sources and credit (both public domain, from /usr/share/marble/data/maps/earth):
- Day map: NASA's Blue Marble Next Generation, NASA Goddard Space Flight Center,
  Earth Observatory ("bluemarble/bluemarble.jpg", 2700x1350).
- Night map: Earth's City Lights, Marc Imhoff of NASA GSFC and Christopher
  Elvidge of NOAA NGDC; image by Craig Mayhew and Robert Simmon, NASA GSFC
  ("citylights/citylights.jpg", 2700x1350).
Both are equirectangular with longitude -180 at the left edge and the north
pole at the top, as the view expects; they are only scaled and toned here.

The marker and the clock faces are drawn here. The marker's background is the
key colour RGB(255, 165, 30), which the view leaves out on every marker but the
selected city's. The faces' corners are the small clocks' background colour
(smallClockBackground in src/clocks/SmallClock.h); the hands are drawn by the
program, reaching the face's size value (src/globe/ClockFaces.h) from the centre.
"""

import math
import os
import sys

from PIL import Image, ImageDraw

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
OUT = os.path.join(ROOT, "graphics")
MAPS = "/usr/share/marble/data/maps/earth"
DAY_SOURCE = os.path.join(MAPS, "bluemarble", "bluemarble.jpg")
NIGHT_SOURCE = os.path.join(MAPS, "citylights", "citylights.jpg")

MAP_SIZES = [(640, 320), (320, 160)]
# The day map's oceans are near black in the source; a gamma under 1 lifts them so the
# night side stands apart. The night map is darkened a little, keeping its lights.
DAY_GAMMA = 0.8
NIGHT_GAMMA = 1.25

KEY = (255, 165, 30)
MARKER_SIZE = 13

BACKGROUND = (20, 28, 44)
DIAL = (246, 243, 234)
RIM = (96, 108, 130)
TICK = (40, 44, 56)
# (side, size value): the hands' reach, which the hour ticks end at.
FACES = [(42, 20), (56, 25), (64, 30), (128, 60)]
SS = 4  # supersampling of the faces


def gamma_table(gamma):
    return [round(255 * (v / 255) ** gamma) for v in range(256)] * 3


def make_map(source, size, gamma, name):
    picture = Image.open(source).convert("RGB")
    if picture.size[0] != 2 * picture.size[1]:
        sys.exit(f"{source}: {picture.size} is not a 2:1 equirectangular map")
    picture = picture.resize(size, Image.LANCZOS).point(gamma_table(gamma))
    picture.save(os.path.join(OUT, name), quality=92, subsampling=0, optimize=False)


def make_marker():
    """A ringed dot: black outline, white ring, red core, on the key colour. Drawn
    without smoothing so that no edge pixel comes near the key colour."""
    picture = Image.new("RGB", (MARKER_SIZE, MARKER_SIZE), KEY)
    centre = (MARKER_SIZE - 1) / 2
    for y in range(MARKER_SIZE):
        for x in range(MARKER_SIZE):
            d = math.hypot(x - centre, y - centre)
            if d <= 2.6:
                picture.putpixel((x, y), (220, 20, 30))
            elif d <= 4.6:
                picture.putpixel((x, y), (255, 255, 255))
            elif d <= 6.0:
                picture.putpixel((x, y), (0, 0, 0))
    picture.save(os.path.join(OUT, "marker.bmp"))
    return picture


def make_face(side, size_value):
    big = side * SS
    picture = Image.new("RGB", (big, big), BACKGROUND)
    draw = ImageDraw.Draw(picture)
    c = big / 2
    radius = big / 2 - SS  # one pixel clear of the edge
    rim = max(SS, round(big / 40))
    draw.ellipse([c - radius, c - radius, c + radius, c + radius], fill=RIM)
    inner = radius - rim
    draw.ellipse([c - inner, c - inner, c + inner, c + inner], fill=DIAL)
    outer = min(size_value * SS, inner - SS)
    for mark in range(60):
        hour = mark % 5 == 0
        if not hour and side < 64:
            continue
        angle = math.radians(mark * 6)
        if hour:
            length = big * (0.13 if mark % 15 == 0 else 0.09)
            width = max(SS, round(big * (0.045 if mark % 15 == 0 else 0.03)))
        else:
            length = big * 0.03
            width = max(SS // 2, round(big * 0.012))
        x0 = c + math.sin(angle) * (outer - length)
        y0 = c - math.cos(angle) * (outer - length)
        x1 = c + math.sin(angle) * outer
        y1 = c - math.cos(angle) * outer
        draw.line([x0, y0, x1, y1], fill=TICK, width=width)
    picture = picture.resize((side, side), Image.LANCZOS)
    name = f"clock{side}x{side}.jpg"
    picture.save(os.path.join(OUT, name), quality=95, subsampling=0, optimize=False)


def main():
    for source in (DAY_SOURCE, NIGHT_SOURCE):
        if not os.path.exists(source):
            sys.exit(f"{source} is missing: apt-get install marble-data")
    os.makedirs(OUT, exist_ok=True)
    for width, height in MAP_SIZES:
        make_map(DAY_SOURCE, (width, height), DAY_GAMMA, f"daymap_{width}x{height}.jpg")
        make_map(NIGHT_SOURCE, (width, height), NIGHT_GAMMA, f"nightmap_{width}x{height}.jpg")
    marker = make_marker()
    symbol = [p for p in marker.getdata() if p != KEY]
    if any(max(abs(a - b) for a, b in zip(p, KEY)) < 40 for p in symbol):
        sys.exit("a marker pixel is too close to the key colour")
    for side, size_value in FACES:
        make_face(side, size_value)


if __name__ == "__main__":
    main()
