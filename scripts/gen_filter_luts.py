#!/usr/bin/env python3
"""Authors the look-up images of the named colour looks under
assets/shader/filter/filterimg/.

Nobody gave us these images, so every one is computed here from a stated
recipe. Three kinds exist, by the way the look's shader samples them:

* Colour cubes. A cube of N levels per channel is laid out as blue slices
  in tiles, left to right and top to bottom; inside a tile red grows to the
  right and green downwards (row 0 of the file is the top, which is where the
  engine's texture coordinate 0 lies). 16 levels make a 64 x 64 image of 4 x 4
  tiles, 64 levels a 512 x 512 image of 8 x 8 tiles. The cell value is the
  look's grade (below) applied to the cell's colour.
* Channel curves: 256 x 3 images whose first, second and third row hold the
  red, green and blue curve (sampled at heights 1/6, 1/2 and 5/6), or 256 x 1
  images sampled at half height with one curve per channel.
* Two-way maps: 256 x 256 images sampled at (x, channel value), where x is a
  luma or the squared distance from the picture's centre.

A grade is a fixed chain of simple steps (see Grade), with numbers chosen so
that each look reads as its name: "pink" is pink, "snow" cold and bright,
"vintage" faded and warm, and so on. The output is deterministic: plain
Python arithmetic, rounded once per channel, zlib at level 9.

Run from the repository root: python3 scripts/gen_filter_luts.py
"""
import math
import os
import struct
import zlib

OUT_DIR = os.path.join("assets", "shader", "filter", "filterimg")


# --------------------------------------------------------------------------
# PNG writing (8-bit RGB).

def filtered(rows):
    """Each row with the PNG filter (none, sub or up) whose bytes sum least as
    signed values: the usual choice, and it makes smooth tables small."""
    out = []
    previous = bytes(len(rows[0]))
    for row in rows:
        row = bytes(row)
        sub = bytes((row[i] - (row[i - 3] if i >= 3 else 0)) & 0xFF for i in range(len(row)))
        up = bytes((row[i] - previous[i]) & 0xFF for i in range(len(row)))
        cost = lambda data: sum(v if v < 128 else 256 - v for v in data)
        kind, data = min(((0, row), (1, sub), (2, up)), key=lambda c: cost(c[1]))
        out.append(bytes((kind,)) + data)
        previous = row
    return b"".join(out)


def write_png(path, width, height, rows):
    """rows: a list of `height` bytearrays of width * 3 bytes, top row first."""
    raw = filtered(rows)

    def chunk(kind, data):
        body = kind + data
        return struct.pack(">I", len(data)) + body + struct.pack(">I", zlib.crc32(body) & 0xFFFFFFFF)

    header = struct.pack(">IIBBBBB", width, height, 8, 2, 0, 0, 0)
    with open(path, "wb") as f:
        f.write(b"\x89PNG\r\n\x1a\n")
        f.write(chunk(b"IHDR", header))
        f.write(chunk(b"IDAT", zlib.compress(raw, 9)))
        f.write(chunk(b"IEND", b""))


def to_byte(v):
    return max(0, min(255, int(v * 255.0 + 0.5)))


def clamp01(v):
    return 0.0 if v < 0.0 else 1.0 if v > 1.0 else v


# --------------------------------------------------------------------------
# Grading steps. Colours are floats in 0..1.

def s_curve(v, amount):
    """Contrast around mid grey: amount 0 is the identity, 1 a strong S."""
    if amount == 0.0:
        return v
    smooth = v * v * (3.0 - 2.0 * v)
    return v + (smooth - v) * amount if amount > 0 else v + (v - smooth) * -amount


def luma(r, g, b):
    return 0.299 * r + 0.587 * g + 0.114 * b


