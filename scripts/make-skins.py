#!/usr/bin/env python3
"""Draws the shipped clock skins: for every screen profile a scheme file, a
background picture with the analogue clock's dial, and a moon-phase strip.

    /usr/bin/python3 scripts/make-skins.py [--preview DIR]

Needs Debian's python3-pil (hence the system interpreter) and fonts-dejavu-core. Writes into graphics/ beside
this folder; running it twice gives identical files. With --preview it also
draws every skin with sample texts, the hands, the digital clock and the moon
into DIR (not shipped), and warns about sample texts wider than their field.

Text sizes are in points; the view turns them into pixels as
points * dpi / 72 (truncated), with 96 dpi below 480 pixels of width and
192 dpi from there on, so the 2x profiles reuse the 1x layouts doubled.
"""

import argparse
import math
import os
import random
import sys
from xml.sax.saxutils import quoteattr

from PIL import Image, ImageDraw, ImageFont

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
OUT = os.path.join(ROOT, "graphics")
FONT_DIR = "/usr/share/fonts/truetype/dejavu"
SANS = os.path.join(FONT_DIR, "DejaVuSans.ttf")
SANS_BOLD = os.path.join(FONT_DIR, "DejaVuSans-Bold.ttf")
SERIF = os.path.join(FONT_DIR, "DejaVuSerif.ttf")
SERIF_BOLD = os.path.join(FONT_DIR, "DejaVuSerif-Bold.ttf")

SS = 4  # supersampling of every drawn picture

FIELD_ORDER = ["country", "city", "time", "date", "airportcode", "dialcode", "GMToffset",
               "timezonedescription", "daylightSaving", "sunrise", "sunset", "ampm", "inettime"]

# (width, height, layout, scale, dpi)
PROFILES = [
    (176, 220, "small", 1, 96),
    (240, 320, "portrait", 1, 96),
    (480, 640, "portrait", 2, 192),
    (320, 240, "landscape", 1, 96),
    (640, 480, "landscape", 2, 192),
]

# ---------------------------------------------------------------------------
# Layouts in 1x pixels. A field is (rect, points, bold, align, style); fields
# that a layout leaves out are written hidden. Cells are the small labelled
# boxes of the info grids: the label is drawn into the background, the value
# is the field, given a rect inside the cell.


def grid(left, top, cols, cell_w, cell_h, gap, names, style):
    """Cells of an info grid, row by row. style is (label offset from the
    cell's top, value rect's top and bottom inset, value points); a name may
    carry its own points as a third item."""
    cells = []
    for i, name in enumerate(names):
        c, r = i % cols, i // cols
        x = left + c * (cell_w + gap)
        y = top + r * (cell_h + gap)
        cells.append(cell(name, (x, y, x + cell_w, y + cell_h), style))
    return cells


def row(left, top, widths, cell_h, gap, names, style):
    """One row of cells of the given widths."""
    cells = []
    x = left
    for width, name in zip(widths, names):
        cells.append(cell(name, (x, top, x + width, top + cell_h), style))
        x += width + gap
    return cells


def cell(name, rect, style):
    label, field = name[:2]
    label_dy, value_top, value_bottom, value_pt = style
    if len(name) > 2:
        value_pt = name[2]
    return (label, field, rect, label_dy, value_top, value_bottom, value_pt)


