#!/usr/bin/env python3
"""Draws the weather window's pictures: one icon per name of the weather icon
table (plus na.gif for a name the table does not know) and the window's three
backgrounds, one per screen size.

    /usr/bin/python3 scripts/make-weather-pictures.py [--preview DIR]

Needs Debian's python3-pil (hence the system interpreter) and
fonts-dejavu-core. Writes into graphics/ beside this folder; running it twice
gives identical files. With --preview it also writes a PNG sheet of every icon
with its name, and PNG copies of the backgrounds, into DIR (not shipped).

Icons are 96x96 GIFs on a rounded tile: a daylight sky for day pictures and
for those that are neither, a starry night sky for the night pictures (the
names that end in "n" before ".gif", as "pcloudyrn.gif" does), so the two
variants of one condition never look alike. Corners are transparent.
"""

import argparse
import math
import os
import random

from PIL import Image, ImageChops, ImageDraw, ImageFilter, ImageFont

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
OUT = os.path.join(ROOT, "graphics")
SANS_BOLD = "/usr/share/fonts/truetype/dejavu/DejaVuSans-Bold.ttf"

ICON = 96
SS = 4  # supersampling
N = ICON * SS  # the drawing canvas

# Every picture name of the icon table, in its index order (index 18, any
# other name, is drawn as na.gif).
ICON_NAMES = [
    "blizzard.gif", "blowingsnow.gif", "chancetstorm.gif", "chancetstormn.gif", "cloudy.gif",
    "drizzle.gif", "fair.gif", "fdrizzle.gif", "flurries.gif", "fog.gif", "freezingrain.gif",
    "hazy.gif", "mcloudy.gif", "mcloudyn.gif", "mcloudynr.gif", "mcloudyns.gif", "mcloudyr.gif",
    "mcloudys.gif", "na.gif", "pcloudy.gif", "pcloudyn.gif", "pcloudynr.gif", "pcloudyns.gif",
    "pcloudyr.gif", "pcloudyrn.gif", "pcloudys.gif", "rain.gif", "rainandsnow.gif",
    "showers.gif", "sleet.gif", "smoke.gif", "snow.gif", "snowshowers.gif", "sunny.gif",
    "sunnyn.gif", "tstorm.gif", "tstormn.gif", "wind.gif", "wswarning.gif", "wswatch.gif",
]

NIGHT = {"chancetstormn.gif", "mcloudyn.gif", "mcloudynr.gif", "mcloudyns.gif", "pcloudyn.gif",
         "pcloudynr.gif", "pcloudyns.gif", "pcloudyrn.gif", "sunnyn.gif", "tstormn.gif"}

BACKGROUNDS = [(176, 220), (240, 320), (480, 640)]

SUN = (255, 200, 40)
SUN_EDGE = (235, 140, 20)
MOON = (250, 238, 190)
MOON_EDGE = (200, 180, 120)
RAIN = (40, 110, 220)
ICE = (70, 170, 235)
BOLT = (255, 220, 40)
BOLT_EDGE = (150, 90, 0)


def s(v):
    """Icon pixels to canvas pixels."""
    return v * SS


def sw(v):
    """A line width in canvas pixels."""
    return max(1, round(v * SS))


def mix(a, b, t):
    return tuple(round(x + (y - x) * t) for x, y in zip(a, b))


# ---------------------------------------------------------------------------
# Tiles


def tile(night):
    img = Image.new("RGBA", (N, N), (0, 0, 0, 0))
    top, bottom = ((16, 24, 70), (52, 46, 110)) if night else ((92, 160, 235), (198, 228, 252))
    sky = Image.new("RGBA", (N, N))
    d = ImageDraw.Draw(sky)
    for y in range(N):
        d.line([(0, y), (N, y)], fill=mix(top, bottom, y / (N - 1)) + (255,))
    if night:
        rnd = random.Random(7)
        for _ in range(14):
            x, y = rnd.uniform(s(6), s(90)), rnd.uniform(s(5), s(60))
            r = rnd.choice([s(0.5), s(0.7), s(1.0)])
            d.ellipse([x - r, y - r, x + r, y + r], fill=(255, 255, 230, 255))
    mask = Image.new("L", (N, N), 0)
    ImageDraw.Draw(mask).rounded_rectangle([s(1), s(1), N - s(1) - 1, N - s(1) - 1],
                                           radius=sw(14), fill=255)
    img.paste(sky, (0, 0), mask)
    ImageDraw.Draw(img).rounded_rectangle([s(1), s(1), N - s(1) - 1, N - s(1) - 1],
                                          radius=sw(14), outline=(255, 255, 255, 110),
                                          width=sw(1))
    return img


