#!/usr/bin/env python3
"""Writes the skeleton, atlas and page files used by the skeletal runtime's
tests, fuzz seeds and samples.

    python3 tools/spinegen/spinegen.py [repository root]

Outputs (all deterministic):
  tests/spine/data/full.json|.atlas|.png   every attachment, timeline and
                                            constraint type the reader knows
  tests/spine/data/walker.json|.atlas|.png  small character, also the sample
  samples/spine/walker/...                  the same character as a sample
  samples/packages/sticker_spine_mouth/     a face sticker on two atlas pages
  samples/packages/head_picture/            a dancer that carries a head picture
  samples/packages/score_progress/          a bar that a score fills
"""
import json
import math
import os
import struct
import sys
import zlib

# --------------------------------------------------------------------------
# Page images: plain RGBA PNG with one coloured block per region.


def png_bytes(width, height, blocks):
    """blocks: list of (x, y, w, h, (r, g, b, a)) painted over transparency."""
    pixels = bytearray(width * height * 4)
    for bx, by, bw, bh, colour in blocks:
        for y in range(by, min(by + bh, height)):
            for x in range(bx, min(bx + bw, width)):
                i = (y * width + x) * 4
                pixels[i:i + 4] = bytes(colour)
    raw = bytearray()
    for y in range(height):
        raw.append(0)  # filter: none
        raw += pixels[y * width * 4:(y + 1) * width * 4]

    def chunk(kind, data):
        body = kind + data
        return struct.pack(">I", len(data)) + body + struct.pack(">I", zlib.crc32(body) & 0xffffffff)

    header = struct.pack(">IIBBBBB", width, height, 8, 6, 0, 0, 0)
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) +
            chunk(b"IDAT", zlib.compress(bytes(raw), 9)) + chunk(b"IEND", b""))


# --------------------------------------------------------------------------
# Atlas text.

PALETTE = [(230, 80, 80, 255), (80, 200, 90, 255), (80, 120, 230, 255), (230, 200, 60, 255),
           (200, 90, 220, 255), (70, 210, 210, 255), (240, 150, 60, 255), (150, 150, 150, 255)]


def atlas_text(page, size, regions):
    """regions: list of dicts with name, x, y, w, h and optional rotate,
    split, pad, orig, offset, index."""
    lines = [page, "size: %d,%d" % size, "format: RGBA8888", "filter: Linear,Linear", "repeat: none"]
    for r in regions:
        lines.append(r["name"])
        lines.append("  rotate: %s" % ("true" if r.get("rotate") else "false"))
        lines.append("  xy: %d, %d" % (r["x"], r["y"]))
        lines.append("  size: %d, %d" % (r["w"], r["h"]))
        if "split" in r:
            lines.append("  split: %d, %d, %d, %d" % tuple(r["split"]))
            if "pad" in r:
                lines.append("  pad: %d, %d, %d, %d" % tuple(r["pad"]))
        orig = r.get("orig", (r["w"], r["h"]))
        lines.append("  orig: %d, %d" % orig)
        lines.append("  offset: %d, %d" % r.get("offset", (0, 0)))
        lines.append("  index: %d" % r.get("index", -1))
    return "\n".join(lines) + "\n"


def page_blocks(regions):
    blocks = []
    for i, r in enumerate(regions):
        w, h = (r["h"], r["w"]) if r.get("rotate") else (r["w"], r["h"])
        blocks.append((r["x"], r["y"], w, h, PALETTE[i % len(PALETTE)]))
    return blocks


# --------------------------------------------------------------------------
# The "full" skeleton: one of everything.