class Grade:
    """One look, applied in this order:
    1. exposure: multiply by 2^exposure;
    2. white balance: red + warmth, blue - warmth, green + tint (times 0.1);
    3. per-channel gamma (r, g, b): v^(1/gamma);
    4. contrast: an S-curve of the given strength per channel;
    5. saturation: mix from the luma grey by the factor;
    6. split toning: shadows and highlights pulled towards their colours,
       weighted by (1 - luma)^2 and luma^2 times the strength;
    7. fade: output = lift + v * (1 - lift - cut), raising blacks and
       lowering whites;
    8. mono: when set, all channels are the luma of the result.
    """

    def __init__(self, exposure=0.0, warmth=0.0, tint=0.0, gamma=(1.0, 1.0, 1.0), contrast=0.0,
                 saturation=1.0, shadows=None, highlights=None, split=0.0, lift=0.0, cut=0.0, mono=False):
        self.exposure = 2.0 ** exposure
        self.warmth = warmth * 0.1
        self.tint = tint * 0.1
        self.gamma = gamma
        self.contrast = contrast
        self.saturation = saturation
        self.shadows = shadows
        self.highlights = highlights
        self.split = split
        self.lift = lift
        self.cut = cut
        self.mono = mono
        # Steps 1 to 4 act on each channel alone: tabulate them once.
        self.tables = [self._channel_table(c) for c in range(3)]

    def _channel_table(self, channel):
        shift = (self.warmth, self.tint, -self.warmth)[channel]
        table = []
        for i in range(256):
            v = clamp01(i / 255.0 * self.exposure + shift)
            v = v ** (1.0 / self.gamma[channel])
            table.append(clamp01(s_curve(v, self.contrast)))
        return table

    def apply(self, r, g, b):
        """r, g, b: 0..255 ints. Returns three bytes."""
        r, g, b = self.tables[0][r], self.tables[1][g], self.tables[2][b]
        if self.saturation != 1.0:
            y = luma(r, g, b)
            r = y + (r - y) * self.saturation
            g = y + (g - y) * self.saturation
            b = y + (b - y) * self.saturation
        if self.split:
            y = clamp01(luma(r, g, b))
            if self.shadows:
                w = (1.0 - y) ** 2 * self.split
                r, g, b = (r + (self.shadows[0] - r) * w, g + (self.shadows[1] - g) * w,
                           b + (self.shadows[2] - b) * w)
            if self.highlights:
                w = y * y * self.split
                r, g, b = (r + (self.highlights[0] - r) * w, g + (self.highlights[1] - g) * w,
                           b + (self.highlights[2] - b) * w)
        span = 1.0 - self.lift - self.cut
        r, g, b = (self.lift + clamp01(r) * span, self.lift + clamp01(g) * span, self.lift + clamp01(b) * span)
        if self.mono:
            r = g = b = luma(r, g, b)
        return to_byte(r), to_byte(g), to_byte(b)


# --------------------------------------------------------------------------
# The looks. Names are those of the files the looks ask for.

PINK = (1.0, 0.72, 0.82)
ROSE = (0.95, 0.55, 0.62)
TEAL = (0.1, 0.35, 0.4)
CREAM = (1.0, 0.93, 0.8)
ICE = (0.82, 0.9, 1.0)