LAYOUTS = {
    "small": {
        "header": (0, 0, 176, 34),
        "fields": {
            "city": ((4, 2, 172, 19), 10, True, "center", "short"),
            "country": ((4, 19, 172, 32), 7, False, "center", "short"),
            "time": ((98, 40, 172, 62), 13, True, "center", "short"),
            "ampm": ((98, 62, 172, 74), 7, True, "center", "short"),
            "inettime": ((98, 108, 172, 120), 7, False, "center", "short"),
            "date": ((4, 157, 172, 169), 7, False, "center", "long"),
        },
        "clock": ((4, 36, 94, 126), 42),
        "dig": (8, 129, 168, 153),
        "dig_panel": (4, 127, 172, 155),
        "moon": (121, 77, 28),
        "side_panel": (98, 36, 172, 124),
        "side_columns": (98, 172),
        "label_pt": 6,
        "cells": grid(4, 172, 3, 54, 22, 3, [
            ("GMT", "GMToffset"), ("DST", "daylightSaving"), ("Dial", "dialcode"),
            ("Sunrise", "sunrise"), ("Sunset", "sunset"), ("Airport", "airportcode")],
            (1, 9, 1, 7)),
    },
    "portrait": {
        "header": (0, 0, 240, 44),
        "fields": {
            "city": ((6, 4, 234, 26), 13, True, "center", "short"),
            "country": ((6, 26, 234, 41), 8, False, "center", "short"),
            "time": ((130, 52, 234, 80), 17, True, "center", "short"),
            "ampm": ((130, 80, 234, 94), 8, True, "center", "short"),
            "inettime": ((130, 144, 234, 158), 8, False, "center", "short"),
            "date": ((6, 206, 234, 220), 8, False, "center", "long"),
            "timezonedescription": ((6, 221, 234, 234), 7, False, "center", "short"),
        },
        "clock": ((4, 46, 126, 168), 57),
        "dig": (24, 170, 216, 202),
        "dig_panel": (20, 168, 220, 204),
        "moon": (164, 100, 36),
        "side_panel": (130, 48, 234, 162),
        "side_columns": (130, 234),
        "label_pt": 6,
        "cells": grid(6, 240, 3, 74, 36, 3, [
            ("GMT offset", "GMToffset"), ("Daylight saving", "daylightSaving"),
            ("Dialling code", "dialcode", 9), ("Sunrise", "sunrise"), ("Sunset", "sunset"),
            ("Airport", "airportcode")],
            (4, 13, 3, 10)),
    },
    "landscape": {
        "header": (0, 0, 320, 34),
        "fields": {
            "city": ((8, 2, 270, 20), 11, True, "left", "short"),
            "country": ((8, 20, 270, 33), 7, False, "left", "short"),
            "time": ((172, 38, 284, 72), 18, True, "center", "short"),
            "ampm": ((284, 38, 316, 72), 10, True, "center", "short"),
            "date": ((150, 120, 316, 134), 7, False, "center", "long"),
            "timezonedescription": ((150, 135, 316, 147), 6, False, "center", "short"),
        },
        "clock": ((6, 38, 144, 176), 65),
        "dig": (158, 78, 310, 114),
        "dig_panel": (154, 76, 314, 116),
        "moon": (284, 2, 30),
        "side_panel": None,
        "side_columns": (150, 316),
        "label_pt": 6,
        "cells": grid(152, 151, 2, 80, 27, 2, [
            ("GMT offset", "GMToffset"), ("Daylight saving", "daylightSaving")],
            (2, 10, 2, 8))
        + row(6, 188, (54, 54, 50, 84, 54), 44, 3, [
            ("Sunrise", "sunrise"), ("Sunset", "sunset"), ("Airport", "airportcode"),
            ("Dial code", "dialcode"), ("Internet", "inettime")],
            (5, 16, 5, 10)),
    },
}

# ---------------------------------------------------------------------------
# Themes: colours and the style of dial and panels.