# ---------------------------------------------------------------------------
# Elements, in icon pixels


def sun(img, cx, cy, r, muted=False):
    d = ImageDraw.Draw(img)
    core, edge = (SUN, SUN_EDGE) if not muted else ((240, 215, 150), (200, 170, 110))
    for k in range(12):
        a = k * math.pi / 6
        inner, outer = r * 1.25, r * (1.7 if k % 2 == 0 else 1.5)
        p = [(cx + inner * math.cos(a - 0.12), cy + inner * math.sin(a - 0.12)),
             (cx + outer * math.cos(a), cy + outer * math.sin(a)),
             (cx + inner * math.cos(a + 0.12), cy + inner * math.sin(a + 0.12))]
        d.polygon([(s(x), s(y)) for x, y in p], fill=core)
    d.ellipse([s(cx - r), s(cy - r), s(cx + r), s(cy + r)], fill=core, outline=edge,
              width=sw(1.5))
    # A highlight to make it round.
    d.ellipse([s(cx - r * 0.55), s(cy - r * 0.6), s(cx - r * 0.05), s(cy - r * 0.15)],
              fill=mix(core, (255, 255, 230), 0.6))


def moon(img, cx, cy, r):
    disc = Image.new("L", (N, N), 0)
    ImageDraw.Draw(disc).ellipse([s(cx - r), s(cy - r), s(cx + r), s(cy + r)], fill=255)
    bite = Image.new("L", (N, N), 0)
    ImageDraw.Draw(bite).ellipse([s(cx - r * 0.45), s(cy - r * 1.15), s(cx + r * 1.45),
                                  s(cy + r * 0.7)], fill=255)
    crescent = ImageChops.subtract(disc, bite)
    edge = crescent.filter(ImageFilter.MaxFilter(2 * SS + 1))
    img.paste(Image.new("RGBA", (N, N), MOON_EDGE + (255,)), (0, 0), edge)
    img.paste(Image.new("RGBA", (N, N), MOON + (255,)), (0, 0), crescent)


def cloud(img, cx, cy, w, shade=0.0, night=False):
    """A cloud w icon pixels wide whose flat base sits at cy."""
    h = w * 0.30
    mask = Image.new("L", (N, N), 0)
    d = ImageDraw.Draw(mask)
    left, right = cx - w / 2, cx + w / 2
    d.rounded_rectangle([s(left), s(cy - h), s(right), s(cy)], radius=sw(h / 2), fill=255)
    # The top of the highest puff is 0.56 w above the base.
    for fx, fy, fr in [(0.30, 0.9, 0.18), (0.58, 1.1, 0.23), (0.80, 0.8, 0.16)]:
        x, y, r = left + w * fx, cy - h * fy, w * fr
        d.ellipse([s(x - r), s(y - r), s(x + r), s(y + r)], fill=255)
    light = (250, 252, 255) if not night else (200, 206, 225)
    dark = (110, 118, 135) if not night else (70, 76, 100)
    body = mix(light, dark, shade)
    rim = mix(body, (40, 48, 70), 0.45)
    outline = mask.filter(ImageFilter.MaxFilter(2 * SS + 1))
    img.paste(Image.new("RGBA", (N, N), rim + (255,)), (0, 0), outline)
    # Lighter above, darker below.
    grad = Image.new("RGBA", (N, N))
    gd = ImageDraw.Draw(grad)
    top = int(s(cy - h * 2.2))
    for y in range(max(top, 0), min(int(s(cy)) + 1, N)):
        t = (y - top) / max(1, s(cy) - top)
        gd.line([(0, y), (N, y)], fill=mix(mix(body, (255, 255, 255), 0.25), body, t) + (255,))
    img.paste(grad, (0, 0), mask)