LOOKS = {
    # An "original" look is the camera picture made a little richer.
    "origin": Grade(contrast=0.12, saturation=1.1),
    "origin02": Grade(contrast=0.15, saturation=1.12, warmth=0.15),
    "pink": Grade(exposure=0.1, tint=-0.4, warmth=0.2, highlights=PINK, split=0.45, lift=0.03),
    "pink01": Grade(exposure=0.12, tint=-0.6, warmth=0.25, highlights=PINK, shadows=(0.4, 0.2, 0.3), split=0.6,
                    lift=0.04),
    "guass": Grade(tint=0.35, gamma=(1.0, 1.08, 1.0), saturation=1.1, lift=0.02),
    "guass01": Grade(tint=0.5, gamma=(0.98, 1.1, 0.98), saturation=1.15, contrast=0.1),
    "grass": Grade(tint=0.45, warmth=0.1, gamma=(1.0, 1.1, 0.95), saturation=1.2, contrast=0.12),
    "beach": Grade(exposure=0.12, warmth=0.3, shadows=TEAL, highlights=CREAM, split=0.35, saturation=1.1),
    "beach01": Grade(exposure=0.15, warmth=0.35, shadows=TEAL, highlights=CREAM, split=0.5, saturation=1.15,
                     contrast=0.1),
    "sweety": Grade(exposure=0.1, warmth=0.2, tint=-0.2, saturation=0.9, lift=0.06, highlights=PINK, split=0.25),
    "sweety01": Grade(exposure=0.14, warmth=0.25, tint=-0.25, saturation=0.88, lift=0.08, highlights=PINK,
                      split=0.3),
    "sweety02": Grade(exposure=0.15, warmth=0.25, tint=-0.3, saturation=0.92, lift=0.07, highlights=PINK,
                      split=0.35, contrast=-0.05),
    "nature": Grade(tint=0.2, warmth=0.1, saturation=1.2, contrast=0.08),
    "nature01": Grade(tint=0.25, warmth=0.15, saturation=1.25, contrast=0.1, gamma=(1.0, 1.05, 1.0)),
    "nature02": Grade(tint=0.3, warmth=0.15, saturation=1.3, contrast=0.12, gamma=(1.0, 1.06, 0.97)),
    "clean": Grade(exposure=0.15, warmth=-0.1, saturation=0.92, contrast=-0.05),
    "clean01": Grade(exposure=0.2, warmth=-0.15, saturation=0.9, contrast=-0.08, lift=0.02),
    "clean02": Grade(exposure=0.22, warmth=-0.2, saturation=0.88, contrast=-0.1, lift=0.03),
    "fresh": Grade(exposure=0.15, warmth=-0.25, tint=0.2, saturation=1.05, highlights=(0.85, 1.0, 0.95), split=0.2),
    "fresh01": Grade(exposure=0.18, warmth=-0.3, tint=0.25, saturation=1.08, highlights=(0.85, 1.0, 0.95),
                     split=0.3),
    "coral": Grade(warmth=0.45, tint=-0.2, saturation=1.1, highlights=(1.0, 0.6, 0.45), split=0.3),
    "coral01": Grade(warmth=0.5, tint=-0.25, saturation=1.15, highlights=(1.0, 0.58, 0.45), split=0.4,
                     contrast=0.08),
    "sunset": Grade(warmth=0.8, tint=-0.15, gamma=(1.1, 0.98, 0.85), saturation=1.2, contrast=0.15,
                    shadows=(0.35, 0.1, 0.3), highlights=(1.0, 0.65, 0.3), split=0.45),
    "vivid": Grade(contrast=0.35, saturation=1.5),
    "lolita": Grade(exposure=0.1, tint=-0.45, saturation=0.85, lift=0.08, shadows=(0.45, 0.3, 0.55),
                    highlights=(1.0, 0.8, 0.92), split=0.45),
    "rosy": Grade(warmth=0.3, tint=-0.5, gamma=(1.08, 0.97, 1.0), highlights=ROSE, split=0.4, saturation=1.05),
    "urban": Grade(warmth=-0.3, saturation=0.6, contrast=0.3, shadows=(0.1, 0.2, 0.3), split=0.3),
    "vintage": Grade(warmth=0.35, gamma=(1.0, 0.97, 0.8), saturation=0.6, contrast=-0.1, lift=0.1, cut=0.06,
                     shadows=(0.3, 0.25, 0.15), highlights=(1.0, 0.9, 0.7), split=0.35),
    "kisskiss": Grade(warmth=0.35, tint=-0.55, saturation=1.3, contrast=0.15, highlights=(1.0, 0.5, 0.6),
                      split=0.35),
    "snow": Grade(exposure=0.35, warmth=-0.5, saturation=0.55, contrast=-0.1, lift=0.06, highlights=ICE,
                  split=0.5),
    "glossy": Grade(exposure=0.05, contrast=0.28, saturation=1.25, highlights=(1.0, 0.97, 0.92), split=0.25),
}

