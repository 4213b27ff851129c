#!/usr/bin/env python3
"""Draws the style filters' pictures: the sketch look's pencil hatching
(assets/shader/filter/filterimg/filtersketch.png) and the sky dome sample's
sky (samples/packages/style_skydome/sky.png), and writes the three sample
packages' config files. Pure Python (zlib and struct only); seeded, so a
rerun gives the same bytes.

    scripts/gen_style_assets.py [repository root]
"""
import json
import math
import os
import random
import struct
import sys
import zlib


def write_png(path, width, height, pixels):
    """pixels: bytearray of width * height * 4, top row first."""
    def chunk(tag, body):
        return struct.pack(">I", len(body)) + tag + body + struct.pack(">I", zlib.crc32(tag + body) & 0xFFFFFFFF)
    rows = b"".join(b"\x00" + bytes(pixels[y * width * 4:(y + 1) * width * 4]) for y in range(height))
    data = b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", width, height, 8, 6, 0, 0, 0))
    data += chunk(b"IDAT", zlib.compress(rows, 9)) + chunk(b"IEND", b"")
    os.makedirs(os.path.dirname(path), exist_ok=True)
    with open(path, "wb") as f:
        f.write(data)


def hatching(size=512, seed=7):
    """Pencil strokes on paper: two families of diagonal lines, each stroke
    of random length and pressure, over a faintly grained light paper. The
    sketch look shows it in the picture's mid tones."""
    rng = random.Random(seed)
    ink = [0.0] * (size * size)
    for angle, count in ((math.radians(35), 900), (math.radians(-55), 500)):
        dx, dy = math.cos(angle), math.sin(angle)
        for _ in range(count):
            cx, cy = rng.uniform(0, size), rng.uniform(0, size)
            length = rng.uniform(20, 70)
            pressure = rng.uniform(0.25, 0.6)
            steps = int(length)
            for s in range(steps):
                t = s - steps / 2
                # Strokes taper at both ends, as a pencil lifts.
                taper = math.sin(math.pi * s / steps)
                x = int(cx + dx * t) % size
                y = int(cy + dy * t) % size
                i = y * size + x
                ink[i] = min(1.0, ink[i] + pressure * taper)
    px = bytearray(size * size * 4)
    for i in range(size * size):
        paper = 236 + rng.randint(-6, 6)
        v = int(paper * (1.0 - 0.55 * ink[i]))
        px[i * 4:i * 4 + 4] = bytes((v, v, v, 255))
    return size, size, px


def sky(width=512, height=256, seed=11):
    """An equirectangular sky for the dome: v runs from the top of the dome
    (deep blue) down to the horizon (pale), with soft clouds that wrap
    around in u, and below it a checkered field fading into haze."""
    rng = random.Random(seed)
    clouds = [(rng.uniform(0, 1), rng.uniform(0.22, 0.47), rng.uniform(0.02, 0.05), rng.uniform(0.5, 0.9))
              for _ in range(70)]
    px = bytearray(width * height * 4)
    for y in range(height):
        v = y / (height - 1)  # 0 at the top of the dome
        if v < 0.5:
            k = v / 0.5
            base = (int(30 + 150 * k), int(80 + 140 * k), int(190 + 55 * k))
        else:
            k = (v - 0.5) / 0.5
            base = (int(180 - 60 * k), int(220 - 90 * k), int(245 - 140 * k))
        for x in range(width):
            u = x / width
            if v > 0.56:
                # Ground: a field of two greens in a checker of u and v, so
                # that the dome's mapping shows where the camera looks down.
                dark = (int(u * 24) + int((v - 0.56) / 0.055)) % 2
                haze = max(0.0, 1.0 - (v - 0.56) / 0.12)
                g = (70, 120, 50) if dark else (105, 160, 70)
                c = [int(gc + (bc - gc) * haze) for gc, bc in zip(g, base)]
                i = (y * width + x) * 4
                px[i:i + 4] = bytes((c[0], c[1], c[2], 255))
                continue
            cover = 0.0
            for cu, cv, r, a in clouds:
                # Clouds are long and flat: far wider in u than in v.
                du = min(abs(u - cu), 1 - abs(u - cu)) / 3.0
                d2 = (du * du + (v - cv) ** 2) / (r * r)
                if d2 < 4.0:
                    cover = max(cover, a * math.exp(-d2))
            c = [int(b + (250 - b) * cover) for b in base]
            i = (y * width + x) * 4
            px[i:i + 4] = bytes((c[0], c[1], c[2], 255))
    return width, height, px


def write_config(path, items):
    os.makedirs(os.path.dirname(path), exist_ok=True)
    with open(path, "w") as f:
        json.dump({"version": 1, "param": items}, f, indent=4)
        f.write("\n")


def main():
    root = sys.argv[1] if len(sys.argv) > 1 else os.path.join(os.path.dirname(__file__), "..")
    w, h, px = hatching()
    write_png(os.path.join(root, "assets/shader/filter/filterimg/filtersketch.png"), w, h, px)
    packages = os.path.join(root, "samples/packages")
    write_config(os.path.join(packages, "style_sketch/config.json"),
                 [{"type": "EffectFilter", "id": "sketch", "subType": "EFFECT_SKETCH"}])
    write_config(os.path.join(packages, "style_shake/config.json"),
                 [{"type": "EffectFilter", "id": "shake", "subType": "EFFECT_SHAKE"}])
    w, h, px = sky()
    write_png(os.path.join(packages, "style_skydome/sky.png"), w, h, px)
    write_config(os.path.join(packages, "style_skydome/config.json"),
                 [{"id": "sky", "SkyDome": {"TexturePath": "sky.png"}}])


if __name__ == "__main__":
    main()