THEMES = {
    "default": {
        "title": "Midnight",
        "bg_top": (10, 24, 48), "bg_bottom": (20, 62, 98),
        "header": (6, 16, 34, 255),
        "header_line": (120, 180, 230, 120),
        "panel": (255, 255, 255, 18), "panel_line": (160, 200, 240, 60),
        "glow": (70, 140, 210),
        "dial_face_in": (36, 70, 108), "dial_face_out": (12, 28, 52),
        "dial_ring": (126, 180, 222), "dial_ring2": (40, 80, 120),
        "tick_major": (240, 246, 252), "tick_minor": (120, 160, 196),
        "numeral": (220, 234, 248), "numeral_font": SANS_BOLD, "roman": False,
        "logo": (120, 160, 196),
        "text": {"city": "#FFFFFF", "country": "#9EC6EA", "time": "#FFD479",
                 "ampm": "#FFD479", "date": "#E4EEF8", "timezonedescription": "#9EC6EA",
                 "inettime": "#C8DCF0", "value": "#F0F6FC"},
        "label": (128, 170, 210),
        "hour": "#F4F8FC", "minute": "#F4F8FC", "second": "#FF8A3D",
        "hour_fill": "#DCE8F4", "minute_fill": "#DCE8F4",
        "dig": {"fillOn": "#FFD479", "fillOff": "#1B3352", "borderOn": "#FFE8B0",
                "borderOff": "#223D60", "backFill": "#0C1A30"},
        "moon_light": (250, 244, 222), "moon_dark": (34, 44, 60),
        "grain": 0,
        "mirror_top": False,
    },
    "paper": {
        "title": "Paper",
        "bg_top": (246, 240, 228), "bg_bottom": (234, 224, 204),
        "header": (52, 44, 36, 255),
        "header_line": (176, 48, 42, 255),
        "panel": (255, 252, 244, 150), "panel_line": (150, 128, 100, 110),
        "glow": None,
        "dial_face_in": (255, 253, 246), "dial_face_out": (242, 234, 218),
        "dial_ring": (60, 50, 40), "dial_ring2": (176, 48, 42),
        "tick_major": (40, 32, 26), "tick_minor": (120, 104, 86),
        "numeral": (40, 32, 26), "numeral_font": SERIF, "roman": True,
        "logo": (150, 128, 100),
        "text": {"city": "#FBF6EC", "country": "#D9C7AA", "time": "#B0302A",
                 "ampm": "#B0302A", "date": "#2E251C", "timezonedescription": "#7A6550",
                 "inettime": "#5C4A38", "value": "#2E251C"},
        "label": (140, 118, 92),
        "hour": "#2B2118", "minute": "#2B2118", "second": "#C0392B",
        "hour_fill": "#2B2118", "minute_fill": "#2B2118",
        "dig": {"fillOn": "#2B2118", "fillOff": "#E4D9C6", "borderOn": "#2B2118",
                "borderOff": "#D6C8B0", "backFill": "#F1E9DA"},
        "moon_light": (248, 242, 226), "moon_dark": (70, 60, 52),
        "grain": 6,
        "mirror_top": True,
    },
}

# ---------------------------------------------------------------------------
# Geometry helpers


def scaled(rect, s):
    return tuple(v * s for v in rect)


def font_px(points, dpi):
    return points * dpi // 72


def hex_rgb(text):
    return tuple(int(text[i:i + 2], 16) for i in (1, 3, 5))


def mix(a, b, t):
    return tuple(int(round(a[i] + (b[i] - a[i]) * t)) for i in range(len(a)))


def resolve(layout_name, theme, width, scale):
    """The layout of one skin at one profile in real pixels."""
    lay = LAYOUTS[layout_name]
    w1 = width // scale
    clock_rect, radius = lay["clock"]
    cl, ct, cr, cb = clock_rect
    block_top, block_bottom = lay["header"][3], cb + 2
    side_l, side_r = lay["side_columns"]

    def place(rect):
        # The mirrored skins swap the clock and the block beside it; each
        # keeps its own order, and the header and the info grid stay put.
        l, t, r, b = rect
        if theme["mirror_top"] and t >= block_top and b <= block_bottom:
            dx = (w1 - cr - cl) if l < cr else (w1 - side_r) - side_l
            rect = (l + dx, t, r + dx, b)
        return scaled(rect, scale)

    fields = {}
    for name, (rect, pt, bold, align, style) in lay["fields"].items():
        fields[name] = (place(rect), pt, bold, align, style)
    cells = []
    for label, field, rect, label_dy, value_top, value_bottom, value_pt in lay["cells"]:
        cells.append((label, field, place(rect), label_dy * scale))
        if field:
            l, t, r, b = rect
            fields[field] = (place((l + 1, t + value_top, r - 1, b - value_bottom)),
                             value_pt, True, "center", "short")
    moon_x, moon_y, moon_size = lay["moon"]
    mrect = place((moon_x, moon_y, moon_x + moon_size, moon_y + moon_size))
    side = lay.get("side_panel")
    return {
        "fields": fields,
        "cells": cells,
        "label_pt": lay["label_pt"],
        "clock_rect": place(clock_rect),
        "radius": radius * scale,
        "dig": place(lay["dig"]),
        "dig_panel": place(lay["dig_panel"]),
        "moon": (mrect[0], mrect[1], moon_size * scale),
        "side_panel": place(side) if side else None,
        "header": scaled(lay["header"], scale),
    }