# File name, look, levels per channel (16 or 64).
CUBES = [
    ("origin_0721.png", "origin", 16),
    ("origin_20170824.png", "origin02", 64),
    ("pink.png", "pink", 16),
    ("pink_20170620.png", "pink01", 64),
    ("guass.png", "guass", 16),
    ("grass_0901.png", "guass01", 16),
    ("grass_20170621.png", "grass", 64),
    ("beach_0701.png", "beach", 16),
    ("beach_20170520.png", "beach01", 64),
    ("sweety_0819.png", "sweety", 16),
    ("sweety_0830.png", "sweety01", 16),
    ("sweety_20170620.png", "sweety02", 64),
    ("nature_0819.png", "nature", 16),
    ("nature_0830.png", "nature01", 16),
    ("nature_20170824.png", "nature02", 64),
    ("clean_0819.png", "clean", 16),
    ("clean_0826.png", "clean01", 16),
    ("clean_0830.png", "clean02", 16),
    ("fresh_0901.png", "fresh", 16),
    ("fresh_20170620.png", "fresh01", 64),
    ("coral_0901.png", "coral", 16),
    ("coral_20170620.png", "coral01", 64),
    ("sunset_20170620.png", "sunset", 64),
    ("vivid_20170620.png", "vivid", 64),
    ("lolita_20170620.png", "lolita", 64),
    ("rosy_20170804.png", "rosy", 64),
    ("urban_20170520.png", "urban", 64),
    ("vintage_20170520.png", "vintage", 64),
    ("kisskiss_20170620.png", "kisskiss", 64),
    ("snow_20170704.png", "snow", 64),
    ("glossy_20170620.png", "glossy", 64),
]


def cube_rows(grade, levels):
    tiles = int(round(math.sqrt(levels)))
    side = tiles * levels
    rows = [bytearray(side * 3) for _ in range(side)]
    scale = 255.0 / (levels - 1)
    values = [int(i * scale + 0.5) for i in range(levels)]
    for blue in range(levels):
        tile_row, tile_col = divmod(blue, tiles)
        for gi in range(levels):
            row = rows[tile_row * levels + gi]
            for ri in range(levels):
                x = (tile_col * levels + ri) * 3
                row[x:x + 3] = bytes(grade.apply(values[ri], values[gi], values[blue]))
    return side, rows


# --------------------------------------------------------------------------
# Curve images.

def curve(points):
    """A piecewise-linear curve through (x, y) pairs in 0..255, as 256 floats 0..1."""
    out = []
    for i in range(256):
        for (x0, y0), (x1, y1) in zip(points, points[1:]):
            if x0 <= i <= x1:
                t = 0.0 if x1 == x0 else (i - x0) / (x1 - x0)
                out.append((y0 + (y1 - y0) * t) / 255.0)
                break
    return out


def three_row_image(red, green, blue):
    rows = []
    for c in (red, green, blue):
        row = bytearray(256 * 3)
        for i in range(256):
            row[i * 3:i * 3 + 3] = bytes((to_byte(c[i]),) * 3)
        rows.append(row)
    return 256, 3, rows


def channel_row_image(red, green, blue):
    """256 x 1: red, green and blue curves in their own channels."""
    row = bytearray(256 * 3)
    for i in range(256):
        row[i * 3:i * 3 + 3] = bytes((to_byte(red[i]), to_byte(green[i]), to_byte(blue[i])))
    return 256, 1, [row]


def map_image(fn):
    """256 x 256: pixel (x, y) is fn(x / 255, y / 255) -> (r, g, b) in 0..1,
    where y is the channel value that the shader looks up (row 0 on top)."""
    rows = []
    for y in range(256):
        row = bytearray(256 * 3)
        for x in range(256):
            row[x * 3:x * 3 + 3] = bytes(to_byte(v) for v in fn(x / 255.0, y / 255.0))
        rows.append(row)
    return 256, 256, rows


IDENTITY = curve([(0, 0), (255, 255)])


def gradient_map(shadow, highlight, strength):
    """A luma-driven tint: a channel value c at luma l moves towards the
    colour of the shadow-highlight gradient at l, by the given strength."""
    def fn(l, c):
        tone = [shadow[k] + (highlight[k] - shadow[k]) * l for k in range(3)]
        return [c + (tone[k] * (0.5 + c) - c) * strength for k in range(3)]
    return fn


def vignette_map(strength, warmth):
    """Darkens a channel value c as the squared distance d from the centre grows."""
    def fn(d, c):
        fall = 1.0 - strength * d * d
        return [clamp01(c * fall * (1.0 + warmth)), clamp01(c * fall), clamp01(c * fall * (1.0 - warmth))]
    return fn