FULL_REGIONS = [
    {"name": "body", "x": 0, "y": 0, "w": 64, "h": 96},
    {"name": "head", "x": 64, "y": 0, "w": 48, "h": 48, "orig": (56, 52), "offset": (4, 2)},
    {"name": "head-alt", "x": 112, "y": 0, "w": 48, "h": 48},
    {"name": "belly", "x": 64, "y": 48, "w": 40, "h": 32, "rotate": True},
    {"name": "cape", "x": 0, "y": 96, "w": 64, "h": 64, "split": (4, 4, 4, 4), "pad": (2, 2, 2, 2)},
    {"name": "cape-alt", "x": 64, "y": 96, "w": 64, "h": 64},
    {"name": "glow", "x": 128, "y": 96, "w": 32, "h": 32, "index": 0},
]


def full_skeleton():
    bones = [
        {"name": "root"},
        {"name": "hip", "parent": "root", "y": 40, "length": 20},
        {"name": "torso", "parent": "hip", "y": 20, "rotation": 90, "length": 60},
        {"name": "head", "parent": "torso", "x": 60, "length": 30, "shearX": 5, "shearY": -5},
        {"name": "upperArm", "parent": "torso", "x": 50, "rotation": -90, "length": 40},
        {"name": "lowerArm", "parent": "upperArm", "x": 40, "length": 40},
        {"name": "hand", "parent": "lowerArm", "x": 40, "length": 10},
        {"name": "armTarget", "parent": "root", "x": 60, "y": 60},
        {"name": "lookTarget", "parent": "root", "x": -50, "y": 150},
        {"name": "follower", "parent": "root", "x": 100, "scaleX": 1.5, "scaleY": 0.5},
        {"name": "tail1", "parent": "hip", "x": -10, "length": 30},
        {"name": "tail2", "parent": "tail1", "x": 30, "length": 30},
        {"name": "noRotation", "parent": "torso", "x": 10, "inheritRotation": False},
        {"name": "noScale", "parent": "torso", "x": 20, "inheritScale": False},
    ]
    slots = [
        {"name": "body", "bone": "torso", "attachment": "body"},
        {"name": "head", "bone": "head", "color": "ffeeddcc", "attachment": "head"},
        {"name": "belly", "bone": "hip", "attachment": "belly"},
        {"name": "cape", "bone": "torso", "attachment": "cape", "blend": "multiply"},
        {"name": "capeLinked", "bone": "torso", "attachment": "capeLinked", "blend": "screen"},
        {"name": "hitbox", "bone": "hip", "attachment": "hitbox"},
        {"name": "tailPath", "bone": "root", "attachment": "tailPath"},
        {"name": "glow", "bone": "hand", "attachment": "glow", "blend": "additive"},
    ]
    # Weighted cape: four vertices, each on torso (2) and hip (1).
    cape_vertices = []
    for x, y in [(-30, 0), (30, 0), (30, 60), (-30, 60)]:
        cape_vertices += [2, 2, x, y, 0.75, 1, x, y + 20, 0.25]
    default_skin = {
        "body": {"body": {"x": 30, "y": -5, "rotation": -90, "width": 64, "height": 96}},
        "head": {"head": {"x": 15, "rotation": -90, "width": 56, "height": 52, "color": "ffffffff"}},
        "belly": {"belly": {"type": "mesh", "uvs": [0, 0, 1, 0, 1, 1, 0, 1], "triangles": [0, 1, 2, 2, 3, 0],
                            "vertices": [-20, -16, 20, -16, 20, 16, -20, 16], "hull": 4,
                            "edges": [0, 2, 2, 4, 4, 6, 6, 0], "width": 40, "height": 32}},
        "cape": {"cape": {"type": "mesh", "uvs": [0, 1, 1, 1, 1, 0, 0, 0], "triangles": [0, 1, 2, 2, 3, 0],
                          "vertices": cape_vertices, "hull": 4, "width": 64, "height": 64}},
        "hitbox": {"hitbox": {"type": "boundingbox", "vertexCount": 4,
                              "vertices": [-25, -10, 25, -10, 25, 50, -25, 50]}},
        "tailPath": {"tailPath": {"type": "path", "closed": False, "constantSpeed": True, "vertexCount": 6,
                                  "vertices": [-10, 40, 0, 40, 10, 40, 40, 40, 50, 40, 60, 40],
                                  "lengths": [60, 60]}},
        "glow": {"glow": {"width": 32, "height": 32}},
    }
    # Linked meshes share their parent's slot: one after its parent, one
    # before (the reader resolves parents after all skins), one from another
    # skin.
    default_skin["cape"]["capeFlat"] = {"type": "linkedmesh", "path": "cape-alt", "parent": "cape",
                                        "deform": False}
    default_skin["capeLinked"] = {
        "capeLinked": {"type": "linkedmesh", "path": "cape-alt", "parent": "capeBase"},
        "capeBase": {"type": "mesh", "path": "cape", "uvs": [0, 0, 1, 0, 0, 1], "triangles": [0, 1, 2],
                     "vertices": [0, 0, 30, 0, 0, 30]},
    }
    alt_skin = {
        "head": {"head": {"name": "head", "path": "head-alt", "x": 15, "rotation": -90, "width": 48,
                          "height": 48}},
        "cape": {"cape": {"type": "linkedmesh", "path": "cape-alt", "parent": "cape", "skin": "default",
                          "deform": True, "width": 64, "height": 64}},
    }
    all_timelines = {
        "bones": {
            "torso": {
                "rotate": [{"time": 0, "angle": 0, "curve": [0.25, 0, 0.75, 1]},
                           {"time": 0.5, "angle": 30, "curve": "stepped"}, {"time": 1, "angle": -30}],
                "translate": [{"time": 0, "x": 0, "y": 0}, {"time": 1, "x": 10, "y": -5}],
                "scale": [{"time": 0, "x": 1, "y": 1}, {"time": 1, "x": 1.2, "y": 0.8}],
                "shear": [{"time": 0, "x": 0, "y": 0}, {"time": 1, "x": 10, "y": 0}],
            },
            "armTarget": {"translate": [{"time": 0}, {"time": 1, "x": 20, "y": 10}]},
        },
        "slots": {
            "head": {"color": [{"time": 0, "color": "ffffffff"}, {"time": 1, "color": "ff000080"}],
                     "attachment": [{"time": 0, "name": "head"}, {"time": 0.5, "name": None},
                                    {"time": 0.75, "name": "head"}]},
        },
        "ik": {"armIk": [{"time": 0, "mix": 1, "bendPositive": False}, {"time": 1, "mix": 0.5, "bendPositive": True}]},
        "transform": {"follow": [{"time": 0, "rotateMix": 1, "translateMix": 1, "scaleMix": 1, "shearMix": 1},
                                 {"time": 1, "rotateMix": 0, "translateMix": 0.5, "scaleMix": 0.5, "shearMix": 0}]},
        "paths": {"tail": {"position": [{"time": 0, "position": 0}, {"time": 1, "position": 0.5}],
                           "spacing": [{"time": 0, "spacing": 0}, {"time": 1, "spacing": 5}],
                           "mix": [{"time": 0}, {"time": 1, "rotateMix": 0.5, "translateMix": 0.25}]}},
        "deform": {"default": {
            "belly": {"belly": [{"time": 0}, {"time": 1, "offset": 2, "vertices": [5, 5, 5, 5]}]},
            "cape": {"cape": [{"time": 0}, {"time": 1, "vertices": [0, 10, 0, 10, 0, 10, 0, 10,
                                                                    0, 10, 0, 10, 0, 10, 0, 10]}]},
        }},
        "drawOrder": [{"time": 0.25, "offsets": [{"slot": "head", "offset": -1}, {"slot": "glow", "offset": -3}]},
                      {"time": 0.75}],
        "events": [{"time": 0, "name": "footstep"}, {"time": 0.5, "name": "shout", "string": "hey"},
                   {"time": 1, "name": "footstep", "int": 2, "float": 0.25}],
    }
    walk = {
        "bones": {
            "hip": {"translate": [{"time": 0, "y": 0}, {"time": 0.25, "y": 4}, {"time": 0.5, "y": 0}]},
            "upperArm": {"rotate": [{"time": 0, "angle": 20}, {"time": 0.25, "angle": -20}, {"time": 0.5, "angle": 20}]},
        },
        "events": [{"time": 0.25, "name": "footstep"}],
    }
    return {
        "skeleton": {"hash": "full-0001", "spine": "1.0", "width": 200, "height": 300},
        "bones": bones,
        "slots": slots,
        "ik": [{"name": "armIk", "bones": ["upperArm", "lowerArm"], "target": "armTarget", "bendPositive": False},
               {"name": "lookIk", "bones": ["head"], "target": "lookTarget", "mix": 0.5}],
        "transform": [{"name": "follow", "bones": ["follower"], "target": "torso", "rotation": 10, "x": 5, "y": 2,
                       "scaleX": 0.1, "scaleY": 0.1, "shearY": 3, "rotateMix": 1, "translateMix": 1,
                       "scaleMix": 0.5, "shearMix": 0.5}],
        "path": [{"name": "tail", "bones": ["tail1", "tail2"], "target": "tailPath", "positionMode": "percent",
                  "spacingMode": "length", "rotateMode": "chainScale", "rotation": 0, "position": 0, "spacing": 0}],
        "skins": {"default": default_skin, "alt": alt_skin},
        "events": {"footstep": {"int": 1, "float": 0.5, "string": "left"}, "shout": {}},
        "animations": {"all": all_timelines, "walk": walk},
    }