# ---------------------------------------------------------------------------
# Background drawing (at SS times the size, then reduced)


def rounded(draw, rect, radius, fill=None, outline=None, width=1):
    l, t, r, b = [v * SS for v in rect]
    draw.rounded_rectangle((l, t, r - 1, b - 1), radius * SS, fill=fill, outline=outline,
                           width=width * SS if outline else 0)


def overlay(base, painter):
    layer = Image.new("RGBA", base.size, (0, 0, 0, 0))
    painter(ImageDraw.Draw(layer))
    return Image.alpha_composite(base, layer)


def draw_gradient(img, top, bottom):
    w, h = img.size
    draw = ImageDraw.Draw(img)
    for y in range(h):
        draw.line([(0, y), (w, y)], fill=mix(top, bottom, y / max(1, h - 1)) + (255,))


def draw_glow(img, cx, cy, radius, colour, strength):
    w, h = img.size
    layer = Image.new("RGBA", (w, h), (0, 0, 0, 0))
    draw = ImageDraw.Draw(layer)
    steps = 40
    for i in range(steps, 0, -1):
        r = radius * i / steps
        a = int(strength * (1 - i / steps) ** 2)
        draw.ellipse((cx - r, cy - r, cx + r, cy + r), fill=colour + (a,))
    return Image.alpha_composite(img, layer)


def add_grain(img, amount, seed):
    """Paper fibre: fixed-seed noise, so the picture is the same every run."""
    rng = random.Random(seed)
    w, h = img.size
    noise = Image.new("L", (w, h))
    noise.putdata([128 + rng.randint(-amount, amount) for _ in range(w * h)])
    # Add the noise to each channel.
    px = img.load()
    npx = noise.load()
    for y in range(h):
        for x in range(w):
            d = npx[x, y] - 128
            p = px[x, y]
            px[x, y] = (max(0, min(255, p[0] + d)), max(0, min(255, p[1] + d)),
                        max(0, min(255, p[2] + d)), p[3])
    return img


def roman(n):
    return ["XII", "I", "II", "III", "IIII", "V", "VI", "VII", "VIII", "IX", "X", "XI"][n % 12]


def draw_dial(img, theme, cx, cy, radius, scale):
    """The clock face: ring, minute ticks, hour marks and numerals, centred on
    the hands' centre (all in supersampled pixels)."""
    R = radius
    draw_layer = Image.new("RGBA", img.size, (0, 0, 0, 0))
    d = ImageDraw.Draw(draw_layer)
    # Face: a radial gradient from the middle outwards.
    steps = 48
    for i in range(steps, 0, -1):
        r = R * i / steps
        d.ellipse((cx - r, cy - r, cx + r, cy + r),
                  fill=mix(theme["dial_face_in"], theme["dial_face_out"], (i / steps) ** 1.6)
                  + (255,))
    ring_w = max(SS, R * 0.05)
    d.ellipse((cx - R, cy - R, cx + R, cy + R), outline=theme["dial_ring"] + (255,),
              width=int(ring_w))
    inner = R - ring_w - R * 0.02
    d.ellipse((cx - inner, cy - inner, cx + inner, cy + inner),
              outline=theme["dial_ring2"] + (255,), width=max(1, int(R * 0.012)))
    # Minute ticks and hour marks.
    for i in range(60):
        a = math.radians(i * 6)
        sx, sy = math.sin(a), -math.cos(a)
        major = i % 5 == 0
        r0 = inner - R * (0.13 if major else 0.05)
        r1 = inner - R * 0.015
        width = R * (0.035 if major else 0.012)
        if major and i % 15 == 0 and not theme["roman"]:
            width = R * 0.05
        colour = theme["tick_major"] if major else theme["tick_minor"]
        p0 = (cx + sx * r0, cy + sy * r0)
        p1 = (cx + sx * r1, cy + sy * r1)
        d.line([p0, p1], fill=colour + (255,), width=max(1, int(width)))
    # Numerals.
    if theme["roman"]:
        size = int(R * 0.17)
        nums = range(12)
        rr = inner - R * 0.27
    else:
        size = int(R * 0.2)
        nums = (0, 3, 6, 9)
        rr = inner - R * 0.3
    font = ImageFont.truetype(theme["numeral_font"], max(6, size))
    for n in nums:
        a = math.radians(n * 30)
        x, y = cx + math.sin(a) * rr, cy - math.cos(a) * rr
        text = roman(n) if theme["roman"] else str(12 if n == 0 else n)
        d.text((x, y), text, font=font, fill=theme["numeral"] + (255,), anchor="mm")
    # A small maker's mark under the centre, where it can still be read.
    if R * 0.09 >= 6 * SS:
        lf = ImageFont.truetype(SANS, int(R * 0.09))
        d.text((cx, cy + R * 0.36), "ZONARA", font=lf, fill=theme["logo"] + (255,),
               anchor="mm")
    # The hub the hands turn on.
    hub = R * 0.045
    d.ellipse((cx - hub, cy - hub, cx + hub, cy + hub), fill=theme["tick_major"] + (255,))
    return Image.alpha_composite(img, draw_layer)