CURVE_IMAGES = {
    # Nashville: warm and pink, lifted blacks, blues pulled into the shadows.
    "nashville_ma.png": three_row_image(curve([(0, 56), (128, 160), (255, 250)]),
                                        curve([(0, 38), (128, 138), (255, 236)]),
                                        curve([(0, 98), (128, 130), (255, 190)])),
    # Valencia: a soft warm fade before its luma map.
    "valencia_ma.png": three_row_image(curve([(0, 30), (128, 150), (255, 255)]),
                                       curve([(0, 20), (128, 132), (255, 240)]),
                                       curve([(0, 30), (128, 115), (255, 215)])),
    "valencia_ma_01.png": three_row_image(curve([(0, 40), (128, 156), (255, 255)]),
                                          curve([(0, 28), (128, 136), (255, 242)]),
                                          curve([(0, 34), (128, 112), (255, 205)])),
    "valencia_gr.png": map_image(gradient_map((0.35, 0.2, 0.25), (1.0, 0.9, 0.7), 0.35)),
    "valencia_gr_01.png": map_image(gradient_map((0.4, 0.22, 0.2), (1.0, 0.85, 0.65), 0.45)),
    # Walden: washed-out yellow with a raised floor, then a vignette.
    "walden_ma.png": three_row_image(curve([(0, 20), (128, 160), (255, 255)]),
                                     curve([(0, 30), (128, 150), (255, 250)]),
                                     curve([(0, 70), (128, 120), (255, 190)])),
    "walden_ma_01.png": three_row_image(curve([(0, 28), (128, 166), (255, 255)]),
                                        curve([(0, 36), (128, 154), (255, 248)]),
                                        curve([(0, 80), (128, 118), (255, 180)])),
    "vignette_ma.png": map_image(vignette_map(0.35, 0.02)),
    "vignette_ma_01.png": map_image(vignette_map(0.5, 0.04)),
    # Brannan: five curves, all read at half height, one per channel.
    "brannan_pr.png": channel_row_image(curve([(0, 50), (128, 150), (255, 255)]),
                                        curve([(0, 0), (128, 128), (255, 230)]),
                                        curve([(0, 40), (128, 120), (255, 200)])),
    "brannan_bl.png": channel_row_image(curve([(0, 0), (128, 110), (255, 255)]),
                                        curve([(0, 0), (128, 110), (255, 255)]),
                                        curve([(0, 0), (128, 105), (255, 240)])),
    "brannan_co.png": channel_row_image(curve([(0, 0), (64, 40), (192, 215), (255, 255)]),
                                        curve([(0, 0), (64, 42), (192, 212), (255, 255)]),
                                        curve([(0, 0), (64, 45), (192, 205), (255, 245)])),
    "brannan_lu.png": channel_row_image(curve([(0, 30), (255, 240)]), curve([(0, 25), (255, 235)]),
                                        curve([(0, 20), (255, 210)])),
    "brannan_sc.png": channel_row_image(curve([(0, 10), (128, 135), (255, 250)]),
                                        curve([(0, 10), (128, 130), (255, 245)]),
                                        curve([(0, 15), (128, 120), (255, 225)])),
    # Inkwell: grey through a contrast curve (only the red of the first row is read).
    "inkwell_ma.png": three_row_image(*([curve([(0, 0), (64, 48), (192, 210), (255, 255)])] * 3)),
    "inkwell_ma_01.png": three_row_image(*([curve([(0, 20), (64, 60), (192, 200), (255, 240)])] * 3)),
}


def main():
    os.makedirs(OUT_DIR, exist_ok=True)
    written = 0
    for name, look, levels in CUBES:
        side, rows = cube_rows(LOOKS[look], levels)
        write_png(os.path.join(OUT_DIR, name), side, side, rows)
        written += 1
    for name, (width, height, rows) in CURVE_IMAGES.items():
        write_png(os.path.join(OUT_DIR, name), width, height, rows)
        written += 1
    print("wrote %d images into %s" % (written, OUT_DIR))


if __name__ == "__main__":
    main()