# --------------------------------------------------------------------------
# The walker: a small character for the sample and smoke tests.

WALKER_REGIONS = [
    {"name": "torso", "x": 0, "y": 0, "w": 40, "h": 60},
    {"name": "head", "x": 40, "y": 0, "w": 40, "h": 40},
    {"name": "limb", "x": 80, "y": 0, "w": 12, "h": 40},
]


def walker_skeleton():
    bones = [{"name": "root"},
             {"name": "hip", "parent": "root", "y": 70},
             {"name": "torso", "parent": "hip", "rotation": 90, "length": 60},
             {"name": "head", "parent": "torso", "x": 60, "length": 40}]
    slots = [{"name": "torso", "bone": "torso", "attachment": "torso"},
             {"name": "head", "bone": "head", "attachment": "head"}]
    skin = {"torso": {"torso": {"x": 30, "rotation": -90, "width": 40, "height": 60}},
            "head": {"head": {"x": 20, "rotation": -90, "width": 40, "height": 40}}}
    for side, sign in (("left", -1), ("right", 1)):
        bones.append({"name": side + "Thigh", "parent": "hip", "x": 10 * sign, "rotation": -90, "length": 40})
        bones.append({"name": side + "Shin", "parent": side + "Thigh", "x": 40, "length": 40})
        bones.append({"name": side + "Foot", "parent": "root", "x": 10 * sign})
        bones.append({"name": side + "Arm", "parent": "torso", "x": 55, "y": 20 * sign, "rotation": 180,
                      "length": 40})
        for limb in ("Thigh", "Shin", "Arm"):
            slots.append({"name": side + limb, "bone": side + limb, "attachment": "limb"})
            skin[side + limb] = {"limb": {"x": 20, "rotation": -90, "width": 12, "height": 40}}
    ik = [{"name": side + "Leg", "bones": [side + "Thigh", side + "Shin"], "target": side + "Foot",
           "bendPositive": False} for side in ("left", "right")]
    walk = {"bones": {}, "events": [{"time": 0, "name": "step"}, {"time": 0.5, "name": "step"}]}
    for side, phase in (("left", 0), ("right", 0.5)):
        keys = []
        for i in range(5):
            t = i * 0.25
            s = ((t + phase) % 1.0)
            x = -20 + 80 * s if s < 0.5 else 60 - 80 * s
            y = 10 if 0.5 <= s < 1.0 and abs(s - 0.75) < 0.2 else 0
            keys.append({"time": t, "x": x, "y": y})
        walk["bones"][side + "Foot"] = {"translate": keys}
        walk["bones"][side + "Arm"] = {"rotate": [{"time": 0, "angle": 20 if phase else -20},
                                                  {"time": 0.5, "angle": -20 if phase else 20},
                                                  {"time": 1, "angle": 20 if phase else -20}]}
    walk["bones"]["hip"] = {"translate": [{"time": 0, "y": 0, "curve": [0.5, 0, 0.5, 1]},
                                          {"time": 0.25, "y": 5, "curve": [0.5, 0, 0.5, 1]},
                                          {"time": 0.5, "y": 0}, {"time": 0.75, "y": 5}, {"time": 1, "y": 0}]}
    idle = {"bones": {"torso": {"rotate": [{"time": 0, "angle": 0}, {"time": 1, "angle": 3}, {"time": 2, "angle": 0}]},
                      "head": {"rotate": [{"time": 0, "angle": 0}, {"time": 1, "angle": -5}, {"time": 2, "angle": 0}]}}}
    return {"skeleton": {"hash": "walker-0001", "spine": "1.0", "width": 120, "height": 200},
            "bones": bones, "slots": slots, "ik": ik, "skins": {"default": skin},
            "events": {"step": {}}, "animations": {"walk": walk, "idle": idle, "animation": idle}}