def drops(img, points, length=9, colour=RAIN, width=2.4):
    d = ImageDraw.Draw(img)
    for x, y in points:
        d.line([s(x), s(y), s(x - length * 0.35), s(y + length)], fill=colour, width=sw(width))
        d.ellipse([s(x - length * 0.35 - width * 0.55), s(y + length - width * 0.55),
                   s(x - length * 0.35 + width * 0.55), s(y + length + width * 0.55)],
                  fill=colour)


def dots(img, points, r=1.5, colour=RAIN):
    d = ImageDraw.Draw(img)
    for x, y in points:
        d.ellipse([s(x - r), s(y - r), s(x + r), s(y + r)], fill=colour)


def flakes(img, points, r=4.5, colour=(255, 255, 255), edge=(60, 110, 190), width=2.8):
    d = ImageDraw.Draw(img)
    for x, y in points:
        for line, fill in [(width, edge), (width / 2, colour)]:
            for k in range(3):
                a = k * math.pi / 3 + math.pi / 6
                dx, dy = r * math.cos(a), r * math.sin(a)
                d.line([s(x - dx), s(y - dy), s(x + dx), s(y + dy)], fill=fill, width=sw(line))


def bolt(img, x, y, size=1.0):
    p = [(0, 0), (10, 0), (5, 10), (11, 10), (-2, 30), (2, 15), (-4, 15)]
    pts = [(s(x + px * size), s(y + py * size)) for px, py in p]
    d = ImageDraw.Draw(img)
    d.polygon(pts, fill=BOLT, outline=BOLT_EDGE, width=sw(1.2))


def icicles(img, x, y, count=3):
    d = ImageDraw.Draw(img)
    for k in range(count):
        px = x + k * 7
        length = 9 if k % 2 == 0 else 6
        d.polygon([(s(px - 2.4), s(y)), (s(px + 2.4), s(y)), (s(px), s(y + length))],
                  fill=ICE, outline=(60, 130, 200), width=sw(0.8))


def bars(img, rows, colour=(225, 230, 238, 235)):
    layer = Image.new("RGBA", (N, N), (0, 0, 0, 0))
    d = ImageDraw.Draw(layer)
    for left, right, y in rows:
        d.rounded_rectangle([s(left), s(y - 2.6), s(right), s(y + 2.6)], radius=sw(2.6),
                            fill=colour)
    img.alpha_composite(layer)


def gusts(img, rows, colour=(255, 255, 255), edge=(70, 110, 170)):
    """Wind lines ending in a curl: (left, y, length, curl radius)."""
    d = ImageDraw.Draw(img)
    for left, y, length, r in rows:
        for width, fill in [(4.2, edge), (2.4, colour)]:
            d.line([s(left), s(y), s(left + length), s(y)], fill=fill, width=sw(width))
            box = [s(left + length - r), s(y - 2 * r), s(left + length + r), s(y)]
            d.arc(box, start=-90, end=180, fill=fill, width=sw(width))


def smoke(img):
    layer = Image.new("RGBA", (N, N), (0, 0, 0, 0))
    d = ImageDraw.Draw(layer)
    d.rectangle([s(20), s(62), s(32), s(86)], fill=(120, 70, 60, 255))
    d.rectangle([s(10), s(84), s(86), s(90)], fill=(90, 90, 100, 255))
    puffs = [(27, 54, 6, 150), (34, 43, 8, 145), (45, 32, 10, 140), (59, 23, 12, 130),
             (74, 17, 11, 115)]
    for x, y, r, grey in puffs:
        d.ellipse([s(x - r), s(y - r), s(x + r), s(y + r)], fill=(grey, grey, grey + 5, 225))
    img.alpha_composite(layer.filter(ImageFilter.GaussianBlur(SS * 0.8)))


