#!/usr/bin/env python3
"""Writes the PNG test images of the texture tests, with the decoded bytes
each one must give, using only the standard library (zlib + struct).

For every image NAME.png it also writes NAME.expect: the bytes the engine's
decoder has to deliver, computed here from the formulas, not by a decoder:
  - grey of depth d < 8 is scaled to 8 bits as v * 255 / (2^d - 1);
  - 16-bit samples keep their high byte;
  - grey and palette become RGB; a tRNS chunk (or an alpha channel) gives RGBA,
    with alpha 0 where a pixel equals the tRNS colour and 255 elsewhere;
  - RGBA pixels are premultiplied: c = c * (a + 1) >> 8, alpha unchanged.
The first byte of NAME.expect is the channel count (3 or 4), then width,
height as 16-bit little-endian, then the rows top to bottom.

Broken copies: bad_signature.png, truncated.png (half of rgba8.png),
bad_crc.png (IDAT checksum wrong), bad_zlib.png (IDAT data scrambled with a
correct checksum), empty.png (no bytes), short.png (4 bytes).

Run from the repository root:  python3 tools/testimages/make_pngs.py
"""
import os
import struct
import zlib

OUT = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "tests", "render", "data")

SIG = b"\x89PNG\r\n\x1a\n"


def chunk(kind, data):
    body = kind + data
    return struct.pack(">I", len(data)) + body + struct.pack(">I", zlib.crc32(body) & 0xFFFFFFFF)


def paeth(a, b, c):
    p = a + b - c
    pa, pb, pc = abs(p - a), abs(p - b), abs(p - c)
    if pa <= pb and pa <= pc:
        return a
    return b if pb <= pc else c