def draw_background(theme, lay, width, height, scale, dpi):
    W, H = width * SS, height * SS
    img = Image.new("RGBA", (W, H))
    draw_gradient(img, theme["bg_top"], theme["bg_bottom"])
    # The hands turn about the middle of the pixel at hand-center.
    cl, ct, cr, cb = lay["clock_rect"]
    cx = (cl + (cr - cl) // 2 + 0.5) * SS
    cy = (ct + (cb - ct) // 2 + 0.5) * SS
    if theme["glow"]:
        img = draw_glow(img, cx, cy, (cr - cl) * SS * 0.75, theme["glow"], 110)

    def panels(d):
        hl, ht, hr, hb = lay["header"]
        d.rectangle((hl * SS, ht * SS, hr * SS, hb * SS), fill=theme["header"])
        d.line([(hl * SS, hb * SS - SS), (hr * SS, hb * SS - SS)], fill=theme["header_line"],
               width=SS * scale)
        if lay["side_panel"]:
            rounded(d, lay["side_panel"], 6 * scale, fill=theme["panel"],
                    outline=theme["panel_line"], width=1)
        for label, field, rect, label_dy in lay["cells"]:
            rounded(d, rect, 4 * scale, fill=theme["panel"], outline=theme["panel_line"],
                    width=1)
        bf = hex_rgb(theme["dig"]["backFill"])
        rounded(d, lay["dig_panel"], 5 * scale, fill=bf + (255,), outline=theme["panel_line"],
                width=1)

    img = overlay(img, panels)

    def labels(d):
        fnt = ImageFont.truetype(SANS, font_px(lay["label_pt"], dpi) * SS)
        for label, field, rect, label_dy in lay["cells"]:
            l, t, r, b = rect
            d.text(((l + r) / 2 * SS, (t + label_dy) * SS), label.upper(), font=fnt,
                   fill=theme["label"] + (255,), anchor="ma")

    img = overlay(img, labels)
    img = draw_dial(img, theme, cx, cy, lay["radius"] * SS, scale)
    img = img.resize((width, height), Image.LANCZOS)
    if theme["grain"]:
        img = add_grain(img, theme["grain"], width * 1000 + height)
    return img.convert("RGB")


# ---------------------------------------------------------------------------
# Moon phases


def draw_moon_strip(theme, size, under):
    """Eight phases left to right, index 0 new moon, 2 first quarter (lit on
    the right), 4 full, 6 last quarter. `under` is the background at the spot
    the view draws the phase, so the strip blends in whatever colour key the
    view uses."""
    S = size * SS
    strip = Image.new("RGB", (size * 8, size))
    light = theme["moon_light"]
    dark = theme["moon_dark"]
    rng = random.Random(1969)
    craters = [(rng.uniform(-0.6, 0.6), rng.uniform(-0.6, 0.6), rng.uniform(0.08, 0.22))
               for _ in range(9)]
    r = S / 2 - SS * 0.75
    for i in range(8):
        phi = 2 * math.pi * i / 8
        sun = (math.sin(phi), 0.0, -math.cos(phi))
        big = under.resize((S, S), Image.BICUBIC).convert("RGB")
        px = big.load()
        for y in range(S):
            ny = (y + 0.5 - S / 2) / r
            for x in range(S):
                nx = (x + 0.5 - S / 2) / r
                d2 = nx * nx + ny * ny
                if d2 > 1:
                    continue
                nz = math.sqrt(1 - d2)
                # The viewer looks from +z; sun points from the moon to the
                # sun, away from the viewer at new moon.
                lit = nx * sun[0] + nz * sun[2]
                t = max(0.0, min(1.0, lit * 6 + 0.5))
                shade = 0.78 + 0.22 * nz
                tone = 1.0
                for (mx, my, mr) in craters:
                    q = ((nx - mx) ** 2 + (ny - my) ** 2) / (mr * mr)
                    if q < 1:
                        tone -= 0.11 * (1 - q * q)
                base = tuple(c * shade * tone for c in light)
                col = mix(dark, base, t)
                px[x, y] = col
        small = big.resize((size, size), Image.LANCZOS)
        strip.paste(small, (i * size, 0))
    return strip


# ---------------------------------------------------------------------------
# Scheme XML


def colour_attr(rgb_text):
    return rgb_text.upper()


def scheme_xml(skin_name, theme, lay, width, height):
    lines = ['<?xml version="1.0" encoding="utf-8"?>',
             f'<!-- {theme["title"]} skin for {width}x{height}; drawn by scripts/make-skins.py -->',
             "<scheme>", "  <mainclock>",
             f'    <background img={quoteattr(f"{skin_name}_bg_{width}x{height}.png")}/>']
    text = theme["text"]
    for name in FIELD_ORDER:
        if name in lay["fields"]:
            rect, pt, bold, align, style = lay["fields"][name]
            colour = text.get(name, text["value"])
            state = "show"
        else:
            rect, pt, bold, align, style = (0, 0, 0, 0), 8, False, "left", "short"
            colour, state = text["value"], "hide"
        lines.append(
            f'    <{name} state="{state}" font-size="{pt}" '
            f'font-weight="{"bold" if bold else "normal"}" font-color="{colour_attr(colour)}" '
            f'rect="{",".join(str(v) for v in rect)}" align="{align}" style="{style}"/>')
    cl, ct, cr, cb = lay["clock_rect"]
    cx, cy = (cr - cl) // 2, (cb - ct) // 2
    lines += [
        f'    <clock state="show" rect="{cl},{ct},{cr},{cb}" hand-center="{cx},{cy}" '
        f'radius="{lay["radius"]}">',
        f'      <hourhand lengthscale="52" widthscale="8" fill-color="{theme["hour_fill"]}" '
        f'outline-color="{theme["hour"]}"/>',
        f'      <minutehand lengthscale="74" widthscale="5" fill-color="{theme["minute_fill"]}" '
        f'outline-color="{theme["minute"]}"/>',
        f'      <secondhand outline-color="{theme["second"]}"/>',
        "    </clock>"]
    dl, dt, dr, db = lay["dig"]
    dg = theme["dig"]
    lines.append(
        f'    <dig_clock state="show" rect="{dl},{dt},{dr},{db}" fillOn="{dg["fillOn"]}" '
        f'fillOff="{dg["fillOff"]}" borderOn="{dg["borderOn"]}" borderOff="{dg["borderOff"]}" '
        f'backFill="{dg["backFill"]}"/>')
    mx, my, ms = lay["moon"]
    lines.append(
        f'    <moonphase state="show" img="{skin_name}_moon_{width}x{height}.png" '
        f'rect="{mx},{my},{mx + ms},{my + ms}" size="{ms},{ms}"/>')
    lines += ["  </mainclock>", "</scheme>", ""]
    return "\n".join(lines)


# ---------------------------------------------------------------------------
# Preview (not shipped): the skin as the view would show it.

SAMPLES = {
    "country": "Bosnia and Herzegovina", "city": "Ho Chi Minh City", "time": "11:58",
    "date": "Wednesday, September 30, 2026", "airportcode": "WAW", "dialcode": "+49 3528",
    "GMToffset": "+07:00", "timezonedescription": "West Central Africa Standard Time",
    "daylightSaving": "n\\a", "sunrise": "05:41", "sunset": "17:38", "ampm": "AM",
    "inettime": "@541",
}
LONG_SAMPLES = {"GMToffset": "GMT offset +07:00", "daylightSaving": "Daylight Savings n\\a"}


def seven_segment(draw, rect, colours, digits):
    l0, t0, r0, b0 = rect
    W, H = r0 - l0, b0 - t0
    c, s, d = W * 7 // 100, W * 2 // 100, W * 12 // 100
    xs = [s, d + 2 * s]
    x3 = 2 * (s + d) + c
    xs += [x3, x3 + d + s]
    x5 = x3 + 2 * d + s + c
    xs += [x5, x5 + d + s]
    top, bottom = H * 2 // 100, H - H * 2 // 100
    lit_sets = ["abcdef", "bc", "abged", "abgcd", "fgbc", "afgcd", "afgedc", "abc", "abcdefg",
                "abcdfg"]
    on, off, bon, boff, back = colours
    draw.rectangle((l0, t0, r0 - 1, b0 - 1), fill=back)
    for i, dv in enumerate(digits):
        l, t, r, b = l0 + xs[i], t0 + top, l0 + xs[i] + d, t0 + bottom
        q, hh = (r - l) >> 2, (b - t) >> 1
        hq = q >> 1
        segs = {
            "a": ((l + hq + 2, t, r - hq - 2, t + q), True),
            "f": ((l, t + hq, l + q, t + hh), False),
            "e": ((l, b - hh, l + q, b - hq), False),
            "d": ((l + hq + 2, b - q, r - hq - 2, b), True),
            "c": ((r - q, t + hh, r, b - hq), False),
            "b": ((r - q, t + hq, r, t + hh), False),
            "g": ((l + hq + 2, t + hh - hq, r - hq - 2, t + hh + hq), True),
        }
        for key, ((x0, y0, x1, y1), horiz) in segs.items():
            if horiz:
                T = (y1 - y0) >> 1
                pts = [(x0, y0 + T), (x0 + T, y0), (x1 - T, y0), (x1, y0 + T), (x1 - T, y1),
                       (x0 + T, y1)]
            else:
                T = (x1 - x0) >> 1
                pts = [(x0 + T, y0), (x1, y0 + T), (x1, y1 - T), (x0 + T, y1), (x0, y1 - T),
                       (x0, y0 + T)]
            lit = key in lit_sets[dv]
            draw.polygon(pts, fill=on if lit else off, outline=bon if lit else boff)
    rr = c // 4
    for cxp in (l0 + 2 * (s + d) + c // 2, l0 + xs[3] + d + c // 2):
        for cyp in (t0 + 3 * (H >> 3), t0 + 6 * (H >> 3)):
            draw.ellipse((cxp - rr, cyp - rr, cxp + rr, cyp + rr), fill=on, outline=bon)
    small = ImageFont.truetype(os.path.join(FONT_DIR, "DejaVuSansCondensed.ttf"), 8)
    draw.text((r0 - 12, t0 + 2), "AM", font=small, fill=on)
    draw.text((r0 - 12, t0 + 12), "PM", font=small, fill=off)


def preview(skin, theme, lay, width, height, dpi, bg, strip, out_dir, outlines):
    img = bg.copy()
    d = ImageDraw.Draw(img)
    warnings = []
    for name, (rect, pt, bold, align, style) in lay["fields"].items():
        text = LONG_SAMPLES.get(name, SAMPLES[name]) if style == "long" else SAMPLES[name]
        if name == "date" and style != "long":
            text = "9/30/2026"
        px = font_px(pt, dpi)
        font = ImageFont.truetype(SANS_BOLD if bold else SANS, px)
        l, t, r, b = rect
        asc, desc = font.getmetrics()
        tw = d.textlength(text, font=font)
        if tw > r - l:
            warnings.append(f"{skin} {width}x{height} {name}: '{text}' is {tw:.0f} px wide, "
                            f"rect {r - l}")
        if asc + desc > b - t:
            warnings.append(f"{skin} {width}x{height} {name}: line {asc + desc} px, rect {b - t}")
        y = t + (b - t - (asc + desc)) // 2
        x = {"left": l, "center": l + (r - l - tw) / 2, "right": r - tw}[align]
        colour = hex_rgb(theme["text"].get(name, theme["text"]["value"]))
        layer = Image.new("RGBA", img.size, (0, 0, 0, 0))
        ImageDraw.Draw(layer).text((x, y), text, font=font, fill=colour + (255,))
        clip = Image.new("L", img.size, 0)
        ImageDraw.Draw(clip).rectangle((l, t, r - 1, b - 1), fill=255)
        img.paste(layer, (0, 0), Image.composite(layer, Image.new("RGBA", img.size), clip))
        if outlines:
            ImageDraw.Draw(img).rectangle((l, t, r - 1, b - 1), outline=(255, 0, 255))
    d = ImageDraw.Draw(img)
    dg = theme["dig"]
    seven_segment(d, lay["dig"], tuple(hex_rgb(dg[k]) for k in
                                        ("fillOn", "fillOff", "borderOn", "borderOff",
                                         "backFill")), [1, 1, 5, 8, 3, 0])
    mx, my, ms = lay["moon"]
    img.paste(strip.crop((2 * ms, 0, 3 * ms, ms)), (mx, my))
    cl, ct, cr, cb = lay["clock_rect"]
    cx, cy = cl + (cr - cl) // 2, ct + (cb - ct) // 2
    R = lay["radius"]
    # The hands as the clock draws them: a fan of one-pixel lines from a base
    # 2 * size class + 1 pixels wide to a tip at 8/7 of the nominal length.
    size_class = 3 if R > 100 else 2 if R > 50 else 1
    for index, scale_pct, colour in ((9, 74, theme["minute"]), (50, 52, theme["hour"])):
        L = R * scale_pct // 100
        a = math.radians(index * 6)
        tip = (cx + math.sin(a) * L * 8 / 7, cy - math.cos(a) * L * 8 / 7)
        vertical = 10 <= index <= 20 or 40 <= index <= 50
        for o in range(-size_class, size_class + 1):
            base = (cx, cy + o) if vertical else (cx + o, cy)
            d.line([base, tip], fill=hex_rgb(colour))
    a = math.radians(30 * 6)
    L = R * 75 / 100 * 8 / 7
    d.line([(cx, cy), (cx + math.sin(a) * L, cy - math.cos(a) * L)],
           fill=hex_rgb(theme["second"]))
    if outlines:
        d.rectangle((cl, ct, cr - 1, cb - 1), outline=(0, 255, 0))
    suffix = "_outlines" if outlines else ""
    img.save(os.path.join(out_dir, f"{skin}_{width}x{height}{suffix}.png"))
    return warnings


# ---------------------------------------------------------------------------


def save_png(img, path):
    # No time stamps or other chunks that change from run to run.
    img.save(path, "PNG", optimize=True)


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--preview", metavar="DIR", help="also draw previews into DIR")
    args = parser.parse_args()
    os.makedirs(OUT, exist_ok=True)
    if args.preview:
        os.makedirs(args.preview, exist_ok=True)
    warnings = []
    for skin_name, theme in THEMES.items():
        skin = f"{skin_name}.xml"
        for width, height, layout_name, scale, dpi in PROFILES:
            lay = resolve(layout_name, theme, width, scale)
            bg = draw_background(theme, lay, width, height, scale, dpi)
            mx, my, ms = lay["moon"]
            strip = draw_moon_strip(theme, ms, bg.crop((mx, my, mx + ms, my + ms)))
            save_png(bg, os.path.join(OUT, f"{skin_name}_bg_{width}x{height}.png"))
            save_png(strip, os.path.join(OUT, f"{skin_name}_moon_{width}x{height}.png"))
            with open(os.path.join(OUT, f"{skin}_{width}x{height}.xml"), "w",
                      encoding="utf-8", newline="\n") as f:
                f.write(scheme_xml(skin_name, theme, lay, width, height))
            if args.preview:
                for outlines in (False, True):
                    w = preview(skin_name, theme, lay, width, height, dpi, bg, strip,
                                args.preview, outlines)
                    if not outlines:
                        warnings += w
    for w in warnings:
        print("warning:", w, file=sys.stderr)


if __name__ == "__main__":
    main()