def triangle(img, fill, edge):
    d = ImageDraw.Draw(img)
    pts = [(s(48), s(12)), (s(86), s(80)), (s(10), s(80))]
    d.polygon(pts, fill=edge)
    inner = [(s(48), s(24)), (s(76), s(74)), (s(20), s(74))]
    d.polygon(inner, fill=fill)


def question(img):
    d = ImageDraw.Draw(img)
    font = ImageFont.truetype(SANS_BOLD, s(58))
    d.text((s(48), s(50)), "?", font=font, anchor="mm", fill=(255, 255, 255),
           stroke_width=sw(2), stroke_fill=(70, 90, 130))


# ---------------------------------------------------------------------------
# The pictures


def sky_body(img, night, x, y, r):
    """The sun by day, the moon by night."""
    if night:
        moon(img, x, y, r)
    else:
        sun(img, x, y, r)


def partly(img, night, cloud_width):
    sky_body(img, night, 36, 35, 17 if cloud_width < 60 else 15)
    cloud(img, 54, 72, cloud_width, 0.05, night)


def mostly(img, night, shade=0.15):
    sky_body(img, night, 28, 28, 13)
    cloud(img, 50, 66, 74, shade, night)


RAIN_LIGHT = [(40, 72), (56, 76), (72, 72)]
RAIN_HEAVY = [(30, 70), (43, 74), (56, 70), (69, 74), (82, 70)]
SNOW_LIGHT = [(38, 78), (58, 84), (76, 77)]