def filter_row(ftype, row, prev, bpp):
    """PNG filter of one scanline; bpp is bytes per complete pixel (at least 1)."""
    out = bytearray([ftype])
    for i, x in enumerate(row):
        a = row[i - bpp] if i >= bpp else 0
        b = prev[i] if prev is not None else 0
        c = prev[i - bpp] if (prev is not None and i >= bpp) else 0
        pred = [0, a, b, (a + b) // 2, paeth(a, b, c)][ftype]
        out.append((x - pred) & 0xFF)
    return out


def pack_row(samples, depth):
    """Samples of one row to bytes at the given bit depth, MSB first."""
    if depth == 8:
        return bytearray(samples)
    if depth == 16:
        out = bytearray()
        for s in samples:
            out += struct.pack(">H", s)
        return out
    out = bytearray()
    per = 8 // depth
    for i in range(0, len(samples), per):
        byte = 0
        group = samples[i:i + per]
        for j, s in enumerate(group):
            byte |= s << (8 - depth * (j + 1))
        out.append(byte)
    return out


CHANNELS = {0: 1, 2: 3, 3: 1, 4: 2, 6: 4}

ADAM7 = [(0, 0, 8, 8), (4, 0, 8, 8), (0, 4, 4, 8), (2, 0, 4, 4), (0, 2, 2, 4), (1, 0, 2, 2), (0, 1, 1, 2)]


def encode(width, height, ctype, depth, pixels, interlace=False, plte=None, trns=None):
    """pixels: rows of per-pixel tuples of raw samples (index for palette)."""
    ch = CHANNELS[ctype]
    bpp = max(1, ch * depth // 8)

    def image_data(sub):
        raw = bytearray()
        prev = None
        for y, prow in enumerate(sub):
            samples = [s for px in prow for s in px]
            row = pack_row(samples, depth)
            ftype = y % 5  # every filter type in turn
            raw += filter_row(ftype, row, prev, bpp)
            prev = row
        return raw

    if not interlace:
        raw = image_data(pixels)
    else:
        raw = bytearray()
        for x0, y0, dx, dy in ADAM7:
            sub = [[pixels[y][x] for x in range(x0, width, dx)] for y in range(y0, height, dy)]
            if sub and sub[0]:
                raw += image_data(sub)
    ihdr = struct.pack(">IIBBBBB", width, height, depth, ctype, 0, 0, 1 if interlace else 0)
    out = SIG + chunk(b"IHDR", ihdr)
    if plte is not None:
        out += chunk(b"PLTE", b"".join(bytes(c) for c in plte))
    if trns is not None:
        out += chunk(b"tRNS", trns)
    out += chunk(b"IDAT", zlib.compress(bytes(raw), 9))
    out += chunk(b"IEND", b"")
    return out


def premultiply(r, g, b, a):
    return (r * (a + 1) >> 8, g * (a + 1) >> 8, b * (a + 1) >> 8, a)


def expect_bytes(width, height, rgb_or_rgba):
    ch = len(rgb_or_rgba[0][0])
    out = bytearray([ch]) + struct.pack("<HH", width, height)
    for row in rgb_or_rgba:
        for px in row:
            out += bytes(premultiply(*px) if ch == 4 else px)
    return out


def write(name, png, expect=None):
    with open(os.path.join(OUT, name + ".png"), "wb") as f:
        f.write(png)
    if expect is not None:
        with open(os.path.join(OUT, name + ".expect"), "wb") as f:
            f.write(expect)


def grey_case(name, w, h, depth, trns_value=None, interlace=False):
    top = (1 << depth) - 1
    pix = [[((x * 3 + y * 7) % (top + 1),) for x in range(w)] for y in range(h)]
    to8 = (lambda v: v >> 8) if depth == 16 else (lambda v: v * 255 // top)
    trns = struct.pack(">H", trns_value) if trns_value is not None else None
    exp = []
    for row in pix:
        erow = []
        for (v,) in row:
            g = to8(v)
            if trns_value is None:
                erow.append((g, g, g))
            else:
                erow.append((g, g, g, 0 if v == trns_value else 255))
        exp.append(erow)
    write(name, encode(w, h, 0, depth, pix, interlace, trns=trns), expect_bytes(w, h, exp))


def rgb_case(name, w, h, depth, trns_rgb=None):
    top = (1 << depth) - 1
    pix = [[((x * 50 + 13) * top // 255 % (top + 1), (y * 90 + 7) * top // 255 % (top + 1), ((x + y) * 40) * top // 255 % (top + 1)) for x in range(w)] for y in range(h)]
    if trns_rgb is not None:
        pix[1][2] = trns_rgb  # one pixel made transparent
    to8 = (lambda v: v >> 8) if depth == 16 else (lambda v: v)
    trns = struct.pack(">HHH", *trns_rgb) if trns_rgb is not None else None
    exp = []
    for row in pix:
        erow = []
        for px in row:
            c = tuple(to8(v) for v in px)
            erow.append(c if trns_rgb is None else c + ((0 if px == trns_rgb else 255),))
        exp.append(erow)
    write(name, encode(w, h, 2, depth, pix, trns=trns), expect_bytes(w, h, exp))


def palette_case(name, w, h, depth, with_trns=False):
    n = 1 << depth
    plte = [((i * 37) % 256, (i * 91 + 5) % 256, (255 - i * 23) % 256) for i in range(n)]
    alphas = [(i * 60 + 10) % 256 for i in range(min(n, 3))] if with_trns else None
    pix = [[(((x + 2 * y) % n),) for x in range(w)] for y in range(h)]
    exp = []
    for row in pix:
        erow = []
        for (i,) in row:
            c = plte[i]
            if alphas is None:
                erow.append(c)
            else:
                erow.append(c + ((alphas[i] if i < len(alphas) else 255),))
        exp.append(erow)
    write(name, encode(w, h, 3, depth, pix, plte=plte, trns=bytes(alphas) if alphas else None), expect_bytes(w, h, exp))


def grey_alpha_case(name, w, h, depth):
    top = (1 << depth) - 1
    pix = [[((x * 40 + y * 11) * top // 255, (x * 60 + y * 30) % 256 * top // 255) for x in range(w)] for y in range(h)]
    to8 = (lambda v: v >> 8) if depth == 16 else (lambda v: v)
    exp = [[(to8(g), to8(g), to8(g), to8(a)) for (g, a) in row] for row in pix]
    write(name, encode(w, h, 4, depth, pix), expect_bytes(w, h, exp))


def rgba_pixels(w, h, top):
    return [[((x * 45 + 3) % 256 * top // 255, (y * 70 + 9) % 256 * top // 255, (x * y * 17) % 256 * top // 255,
              [0, 255, 128, 64, 200, 1, 77][(x + y) % 7] * top // 255) for x in range(w)] for y in range(h)]


def rgba_case(name, w, h, depth, interlace=False):
    top = (1 << depth) - 1
    pix = rgba_pixels(w, h, top)
    to8 = (lambda v: v >> 8) if depth == 16 else (lambda v: v)
    exp = [[tuple(to8(v) for v in px) for px in row] for row in pix]
    png = encode(w, h, 6, depth, pix, interlace)
    write(name, png, expect_bytes(w, h, exp))
    return png


def main():
    os.makedirs(OUT, exist_ok=True)
    for d in (1, 2, 4, 8, 16):
        grey_case("grey%d" % d, 5, 3, d)
    grey_case("grey8_trns", 5, 3, 8, trns_value=7)
    grey_case("grey4_interlaced", 9, 7, 4, interlace=True)
    rgb_case("rgb8", 5, 3, 8)
    rgb_case("rgb16", 5, 3, 16)
    rgb_case("rgb8_trns", 5, 3, 8, trns_rgb=(1, 2, 3))
    for d in (1, 2, 4, 8):
        palette_case("palette%d" % d, 5, 3, d)
    palette_case("palette8_trns", 5, 3, 8, with_trns=True)
    palette_case("palette2_trns", 7, 2, 2, with_trns=True)
    grey_alpha_case("greyalpha8", 5, 3, 8)
    grey_alpha_case("greyalpha16", 5, 3, 16)
    rgba = rgba_case("rgba8", 5, 3, 8)
    rgba_case("rgba16", 5, 3, 16)
    rgba_case("rgba8_interlaced", 9, 7, 8, interlace=True)
    rgba_case("rgba8_1x1", 1, 1, 8)
    # A 4 x 4 opaque image with one colour per quadrant, for draw tests.
    quad = [[(255, 0, 0, 255) if x < 2 and y < 2 else (0, 255, 0, 255) if y < 2 else
             (0, 0, 255, 255) if x < 2 else (255, 255, 255, 255) for x in range(4)] for y in range(4)]
    write("quadrants", encode(4, 4, 6, 8, quad), expect_bytes(4, 4, quad))

    # Broken copies of rgba8.png.
    write("bad_signature", b"\x89PNX" + rgba[4:])
    write("truncated", rgba[: len(rgba) // 2])
    idat = rgba.index(b"IDAT")
    length = struct.unpack(">I", rgba[idat - 4:idat])[0]
    bad_crc = bytearray(rgba)
    bad_crc[idat + 4 + length] ^= 0xFF
    write("bad_crc", bytes(bad_crc))
    scrambled = bytearray(rgba[idat + 4:idat + 4 + length])
    for i in range(2, len(scrambled)):
        scrambled[i] ^= 0x5A
    bad_zlib = rgba[:idat - 4] + chunk(b"IDAT", bytes(scrambled)) + rgba[idat + 8 + length:]
    write("bad_zlib", bad_zlib)
    write("empty", b"")
    write("short", SIG[:4])


if __name__ == "__main__":
    main()
