#!/usr/bin/env python3
"""Crops the same box out of several frames and lays the crops side by side
in one PNG strip, left to right in the order given: the demo's view of a
sticker over a clip. Pure Python; reads PNGs as contact_sheet.py does.

    scripts/frame_strip.py OUT.png X,Y,W,H IN1.png IN2.png ...
"""
import os
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from contact_sheet import read_png, write_png  # noqa: E402

GAP = 4


def main():
    if len(sys.argv) < 4:
        sys.exit(__doc__)
    x0, y0, w, h = (int(v) for v in sys.argv[2].split(","))
    crops = []
    for path in sys.argv[3:]:
        width, height, bpp, rows = read_png(path)
        crop = []
        for y in range(y0, y0 + h):
            row = rows[min(max(y, 0), height - 1)]
            crop.append(b"".join(bytes(row[min(max(x, 0), width - 1) * bpp:][:3]) for x in range(x0, x0 + w)))
        crops.append(crop)
    gap = bytes(GAP * 3)
    strip = [gap.join(crop[y] for crop in crops) for y in range(h)]
    write_png(sys.argv[1], len(crops) * w + (len(crops) - 1) * GAP, h, strip)


if __name__ == "__main__":
    main()