def draw_icon(name):
    night = name in NIGHT
    img = tile(night)
    base = name[:-4]
    if base == "sunny":
        sun(img, 48, 48, 20)
    elif base == "sunnyn":
        moon(img, 50, 46, 26)
    elif base == "fair":
        sun(img, 42, 40, 20)
        cloud(img, 64, 80, 40, 0.0)
    elif base in ("pcloudy", "pcloudyn"):
        partly(img, night, 58)
    elif base in ("pcloudyr", "pcloudynr", "pcloudyrn"):
        sky_body(img, night, 34, 30, 15)
        cloud(img, 54, 62, 60, 0.15, night)
        drops(img, RAIN_LIGHT)
    elif base in ("pcloudys", "pcloudyns"):
        sky_body(img, night, 34, 30, 15)
        cloud(img, 54, 62, 60, 0.1, night)
        flakes(img, SNOW_LIGHT)
    elif base in ("mcloudy", "mcloudyn"):
        mostly(img, night)
    elif base in ("mcloudyr", "mcloudynr"):
        sky_body(img, night, 26, 24, 12)
        cloud(img, 50, 58, 76, 0.35, night)
        drops(img, RAIN_HEAVY[:4] if not night else RAIN_HEAVY[1:])
    elif base in ("mcloudys", "mcloudyns"):
        sky_body(img, night, 26, 24, 12)
        cloud(img, 50, 58, 76, 0.3, night)
        flakes(img, [(30, 74), (48, 82), (66, 74), (82, 82)])
    elif base == "cloudy":
        cloud(img, 38, 52, 52, 0.35)
        cloud(img, 54, 74, 72, 0.15)
    elif base == "drizzle":
        cloud(img, 48, 56, 76, 0.35)
        dots(img, [(30, 66), (42, 72), (54, 66), (66, 72), (36, 80), (60, 82), (76, 66)])
    elif base == "fdrizzle":
        cloud(img, 48, 54, 76, 0.35)
        dots(img, [(30, 64), (44, 70), (58, 64), (36, 78), (52, 80)], colour=ICE)
        icicles(img, 62, 54)
    elif base == "rain":
        cloud(img, 48, 54, 80, 0.55)
        drops(img, RAIN_HEAVY + [(36, 82), (62, 82)], length=8)
    elif base == "freezingrain":
        cloud(img, 48, 54, 80, 0.5)
        drops(img, [(30, 64), (44, 68), (58, 64)], colour=ICE)
        icicles(img, 62, 54)
        flakes(img, [(38, 84)], r=3.5)
    elif base == "showers":
        cloud(img, 48, 54, 80, 0.6)
        drops(img, [(34, 62), (48, 66), (62, 62), (76, 66), (28, 78), (42, 82), (56, 78),
                    (70, 82)], length=11, width=2.8)
    elif base == "sleet":
        cloud(img, 48, 54, 80, 0.45)
        drops(img, [(34, 64), (62, 64)])
        dots(img, [(48, 70), (76, 70), (40, 84), (68, 84)], r=2.6, colour=ICE)
    elif base == "rainandsnow":
        cloud(img, 48, 54, 80, 0.45)
        drops(img, [(32, 64), (60, 66)])
        flakes(img, [(46, 74), (74, 72), (38, 86)])
    elif base == "flurries":
        cloud(img, 48, 56, 76, 0.2)
        flakes(img, [(36, 74), (62, 82)], r=4)
    elif base == "snow":
        cloud(img, 48, 54, 80, 0.35)
        flakes(img, [(28, 66), (48, 64), (68, 66), (38, 80), (58, 80), (78, 80)])
    elif base == "snowshowers":
        sun(img, 26, 24, 11)
        cloud(img, 52, 54, 74, 0.45)
        flakes(img, [(34, 64), (30, 80), (54, 66), (50, 82), (74, 64), (70, 80)], r=4)
    elif base == "blizzard":
        cloud(img, 48, 48, 70, 0.6)
        flakes(img, [(24, 58), (46, 62), (72, 58), (34, 76), (60, 74), (82, 78), (50, 88)],
               r=4)
        gusts(img, [(10, 68, 30, 4), (40, 86, 32, 4)], colour=(235, 240, 250))
    elif base == "blowingsnow":
        gusts(img, [(14, 40, 44, 7), (24, 58, 54, 8), (12, 76, 36, 6)])
        flakes(img, [(70, 32), (80, 52), (62, 72), (80, 82)], r=4.5)
    elif base in ("tstorm", "tstormn"):
        cloud(img, 48, 55, 82, 0.7, night)
        bolt(img, 44, 48, 1.2)
        drops(img, [(28, 62), (72, 60), (80, 76)], length=8)
    elif base in ("chancetstorm", "chancetstormn"):
        sky_body(img, night, 30, 28, 14)
        cloud(img, 54, 60, 66, 0.45, night)
        bolt(img, 50, 56, 1.0)
    elif base == "fog":
        cloud(img, 48, 44, 60, 0.2)
        bars(img, [(14, 80, 50), (22, 88, 61), (10, 72, 72), (26, 86, 83)])
    elif base == "hazy":
        sun(img, 48, 40, 18, muted=True)
        bars(img, [(12, 84, 50), (18, 78, 64), (10, 86, 78)], colour=(236, 222, 200, 215))
    elif base == "smoke":
        smoke(img)
    elif base == "wind":
        gusts(img, [(12, 32, 50, 8), (18, 52, 60, 9), (12, 72, 40, 7)])
    elif base == "wswarning":
        triangle(img, (255, 250, 245), (210, 30, 30))
        flakes(img, [(48, 56)], r=12, edge=(180, 30, 30), width=3.4)
    elif base == "wswatch":
        triangle(img, (255, 248, 225), (240, 160, 20))
        flakes(img, [(48, 56)], r=12, edge=(190, 120, 10), width=3.4)
    elif base == "na":
        question(img)
    else:
        raise ValueError(name)
    return img.resize((ICON, ICON), Image.LANCZOS)


def to_gif(img):
    """A palette picture whose last index is transparent where the tile is not."""
    alpha = img.getchannel("A")
    flat = Image.new("RGB", img.size, (0, 0, 0))
    flat.paste(img, (0, 0), alpha)
    pal = flat.quantize(colors=255, method=Image.MEDIANCUT, dither=Image.NONE)
    hole = alpha.point(lambda a: 255 if a < 128 else 0)
    pal.paste(255, (0, 0), hole)
    pal.info["transparency"] = 255
    return pal


# ---------------------------------------------------------------------------
# Backgrounds


