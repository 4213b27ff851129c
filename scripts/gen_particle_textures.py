#!/usr/bin/env python3
"""Writes the particle images of the sample packages: a heart, a sparkle
and a confetti strip, white on transparent so that the particle colour
tints them, with premultiplied colour (the "normal" blend takes it so).
Pure Python (zlib and struct only).

    scripts/gen_particle_textures.py
"""
import math
import os
import struct
import zlib

SIZE = 64
SAMPLES = 4  # per axis, for smooth edges
ROOT = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "samples", "packages")


def write_png(path, rows):
    def chunk(kind, data):
        body = kind + data
        return struct.pack(">I", len(data)) + body + struct.pack(">I", zlib.crc32(body) & 0xFFFFFFFF)

    raw = b"".join(b"\x00" + bytes(row) for row in rows)
    png = b"\x89PNG\r\n\x1a\n"
    png += chunk(b"IHDR", struct.pack(">IIBBBBB", SIZE, SIZE, 8, 6, 0, 0, 0))
    png += chunk(b"IDAT", zlib.compress(raw, 9))
    png += chunk(b"IEND", b"")
    with open(path, "wb") as out:
        out.write(png)


def render(coverage):
    """coverage(x, y) in -1..1 (y up) gives 0..1; white, premultiplied."""
    rows = []
    for py in range(SIZE):
        row = []
        for px in range(SIZE):
            total = 0.0
            for sy in range(SAMPLES):
                for sx in range(SAMPLES):
                    x = (px + (sx + 0.5) / SAMPLES) / SIZE * 2 - 1
                    y = 1 - (py + (sy + 0.5) / SAMPLES) / SIZE * 2
                    total += coverage(x, y)
            a = round(255 * min(1.0, total / SAMPLES ** 2))
            row += [a, a, a, a]
        rows.append(row)
    return rows


def heart(x, y):
    x, y = x * 1.3, y * 1.3 + 0.15
    return 1.0 if (x * x + y * y - 1) ** 3 - x * x * y ** 3 <= 0 else 0.0


def sparkle(x, y):
    r = math.hypot(x, y)
    # A four-pointed star with a soft glow around its centre.
    star = 1.0 if abs(x) * abs(y) < 0.012 and r < 0.95 else 0.0
    glow = max(0.0, 1 - r / 0.45) ** 2
    return min(1.0, star + glow)


def confetti(x, y):
    return 1.0 if abs(x) < 0.8 and abs(y) < 0.4 else 0.0


if __name__ == "__main__":
    for package, name, shape in (("particle_hearts", "heart", heart), ("particle_sparkles", "sparkle", sparkle),
                                 ("particle_confetti", "confetti_red", confetti), ("particle_confetti", "confetti_yellow", confetti),
                                 ("particle_confetti", "confetti_blue", confetti)):
        folder = os.path.join(ROOT, package)
        os.makedirs(folder, exist_ok=True)
        write_png(os.path.join(folder, name + ".png"), render(shape))
        print(os.path.join(folder, name + ".png"))