# --------------------------------------------------------------------------
# Sample sticker packages: art drawn with the sticker-frame canvas, atlases of
# one or more pages. Skeletons are authored for a face whose eyes are 260
# units apart, the distance at which a face-bound sticker is drawn at scale 1.


def _canvas_module():
    """The sticker-frame canvas of scripts/gen_sticker_frames.py."""
    import importlib
    here = os.path.dirname(os.path.abspath(__file__))
    scripts = os.path.normpath(os.path.join(here, "..", "..", "scripts"))
    if scripts not in sys.path:
        sys.path.insert(0, scripts)
    return importlib.import_module("gen_sticker_frames")


def heart_points(cx, cy, size, steps=72):
    pts = []
    for i in range(steps):
        t = 2 * math.pi * i / steps
        x = 16 * math.sin(t) ** 3
        y = 13 * math.cos(t) - 5 * math.cos(2 * t) - 2 * math.cos(3 * t) - math.cos(4 * t)
        pts.append((cx + x * size / 34.0, cy - y * size / 34.0))
    return pts


def star_points(cx, cy, outer, inner, n=5):
    pts = []
    for i in range(2 * n):
        r = outer if i % 2 == 0 else inner
        a = -math.pi / 2 + math.pi * i / n
        pts.append((cx + r * math.cos(a), cy + r * math.sin(a)))
    return pts


