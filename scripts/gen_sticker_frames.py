#!/usr/bin/env python3
"""Draws the frames of the sample sticker packages: a full-screen snowfall,
an atlas of a turning star, and a bubble puff for the open mouth. Pure
Python (zlib and struct only). Pixels are premultiplied RGBA, as the engine
blends flip-book frames (one, one minus source alpha).

    scripts/gen_sticker_frames.py [samples/packages]
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
    with open(path, "wb") as f:
        f.write(data)


class Canvas:
    def __init__(self, width, height):
        self.w, self.h = width, height
        self.px = bytearray(width * height * 4)

    def blend(self, x, y, rgb, alpha):
        """Source-over of a straight colour, kept premultiplied."""
        if not (0 <= x < self.w and 0 <= y < self.h) or alpha <= 0:
            return
        i = (y * self.w + x) * 4
        keep = 1.0 - alpha
        for c in range(3):
            self.px[i + c] = min(255, int(rgb[c] * alpha + self.px[i + c] * keep + 0.5))
        self.px[i + 3] = min(255, int(255 * alpha + self.px[i + 3] * keep + 0.5))

    def disc(self, cx, cy, r, rgb, alpha=1.0, ring=None):
        """A disc (or a ring of this width) with a one-pixel soft edge."""
        for y in range(int(cy - r - 2), int(cy + r + 3)):
            for x in range(int(cx - r - 2), int(cx + r + 3)):
                d = math.hypot(x + 0.5 - cx, y + 0.5 - cy)
                cover = max(0.0, min(1.0, r - d + 0.5))
                if ring is not None:
                    cover = min(cover, max(0.0, min(1.0, d - (r - ring) + 0.5)))
                self.blend(x, y, rgb, cover * alpha)

    def polygon(self, points, rgb, alpha=1.0):
        """Even-odd fill, sampled at pixel centres."""
        xs = [p[0] for p in points]
        ys = [p[1] for p in points]
        for y in range(int(min(ys)), int(max(ys)) + 2):
            for x in range(int(min(xs)), int(max(xs)) + 2):
                px, py, inside = x + 0.5, y + 0.5, False
                for (x0, y0), (x1, y1) in zip(points, points[1:] + points[:1]):
                    if (y0 > py) != (y1 > py) and px < x0 + (py - y0) * (x1 - x0) / (y1 - y0):
                        inside = not inside
                if inside:
                    self.blend(x, y, rgb, alpha)


def snowfall(folder, frames=8):
    """Flakes falling over a 9:16 picture; the loop closes because each flake
    falls a whole period of its column in the eight frames."""
    w, h = 90, 160
    rng = random.Random(7)
    flakes = [(rng.uniform(0, w), rng.uniform(0, h), rng.uniform(1.2, 3.2)) for _ in range(40)]
    names = []
    for f in range(frames):
        c = Canvas(w, h)
        for x, y, r in flakes:
            fy = (y + f * h / frames) % h
            c.disc(x + 3 * math.sin((fy / h) * 2 * math.pi), fy, r, (255, 255, 255), 0.9)
        name = "snow_%02d.png" % f
        write_png(os.path.join(folder, name), w, h, c.px)
        names.append(name)
    return names


def star(c, cx, cy, outer, inner, turn, rgb):
    points = []
    for k in range(10):
        r = outer if k % 2 == 0 else inner
        a = turn + k * math.pi / 5 - math.pi / 2
        points.append((cx + r * math.cos(a), cy + r * math.sin(a)))
    c.polygon(points, rgb)


def star_atlas(folder, frames=8, size=96, columns=4):
    """One atlas page of a star turning a fifth of a turn, trimmed regions
    with their place in the logical frame."""
    rows = (frames + columns - 1) // columns
    page = Canvas(columns * size, rows * size)
    entries, names = [], []
    for f in range(frames):
        c = Canvas(size, size)
        star(c, size / 2, size / 2, size * 0.45, size * 0.2, f * (2 * math.pi / 5) / frames, (255, 200, 40))
        c.disc(size / 2, size / 2, size * 0.08, (255, 120, 0))
        # Trim to the drawn pixels so that the regions exercise the offsets.
        xs = [x for y in range(size) for x in range(size) if c.px[(y * size + x) * 4 + 3]]
        ys = [y for y in range(size) for x in range(size) if c.px[(y * size + x) * 4 + 3]]
        x0, x1, y0, y1 = min(xs), max(xs) + 1, min(ys), max(ys) + 1
        ox, oy = (f % columns) * size, (f // columns) * size
        for y in range(y0, y1):
            src = (y * size + x0) * 4
            dst = ((oy + y - y0) * page.w + ox) * 4
            page.px[dst:dst + (x1 - x0) * 4] = c.px[src:src + (x1 - x0) * 4]
        name = "star_%02d.png" % f
        names.append(name)
        entries.append({"filename": name, "rotated": False, "trimmed": True,
                        "frame": {"x": ox, "y": oy, "w": x1 - x0, "h": y1 - y0},
                        "spriteSourceSize": {"x": x0, "y": y0, "w": x1 - x0, "h": y1 - y0},
                        "sourceSize": {"w": size, "h": size}})
    write_png(os.path.join(folder, "stars.png"), page.w, page.h, page.px)
    with open(os.path.join(folder, "stars.json"), "w") as f:
        json.dump({"frames": entries, "meta": {"image": "stars.png", "size": {"w": page.w, "h": page.h}}},
                  f, indent=1)
    return names


def bubbles(folder, frames=6, size=64):
    """Bubbles rising out of the mouth and growing."""
    names = []
    for f in range(frames):
        c = Canvas(size, size)
        for k in range(4):
            t = ((f + k * frames / 4) % frames) / frames
            cx = size / 2 + (k - 1.5) * 9 + 4 * math.sin(t * 6 + k)
            cy = size * (0.9 - 0.75 * t)
            r = 3 + 9 * t
            c.disc(cx, cy, r, (120, 200, 255), 0.35)
            c.disc(cx, cy, r, (230, 250, 255), 0.95, ring=1.5)
            c.disc(cx - r * 0.35, cy - r * 0.35, max(1.0, r * 0.18), (255, 255, 255), 0.9)
        name = "bubble_%02d.png" % f
        write_png(os.path.join(folder, name), size, size, c.px)
        names.append(name)
    return names


def package(root, name, item, draw):
    folder = os.path.join(root, name)
    os.makedirs(folder, exist_ok=True)
    item["images"] = draw(folder)
    with open(os.path.join(folder, "config.json"), "w") as f:
        json.dump({"version": 1, "param": [item]}, f, indent=2)
        f.write("\n")


def main():
    root = sys.argv[1] if len(sys.argv) > 1 else "samples/packages"
    package(root, "sticker_snow", {"id": "snow", "type": "anim", "subType": "screen",
                                   "mode": "fullscreen", "fps": "12", "loop": "1"}, snowfall)
    package(root, "sticker_star_atlas", {"id": "star", "type": "anim", "subType": "screen",
                                         "mode": "toporigin", "plist": ["stars"], "fps": "10",
                                         "loop": "1"}, star_atlas)
    package(root, "sticker_mouth_bubbles",
            {"id": "bubbles", "type": "anim", "subType": "face", "index": "210", "s": ["2.2", 0],
             "h": [0, "0.9"], "r": "1", "fps": "12", "loop": "1",
             "triggeredBy": [{"category": "mouthopen"}], "terminatedBy": [{"category": "mouthclose"}]},
            bubbles)


if __name__ == "__main__":
    main()
