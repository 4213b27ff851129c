#!/usr/bin/env python3
"""Lays PNG pictures out as one contact sheet of 128-pixel thumbnails, five
to a row, in the order given. Pure Python (zlib and struct only), for the
demo's overview of every colour look.

    scripts/contact_sheet.py OUT.png IN1.png IN2.png ...
"""
import struct
import sys
import zlib

THUMB = 128
COLUMNS = 5


def paeth(a, b, c):
    p = a + b - c
    pa, pb, pc = abs(p - a), abs(p - b), abs(p - c)
    if pa <= pb and pa <= pc:
        return a
    return b if pb <= pc else c


def read_png(path):
    """Width, height, bytes per pixel and the unfiltered rows of an 8-bit
    RGB or RGBA PNG without interlacing (what the engine writes)."""
    data = open(path, "rb").read()
    pos, idat = 8, b""
    while pos < len(data):
        length, = struct.unpack(">I", data[pos:pos + 4])
        kind, body = data[pos + 4:pos + 8], data[pos + 8:pos + 8 + length]
        if kind == b"IHDR":
            width, height, depth, colour = struct.unpack(">IIBB", body[:10])
            if depth != 8 or colour not in (2, 6):
                sys.exit("%s: only 8-bit RGB or RGBA PNGs are read" % path)
        elif kind == b"IDAT":
            idat += body
        pos += 12 + length
    bpp = 3 if colour == 2 else 4
    raw = zlib.decompress(idat)
    stride = width * bpp + 1
    rows, previous = [], bytearray(width * bpp)
    for y in range(height):
        kind = raw[y * stride]
        line = bytearray(raw[y * stride + 1:(y + 1) * stride])
        for x in range(len(line)):
            left = line[x - bpp] if x >= bpp else 0
            up = previous[x]
            corner = previous[x - bpp] if x >= bpp else 0
            if kind == 1:
                line[x] = (line[x] + left) & 255
            elif kind == 2:
                line[x] = (line[x] + up) & 255
            elif kind == 3:
                line[x] = (line[x] + (left + up) // 2) & 255
            elif kind == 4:
                line[x] = (line[x] + paeth(left, up, corner)) & 255
        rows.append(line)
        previous = line
    return width, height, bpp, rows


def thumbnail(path):
    """THUMB x THUMB RGB rows, by nearest sampling."""
    width, height, bpp, rows = read_png(path)
    out = []
    for ty in range(THUMB):
        row = rows[ty * height // THUMB]
        out.append(b"".join(bytes(row[(tx * width // THUMB) * bpp:(tx * width // THUMB) * bpp + 3])
                            for tx in range(THUMB)))
    return out


def write_png(path, width, height, rows):
    def chunk(kind, body):
        return struct.pack(">I", len(body)) + kind + body + struct.pack(">I", zlib.crc32(kind + body) & 0xFFFFFFFF)
    raw = b"".join(b"\x00" + row for row in rows)
    with open(path, "wb") as f:
        f.write(b"\x89PNG\r\n\x1a\n")
        f.write(chunk(b"IHDR", struct.pack(">IIBBBBB", width, height, 8, 2, 0, 0, 0)))
        f.write(chunk(b"IDAT", zlib.compress(raw, 6)))
        f.write(chunk(b"IEND", b""))


def main():
    if len(sys.argv) < 3:
        sys.exit(__doc__)
    thumbs = [thumbnail(path) for path in sys.argv[2:]]
    rows_of_thumbs = (len(thumbs) + COLUMNS - 1) // COLUMNS
    blank = bytes(THUMB * 3)
    sheet = []
    for r in range(rows_of_thumbs):
        for y in range(THUMB):
            sheet.append(b"".join(thumbs[r * COLUMNS + c][y] if r * COLUMNS + c < len(thumbs) else blank
                                  for c in range(COLUMNS)))
    write_png(sys.argv[1], THUMB * COLUMNS, THUMB * rows_of_thumbs, sheet)


if __name__ == "__main__":
    main()