def multi_atlas_text(pages):
    """pages: list of (file, (w, h), regions)."""
    return "\n".join(atlas_text(name, size, regions) for name, size, regions in pages)


def mouth_sticker(folder):
    """Hearts (page 1) and bubbles (page 2) that burst from the mouth."""
    gsf = _canvas_module()
    hearts = gsf.Canvas(256, 128)
    for i, rgb in enumerate([(235, 60, 90), (250, 120, 160), (200, 40, 140)]):
        cx = 42 + i * 86
        hearts.polygon(heart_points(cx, 62, 76), rgb)
        hearts.disc(cx - 16, 46, 8, (255, 255, 255), 0.55)
    bubbles = gsf.Canvas(256, 128)
    for i, rgb in enumerate([(90, 190, 250), (120, 230, 200), (250, 210, 90)]):
        cx = 42 + i * 86
        bubbles.disc(cx, 64, 38, rgb, 0.45)
        bubbles.disc(cx, 64, 38, rgb, 1.0, ring=5)
        bubbles.disc(cx - 13, 50, 8, (255, 255, 255), 0.85)
    os.makedirs(folder, exist_ok=True)
    gsf.write_png(os.path.join(folder, "mouth_puff.png"), 256, 128, hearts.px)
    gsf.write_png(os.path.join(folder, "mouth_puff2.png"), 256, 128, bubbles.px)
    heart_regions = [{"name": "heart%d" % i, "x": 2 + 86 * i, "y": 20, "w": 80, "h": 84} for i in range(3)]
    bubble_regions = [{"name": "bubble%d" % i, "x": 2 + 86 * i, "y": 24, "w": 80, "h": 80} for i in range(3)]
    write(os.path.join(folder, "mouth_puff.atlas"),
          multi_atlas_text([("mouth_puff.png", (256, 128), heart_regions),
                            ("mouth_puff2.png", (256, 128), bubble_regions)]))
    bones = [{"name": "root"}]
    slots, skin, anim_bones, anim_slots = [], {}, {}, {}
    # Six pieces fan out below and beside the mouth, growing, then fading.
    fan = [("heart0", 200), ("bubble0", 235), ("heart1", 270), ("bubble1", 305), ("heart2", 340),
           ("bubble2", 160)]
    for k, (region, angle) in enumerate(fan):
        name = "piece%d" % k
        bones.append({"name": name, "parent": "root"})
        slots.append({"name": name, "bone": name, "attachment": region})
        skin[name] = {region: {"width": 200, "height": 210 if region.startswith("heart") else 200}}
        dx, dy = math.cos(math.radians(angle)), math.sin(math.radians(angle))
        delay = 0.1 * (k % 3)
        reach = 330 + 60 * (k % 2)
        anim_bones[name] = {
            "translate": [{"time": 0, "x": 0, "y": 0}, {"time": delay, "x": 0, "y": 0},
                          {"time": 1.2, "x": round(dx * reach, 2), "y": round(dy * reach, 2)}],
            "scale": [{"time": 0, "x": 0.3, "y": 0.3}, {"time": delay, "x": 0.3, "y": 0.3},
                      {"time": 0.8, "x": 1.0, "y": 1.0}, {"time": 1.2, "x": 1.1, "y": 1.1}],
            "rotate": [{"time": 0, "angle": 0}, {"time": 1.2, "angle": 40 if k % 2 else -40}],
        }
        anim_slots[name] = {"color": [{"time": 0, "color": "ffffffff"}, {"time": 0.9, "color": "ffffffff"},
                                      {"time": 1.2, "color": "ffffff00"}]}
    skeleton = {"skeleton": {"hash": "mouthpuff-0001", "spine": "1.0", "width": 400, "height": 400},
                "bones": bones, "slots": slots, "skins": {"default": skin},
                "animations": {"animation": {"bones": anim_bones, "slots": anim_slots}}}
    write(os.path.join(folder, "mouth_puff.json"), json.dumps(skeleton, indent=1) + "\n")
    config = {"version": 1, "param": [{
        "id": "puff", "type": "anim", "subType": "face", "loop": "1",
        "spine": {"spine_name": "mouth_puff", "boneMap": {"root": "220"}, "animation": "animation"},
        "triggeredBy": [{"category": "mouthopen"}], "terminatedBy": [{"category": "mouthclose"}]}]}
    write(os.path.join(folder, "config.json"), json.dumps(config, indent=2) + "\n")