def draw_background(width, height):
    scale = width / 240
    big = Image.new("RGB", (width * 2, height * 2))
    d = ImageDraw.Draw(big)
    w2, h2 = width * 2, height * 2
    top, middle, bottom = (38, 86, 160), (112, 170, 225), (206, 228, 244)
    for y in range(h2):
        t = y / (h2 - 1)
        colour = mix(top, middle, t / 0.6) if t < 0.6 else mix(middle, bottom, (t - 0.6) / 0.4)
        d.line([(0, y), (w2, y)], fill=colour)
    # Soft clouds, the same for every size relative to it.
    layer = Image.new("RGBA", (w2, h2), (0, 0, 0, 0))
    ld = ImageDraw.Draw(layer)
    rnd = random.Random(11)
    for _ in range(9):
        cx, cy = rnd.uniform(-0.1, 1.1) * w2, rnd.uniform(0.08, 0.62) * h2
        rw = rnd.uniform(0.25, 0.5) * w2
        for k in range(6):
            ox = rnd.uniform(-0.5, 0.5) * rw
            oy = rnd.uniform(-0.12, 0.12) * rw
            r = rnd.uniform(0.18, 0.32) * rw
            ld.ellipse([cx + ox - r, cy + oy - r * 0.6, cx + ox + r, cy + oy + r * 0.6],
                       fill=(255, 255, 255, 46))
    layer = layer.filter(ImageFilter.GaussianBlur(16 * scale))
    big = Image.alpha_composite(big.convert("RGBA"), layer)
    # Hills at the foot: two ridges.
    hills = ImageDraw.Draw(big)
    for colour, base, amp, freq, phase in [((92, 140, 110), 0.86, 0.05, 2.2, 0.4),
                                           ((64, 112, 84), 0.92, 0.04, 3.1, 1.7)]:
        pts = [(0, h2)]
        for x in range(0, w2 + 1, 4):
            u = x / w2
            y = base + amp * math.sin(u * freq * math.pi + phase) * (0.7 + 0.3 * math.sin(u * 7))
            pts.append((x, y * h2))
        pts.append((w2, h2))
        hills.polygon(pts, fill=colour)
    return big.convert("RGB").resize((width, height), Image.LANCZOS)


# ---------------------------------------------------------------------------


def preview_sheet(icons, out):
    cols = 8
    cell_w, cell_h = ICON + 32, ICON + 22
    rows = (len(icons) + cols - 1) // cols
    sheet = Image.new("RGB", (cols * cell_w, rows * cell_h), (90, 90, 96))
    d = ImageDraw.Draw(sheet)
    font = ImageFont.truetype(SANS_BOLD, 10)
    for i, (name, gif) in enumerate(icons):
        x, y = (i % cols) * cell_w + 16, (i // cols) * cell_h + 4
        shown = gif.convert("RGBA")
        sheet.paste(shown, (x, y), shown)
        d.text((x + ICON // 2, y + ICON + 9), f"{i} {name[:-4]}", font=font, anchor="mm",
               fill=(255, 255, 255))
    sheet.save(out)


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--preview", metavar="DIR", help="also write PNG previews into DIR")
    args = parser.parse_args()
    os.makedirs(OUT, exist_ok=True)
    icons = []
    for name in ICON_NAMES:
        gif = to_gif(draw_icon(name))
        gif.save(os.path.join(OUT, name), optimize=False)
        icons.append((name, Image.open(os.path.join(OUT, name))))
    backgrounds = []
    for width, height in BACKGROUNDS:
        img = draw_background(width, height)
        name = f"weather{width}x{height}.jpg"
        img.save(os.path.join(OUT, name), quality=88, optimize=True)
        backgrounds.append(name)
    if args.preview:
        os.makedirs(args.preview, exist_ok=True)
        preview_sheet(icons, os.path.join(args.preview, "weather-icons.png"))
        for name in backgrounds:
            Image.open(os.path.join(OUT, name)).save(
                os.path.join(args.preview, name[:-4] + ".png"))


if __name__ == "__main__":
    main()
