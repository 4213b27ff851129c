#!/usr/bin/env python3
"""Composes samples/photos/two_faces.png (512 x 512) for the face swap: the
sample photo's 256-pixel column around its face on the left, and the same
column mirrored with its colour channels turned (red, green, blue taken from
green, blue, red) on the right, so that the two faces differ in colour and a
swap shows at once whose pixels went where. Pure Python.

    scripts/make_two_face_photo.py
"""
import os
import struct
import sys
import zlib

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from gen_sticker_frames import write_png  # noqa: E402

ROOT = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..")
LEFT = 97  # first column of the crop: the face (about x 180 to 270) in its middle


def read_png(path):
    """8-bit RGB or RGBA, not interlaced: (width, height, channels, rows)."""
    data = open(path, "rb").read()
    assert data[:8] == b"\x89PNG\r\n\x1a\n"
    pos, idat, ihdr = 8, b"", None
    while pos < len(data):
        length, tag = struct.unpack(">I4s", data[pos:pos + 8])
        body = data[pos + 8:pos + 8 + length]
        if tag == b"IHDR":
            ihdr = struct.unpack(">IIBBBBB", body)
        elif tag == b"IDAT":
            idat += body
        pos += 12 + length
    w, h, depth, ctype, _, _, interlace = ihdr
    assert depth == 8 and ctype in (2, 6) and interlace == 0
    ch = 3 if ctype == 2 else 4
    raw = zlib.decompress(idat)
    stride = w * ch
    rows, prev = [], bytearray(stride)
    for y in range(h):
        f = raw[y * (stride + 1)]
        line = bytearray(raw[y * (stride + 1) + 1:(y + 1) * (stride + 1)])
        for i in range(stride):
            a = line[i - ch] if i >= ch else 0
            b = prev[i]
            c = prev[i - ch] if i >= ch else 0
            if f == 1:
                line[i] = (line[i] + a) & 255
            elif f == 2:
                line[i] = (line[i] + b) & 255
            elif f == 3:
                line[i] = (line[i] + (a + b) // 2) & 255
            elif f == 4:
                p = a + b - c
                pa, pb, pc = abs(p - a), abs(p - b), abs(p - c)
                line[i] = (line[i] + (a if pa <= pb and pa <= pc else b if pb <= pc else c)) & 255
        rows.append(line)
        prev = line
    return w, h, ch, rows


def main():
    w, h, ch, rows = read_png(os.path.join(ROOT, "samples", "photos", "astronaut.png"))
    out = bytearray(512 * 512 * 4)
    for y in range(512):
        for x in range(256):
            s = (LEFT + x) * ch
            r, g, b = rows[y][s], rows[y][s + 1], rows[y][s + 2]
            i = (y * 512 + x) * 4
            out[i:i + 4] = bytes((r, g, b, 255))
            j = (y * 512 + 511 - x) * 4
            out[j:j + 4] = bytes((g, b, r, 255))
    write_png(os.path.join(ROOT, "samples", "photos", "two_faces.png"), 512, 512, out)


if __name__ == "__main__":
    main()