def head_dancer(folder):
    """A full-screen dancer whose head bone carries the host's head picture,
    cut by a round mask and set in a gold ring."""
    gsf = _canvas_module()
    page = gsf.Canvas(256, 256)
    # Body: a torso dress and two arms.
    page.polygon([(20, 10), (108, 10), (124, 150), (4, 150)], (120, 70, 200))
    page.polygon([(20, 10), (108, 10), (96, 40), (32, 40)], (160, 110, 230))
    page.polygon([(136, 10), (156, 10), (156, 110), (136, 110)], (240, 190, 150))
    page.polygon([(170, 10), (190, 10), (190, 110), (170, 110)], (240, 190, 150))
    os.makedirs(folder, exist_ok=True)
    gsf.write_png(os.path.join(folder, "dancer.png"), 256, 256, page.px)
    regions = [{"name": "dress", "x": 4, "y": 10, "w": 120, "h": 140},
               {"name": "arm", "x": 136, "y": 10, "w": 20, "h": 100}]
    write(os.path.join(folder, "dancer.atlas"), atlas_text("dancer.png", (256, 256), regions))
    mask = gsf.Canvas(128, 128)
    mask.disc(64, 64, 60, (255, 255, 255))
    gsf.write_png(os.path.join(folder, "head_mask.png"), 128, 128, mask.px)
    ring = gsf.Canvas(128, 128)
    ring.disc(64, 64, 62, (240, 190, 60), 1.0, ring=7)
    gsf.write_png(os.path.join(folder, "head_frame.png"), 128, 128, ring.px)
    bones = [{"name": "root", "x": 0, "y": 60},
             {"name": "body", "parent": "root", "y": 140, "rotation": 90, "length": 140},
             {"name": "head", "parent": "body", "x": 200},
             {"name": "leftArm", "parent": "body", "x": 120, "y": 70, "rotation": 150, "length": 100},
             {"name": "rightArm", "parent": "body", "x": 120, "y": -70, "rotation": -150, "length": 100}]
    slots = [{"name": "leftArm", "bone": "leftArm", "attachment": "arm"},
             {"name": "rightArm", "bone": "rightArm", "attachment": "arm"},
             {"name": "dress", "bone": "body", "attachment": "dress"},
             {"name": "head", "bone": "head"}]
    skin = {"dress": {"dress": {"x": 70, "rotation": -90, "width": 240, "height": 280}},
            "leftArm": {"arm": {"x": 50, "rotation": -90, "width": 40, "height": 200}},
            "rightArm": {"arm": {"x": 50, "rotation": -90, "width": 40, "height": 200}}}
    dance = {"bones": {
        "body": {"rotate": [{"time": 0, "angle": -8}, {"time": 0.5, "angle": 8}, {"time": 1, "angle": -8}]},
        "root": {"translate": [{"time": 0, "x": 0, "y": 0}, {"time": 0.25, "x": 0, "y": 20},
                               {"time": 0.5, "x": 0, "y": 0}, {"time": 0.75, "x": 0, "y": 20},
                               {"time": 1, "x": 0, "y": 0}]},
        "leftArm": {"rotate": [{"time": 0, "angle": 30}, {"time": 0.5, "angle": -20}, {"time": 1, "angle": 30}]},
        "rightArm": {"rotate": [{"time": 0, "angle": -30}, {"time": 0.5, "angle": 20}, {"time": 1, "angle": -30}]},
        "head": {"rotate": [{"time": 0, "angle": 10}, {"time": 0.5, "angle": -10}, {"time": 1, "angle": 10}]}}}
    skeleton = {"skeleton": {"hash": "dancer-0001", "spine": "1.0", "width": 300, "height": 600},
                "bones": bones, "slots": slots, "skins": {"default": skin},
                "animations": {"animation": dance}}
    write(os.path.join(folder, "dancer.json"), json.dumps(skeleton, indent=1) + "\n")
    config = {"version": 1, "param": [{
        "id": "dancer", "type": "anim", "subType": "screen", "loop": "1",
        "spine": {"spine_name": "dancer"},
        "texHead": [{"id": "h1", "spineName": "dancer", "boneName": "head", "mask": "head_mask",
                     "frameName": "head_frame", "frame": {"w": "150", "h": "150"}}]}]}
    write(os.path.join(folder, "config.json"), json.dumps(config, indent=2) + "\n")


