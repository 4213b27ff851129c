#!/usr/bin/env python3
"""Draws the pictures laid on faces, all in the 700 x 1004 design image of
the standard face (scripts/gen_face_assets.py: the oval 400 wide and 520 high
centred at (350, 480), y counted from the bottom; picture rows count from the
top, so a design point (x, y) is pixel (x, 1004 - y)):

- assets/shader/swapface/swapface.png: the soft mask of the face swap, opaque
  over brows, eyes, nose, mouth and cheeks, fading to nothing before the
  contour and the forehead, so that a swapped face has no seam.
- samples/packages/mask_2d/carnival.png: a carnival mask in our own colours
  (a violet domino with a gold rim over the eyes, a star on the forehead,
  paint drops on the cheeks), with its config.json.

Pure Python; premultiplied RGBA, as the engine blends (one, one minus source
alpha).

    scripts/gen_face_masks.py
"""
import json
import math
import os
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from gen_sticker_frames import Canvas, write_png  # noqa: E402

W, H = 700, 1004
ROOT = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..")


def smoothstep(e0, e1, x):
    t = max(0.0, min(1.0, (x - e0) / (e1 - e0)))
    return t * t * (3 - 2 * t)


def swap_mask():
    """Alpha by the normalised distance from the face centre on an ellipse
    through brows (597), chin (220) and cheeks: 1 up to 0.8, 0 from 0.98."""
    cx, cy, ax, ay = 350.0, 425.0, 185.0, 210.0
    px = bytearray(W * H * 4)
    for row in range(H):
        y = H - row - 0.5
        for x in range(W):
            r = math.hypot((x + 0.5 - cx) / ax, (y - cy) / ay)
            a = 1.0 - smoothstep(0.8, 0.98, r)
            if a <= 0:
                continue
            v = int(255 * a + 0.5)
            i = (row * W + x) * 4
            px[i:i + 4] = bytes((v, v, v, v))
    path = os.path.join(ROOT, "assets", "shader", "swapface")
    os.makedirs(path, exist_ok=True)
    write_png(os.path.join(path, "swapface.png"), W, H, px)


def carnival():
    c = Canvas(W, H)
    up = lambda x, y: (x, H - y)  # design point to picture pixel
    violet, gold, rose, teal = (92, 38, 160), (236, 184, 60), (226, 70, 130), (40, 170, 170)
    eyes = [(270.0, 532.0), (430.0, 532.0)]
    # The domino: two lobes round the eyes joined over the bridge, eye holes cut.
    for row in range(H - 620, H - 440):
        y = H - row - 0.5
        for x in range(170, 531):
            lobe = min(math.hypot((x + 0.5 - ex) / 88.0, (y - ey) / 62.0) for ex, ey in eyes)
            bridge = abs(x + 0.5 - 350) < 60 and 515 < y < 570
            hole = min(math.hypot((x + 0.5 - ex) / 40.0, (y - ey) / 22.0) for ex, ey in eyes)
            if hole < 1.0:
                continue
            if lobe <= 1.0 or bridge:
                rim = lobe > 0.88 or hole < 1.18
                c.blend(x, row, gold if rim else violet, 1.0)
    # A star on the forehead, above the brows.
    cx, cy = up(350, 655)
    pts = []
    for k in range(10):
        r = 30 if k % 2 == 0 else 13
        t = -math.pi / 2 + k * math.pi / 5
        pts.append((cx + r * math.cos(t), cy + r * math.sin(t)))
    c.polygon(pts, gold)
    # Paint drops on the cheeks.
    for (x, y), rgb in (((250, 430), rose), ((228, 400), teal), ((450, 430), rose), ((472, 400), teal)):
        px, py = up(x, y)
        c.disc(px, py, 11, rgb)
    folder = os.path.join(ROOT, "samples", "packages", "mask_2d")
    os.makedirs(folder, exist_ok=True)
    write_png(os.path.join(folder, "carnival.png"), W, H, c.px)
    config = {"version": 1, "param": [{"type": "mask", "id": "carnival", "subType": "mask",
                                       "typemesh": "default", "images": ["carnival.png"]}]}
    with open(os.path.join(folder, "config.json"), "w") as f:
        json.dump(config, f, indent=4)
        f.write("\n")


if __name__ == "__main__":
    swap_mask()
    carnival()