def score_bar(folder):
    """A bar whose clip "spine_ani" fills it from empty to full in 2 s, with a
    star that rides on its end; scrubbed by a score, never by the clock."""
    gsf = _canvas_module()
    page = gsf.Canvas(256, 64)
    page.polygon([(2, 2), (202, 2), (202, 30), (2, 30)], (40, 40, 60), 0.85)
    page.polygon([(2, 34), (202, 34), (202, 60), (2, 60)], (80, 220, 120))
    page.polygon(star_points(230, 32, 22, 10), (255, 215, 60))
    os.makedirs(folder, exist_ok=True)
    gsf.write_png(os.path.join(folder, "score_bar.png"), 256, 64, page.px)
    regions = [{"name": "track", "x": 2, "y": 2, "w": 200, "h": 28},
               {"name": "fill", "x": 2, "y": 34, "w": 200, "h": 26},
               {"name": "star", "x": 208, "y": 10, "w": 44, "h": 44}]
    write(os.path.join(folder, "score_bar.atlas"), atlas_text("score_bar.png", (256, 64), regions))
    bones = [{"name": "root", "y": 1150}, {"name": "fill", "parent": "root", "x": -200},
             {"name": "tip", "parent": "root", "x": -200}]
    slots = [{"name": "track", "bone": "root", "attachment": "track"},
             {"name": "fill", "bone": "fill", "attachment": "fill"},
             {"name": "star", "bone": "tip", "attachment": "star"}]
    # The fill's left edge stays at x = -200 while it widens to 400.
    skin = {"track": {"track": {"width": 408, "height": 56}},
            "fill": {"fill": {"x": 200, "width": 400, "height": 48}},
            "star": {"star": {"width": 88, "height": 88}}}
    clip = {"bones": {
        "fill": {"scale": [{"time": 0, "x": 0.0, "y": 1}, {"time": 2, "x": 1, "y": 1}],
                 "translate": [{"time": 0, "x": 0, "y": 0}, {"time": 2, "x": 0, "y": 0}]},
        "tip": {"translate": [{"time": 0, "x": 0, "y": 0}, {"time": 2, "x": 400, "y": 0}],
                "rotate": [{"time": 0, "angle": 0}, {"time": 2, "angle": -360}]}}}
    skeleton = {"skeleton": {"hash": "scorebar-0001", "spine": "1.0", "width": 500, "height": 100},
                "bones": bones, "slots": slots, "skins": {"default": skin},
                "animations": {"spine_ani": clip, "animation": clip}}
    write(os.path.join(folder, "score_bar.json"), json.dumps(skeleton, indent=1) + "\n")
    # As a package the bar fills by the clock (its default clip); a game
    # scrubs "spine_ani" with a progress node instead.
    config = {"version": 1, "param": [{
        "id": "score", "type": "anim", "subType": "screen", "loop": "1",
        "syncPosBoneName": ["tip"], "spine": {"spine_name": "score_bar"}}]}
    write(os.path.join(folder, "config.json"), json.dumps(config, indent=2) + "\n")


# --------------------------------------------------------------------------


def write(path, data):
    os.makedirs(os.path.dirname(path), exist_ok=True)
    mode = "wb" if isinstance(data, bytes) else "w"
    with open(path, mode) as f:
        f.write(data)


def emit(directory, name, skeleton, regions, size):
    write(os.path.join(directory, name + ".json"), json.dumps(skeleton, indent=1, sort_keys=False) + "\n")
    write(os.path.join(directory, name + ".atlas"), atlas_text(name + ".png", size, regions))
    write(os.path.join(directory, name + ".png"), png_bytes(size[0], size[1], page_blocks(regions)))


def main():
    root = sys.argv[1] if len(sys.argv) > 1 else os.path.join(os.path.dirname(__file__), "..", "..")
    data = os.path.join(root, "tests", "spine", "data")
    emit(data, "full", full_skeleton(), FULL_REGIONS, (256, 256))
    emit(data, "walker", walker_skeleton(), WALKER_REGIONS, (128, 64))
    emit(os.path.join(root, "samples", "spine", "walker"), "walker", walker_skeleton(), WALKER_REGIONS, (128, 64))
    packages = os.path.join(root, "samples", "packages")
    mouth_sticker(os.path.join(packages, "sticker_spine_mouth"))
    head_dancer(os.path.join(packages, "head_picture"))
    score_bar(os.path.join(packages, "score_progress"))


if __name__ == "__main__":
    main()
