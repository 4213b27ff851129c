#!/usr/bin/env python3
"""Authors the engine's 3D test and sample models with qzmesh.py.

    tools/meshgen/gen_models.py head OUT_DIR [RINGS SEGMENTS]
        The animoji sample: head.mesh, head.skeleton, head.material,
        head.png, background.png. A textured head (an ellipsoid facing +z)
        with one pose per blend-shape name: mouth, eyes and brows move
        visibly, every other name is a small morph; one bone "Head" under
        "Root" carries the head pose.
    tools/meshgen/gen_models.py figure OUT_DIR
        A skinned figure for the tests: figure.mesh, figure.skeleton and
        figure.expect.json, the description written, for round-trip checks.
    tools/meshgen/gen_models.py big OUT_FILE MEGABYTES
        A single-submesh mesh of about that size, for the read benchmark.
"""
import json
import math
import os
import struct
import sys

HERE = os.path.dirname(os.path.abspath(__file__))
sys.path.insert(0, HERE)
sys.path.insert(0, os.path.join(HERE, "..", "..", "scripts"))
import qzmesh  # noqa: E402
from qzmesh import f32  # noqa: E402
from gen_sticker_frames import Canvas, write_png  # noqa: E402

NAMES = [
    "Blink", "Blink_R", "Blink_L", "EyesLeft", "EyesRight", "EyesUp", "EyesDown", "JawForward",
    "MouthRight", "MouthLeft", "MouthOpen", "MouthClose", "MouthFrownLeft", "MouthFrownRight",
    "MouthFrown", "SmileMouth", "SmileMouth_R", "SmileMouth_L", "MouthRollUpper", "MouthRollLower",
    "MouthStretchLeft", "MouthStretchRight", "MouthStretch", "UpperLip", "LowerLip",
    "CrookedMouth_L", "CrookedMouth_R", "CrookedMouth", "ShrinkMouth", "NuZui", "BrowUp_R",
    "BrowUp_L", "BrowUp", "GrinUp_L", "GrinUp_R", "GrinDown_L", "GrinDown_R", "BrowsIn",
    "BrowsIn_L", "BrowsIn_R", "Sniff", "Sniff_R", "Sniff_L", "UpperLip_R", "UpperLip_L",
    "XiaNuZui", "CheekPuff", "CheekPuff_R", "CheekPuff_L", "EyesWide", "TongueOut", "ShouBoZi",
]

# The head: an ellipsoid; azimuth 0 faces +z, polar angle 0 is the crown.
RADII = (0.8, 1.0, 0.85)
TEX = 256


def head_geometry(rings, segments):
    verts = []  # (theta, phi, pos, normal, uv)
    for r in range(rings + 1):
        theta = math.pi * r / rings
        for s in range(segments + 1):
            phi = -math.pi + 2 * math.pi * s / segments
            d = (math.sin(theta) * math.sin(phi), math.cos(theta), math.sin(theta) * math.cos(phi))
            pos = tuple(f32(d[i] * RADII[i]) for i in range(3))
            n = [d[i] / RADII[i] for i in range(3)]
            ln = math.sqrt(sum(c * c for c in n)) or 1.0
            verts.append((theta, phi, pos, tuple(f32(c / ln) for c in n),
                          (f32(s / segments), f32(r / rings))))
    idx = []
    for r in range(rings):
        for s in range(segments):
            a, b = r * (segments + 1) + s, (r + 1) * (segments + 1) + s
            idx += [a, b, a + 1, a + 1, b, b + 1]
    return verts, idx


def feature_rows(rings):
    """Ring numbers of the painted features, as fractions of the sphere."""
    return {"brow": round(rings * 0.30), "eye": round(rings * 0.39), "mouth": round(rings * 0.64)}


def head_poses(verts, rings, segments):
    rows = feature_rows(rings)
    step = math.pi / rings
    per_ring = segments + 1
    poses = {}

    def ring(v):
        return int(round(verts[v][0] / step))

    def near(v, center, width):
        return max(0.0, 1.0 - abs(verts[v][1] - center) / width)

    def pose(name, fn):
        out = []
        for v in range(len(verts)):
            off = fn(v)
            if off and max(abs(c) for c in off) > 1e-6:
                out.append((v, tuple(f32(c) for c in off)))
        poses[name] = out

    eye_l, eye_r = 0.42, -0.42  # the character's left eye on +x
    # Mouth: the jaw below the mouth line drops, the upper lip stays.
    pose("MouthOpen", lambda v: (0, -0.22 * near(v, 0, 0.55) * max(0.0, 1 - (ring(v) - rows["mouth"] - 1) / 8.0), 0)
         if ring(v) > rows["mouth"] else None)
    pose("MouthClose", lambda v: (0, 0.02 * near(v, 0, 0.5), 0) if ring(v) == rows["mouth"] + 1 else None)
    for name, side in (("SmileMouth", 0), ("SmileMouth_L", 1), ("SmileMouth_R", -1)):
        def smile(v, side=side):
            if abs(ring(v) - rows["mouth"]) > 1:
                return None
            k = sum(near(v, c * 0.3, 0.2) for c in ((1, -1) if side == 0 else (side,)))
            return (0.04 * k * (1 if verts[v][1] > 0 else -1), 0.07 * k, 0) if k else None
        pose(name, smile)
    # Eyes: the ring through the middle of the eye closes onto the one below.
    eye_gap = RADII[1] * (math.cos(rows["eye"] * step) - math.cos((rows["eye"] + 1) * step))
    for name, sides, dy in (("Blink", (eye_l, eye_r), -eye_gap), ("Blink_L", (eye_l,), -eye_gap),
                            ("Blink_R", (eye_r,), -eye_gap), ("EyesWide", (eye_l, eye_r), 0.5 * eye_gap)):
        pose(name, lambda v, sides=sides, dy=dy: (0, dy * sum(near(v, c, 0.2) for c in sides), 0)
             if ring(v) == rows["eye"] else None)
    # Brows: the brow band rises.
    for name, sides in (("BrowUp", (eye_l, eye_r)), ("BrowUp_L", (eye_l,)), ("BrowUp_R", (eye_r,))):
        pose(name, lambda v, sides=sides: (0, 0.12 * sum(near(v, c, 0.3) for c in sides), 0)
             if rows["brow"] - 1 <= ring(v) <= rows["brow"] + 1 else None)
    # Every other name: a small morph of its own patch, so each has a target.
    for i, name in enumerate(NAMES):
        if name in poses:
            continue
        center = -0.6 + 1.2 * (i % 7) / 6.0
        row = rows["mouth"] + (i % 3) - 1
        pose(name, lambda v, center=center, row=row: (0.0, 0.0, 0.015 * near(v, center, 0.15))
             if ring(v) == row else None)
    return [(n, 1, poses[n]) for n in NAMES]


def head_texture(path, rings):
    rows = feature_rows(rings)
    c = Canvas(TEX, TEX)
    skin = (236, 190, 150)
    for y in range(TEX):
        for x in range(TEX):
            c.blend(x, y, skin, 1.0)
    band = TEX / rings

    def v_of(r):
        return r * band

    def u_of(phi):
        return (phi + math.pi) / (2 * math.pi) * TEX

    for side in (0.42, -0.42):
        # The eye fills the band between its ring and the next one.
        y0, y1 = v_of(rows["eye"]), v_of(rows["eye"] + 1)
        x0, x1 = u_of(side - 0.22), u_of(side + 0.22)
        c.polygon([(x0, (y0 + y1) / 2), ((x0 + x1) / 2, y0 - 1), (x1, (y0 + y1) / 2), ((x0 + x1) / 2, y1 + 1)],
                  (255, 255, 255))
        c.disc((x0 + x1) / 2, (y0 + y1) / 2, (y1 - y0) * 0.45, (40, 60, 120))
        # The brow in the band above its ring.
        by0, by1 = v_of(rows["brow"]) - band * 0.45, v_of(rows["brow"]) + band * 0.45
        c.polygon([(u_of(side - 0.2), by1), (u_of(side + 0.2), by1), (u_of(side + 0.2), by0),
                   (u_of(side - 0.2), by0)], (90, 50, 30))
    # The mouth: a dark slot in the band below the mouth line, red lips around.
    my0, my1 = v_of(rows["mouth"]), v_of(rows["mouth"] + 1)
    c.polygon([(u_of(-0.36), my0 - 3), (u_of(0.36), my0 - 3), (u_of(0.36), my1 + 3), (u_of(-0.36), my1 + 3)],
              (200, 60, 70))
    c.polygon([(u_of(-0.3), my0 + 1), (u_of(0.3), my0 + 1), (u_of(0.3), my1 - 1), (u_of(-0.3), my1 - 1)],
              (70, 10, 20))
    # The nose: a soft darker spot.
    c.disc(u_of(0), (v_of(rows["eye"]) + v_of(rows["mouth"])) / 2, 4, (210, 150, 115))
    write_png(path, TEX, TEX, c.px)


def pack_rows(verts, with_normals=True):
    rows = []
    for _, _, pos, nrm, uv in verts:
        row = [("3f", pos)]
        if with_normals:
            row.append(("3f", nrm))
        row.append(("2f", uv))
        rows.append(row)
    return qzmesh.vertex_buffer(rows)


def write_head(out, rings=36, segments=48):
    os.makedirs(out, exist_ok=True)
    verts, idx = head_geometry(rings, segments)
    mesh = {
        "skeleton": "head.skeleton",
        "submeshes": [{
            "material": "head", "indices": idx, "idx32": len(verts) > 65535,
            "vertex_count": len(verts),
            "elements": [(0, qzmesh.FLOAT3, qzmesh.POSITION, 0, 0), (0, qzmesh.FLOAT3, qzmesh.NORMAL, 12, 0),
                         (0, qzmesh.FLOAT2, qzmesh.TEXCOORD, 24, 0)],
            "buffers": {0: pack_rows(verts)},
            "bone_assignments": [(v, 1, 1.0) for v in range(len(verts))],
        }],
        "bounds": ((-RADII[0], -RADII[1], -RADII[2]), RADII, 1.0),
        "names": [(0, "head")],
        "poses": head_poses(verts, rings, segments),
    }
    with open(os.path.join(out, "head.mesh"), "wb") as f:
        f.write(qzmesh.mesh_bytes(mesh))
    skel = {
        "bones": [("Root", 0, (0, 0, 0), (0, 0, 0, 1), None),
                  # The head turns about the neck, under the chin.
                  ("Head", 1, (0, -0.9, 0), (0, 0, 0, 1), None)],
        "parents": [(1, 0)],
    }
    with open(os.path.join(out, "head.skeleton"), "wb") as f:
        f.write(qzmesh.skeleton_bytes(skel))
    with open(os.path.join(out, "head.material"), "w") as f:
        f.write("material head\n{\n  ambient 1 1 1 0.55\n  diffuse 1 1 0.95 0.8\n"
                "  specular 0 0 0 1 10\n  texture head.png\n}\n")
    head_texture(os.path.join(out, "head.png"), rings)
    return mesh, skel


def quat_axis(axis, degrees):
    h = math.radians(degrees) / 2
    s = math.sin(h)
    return tuple(f32(c) for c in (axis[0] * s, axis[1] * s, axis[2] * s, math.cos(h)))


def write_figure(out):
    """Two submeshes (body, arm) on three bones; the skeleton has two
    animations, the mesh one pose animation over two poses."""
    os.makedirs(out, exist_ok=True)
    body = [(x * 0.25, y * 0.5, 0.0) for y in range(3) for x in (-1, 1)]
    arm = [(0.5 + x * 0.5, 0.5 + y * 0.1, 0.0) for x in range(3) for y in (-1, 1)]

    def sub(points, material, assign, idx32):
        pts = [tuple(f32(c) for c in p) for p in points]
        quads = [[i, i + 1, i + 2, i + 1, i + 3, i + 2] for i in range(0, len(pts) - 2, 2)]
        return {
            "material": material, "indices": sum(quads, []), "idx32": idx32, "vertex_count": len(pts),
            "elements": [(0, qzmesh.FLOAT3, qzmesh.POSITION, 0, 0), (0, qzmesh.FLOAT2, qzmesh.TEXCOORD, 12, 0)],
            "buffers": {0: qzmesh.vertex_buffer([[("3f", p), ("2f", (f32(p[0]), f32(p[1])))] for p in pts])},
            "bone_assignments": assign(pts),
            "operation": 4,
        }

    mesh = {
        "skeleton": "figure.skeleton",
        "submeshes": [
            sub(body, "body", lambda pts: [(v, 0 if p[1] < 0.5 else 1, 1.0) for v, p in enumerate(pts)], False),
            sub(arm, "arm", lambda pts: [(v, 2, f32(0.75)) for v in range(len(pts))] +
                [(v, 1, f32(0.25)) for v in range(len(pts))], True),
        ],
        "bounds": ((f32(-0.25), 0.0, 0.0), (1.5, 1.0, 0.0), 1.5),
        "names": [(0, "body"), (1, "arm")],
        "poses": [("Puff", 1, [(0, (f32(-0.1), 0.0, 0.0)), (1, (f32(0.1), 0.0, 0.0))]),
                  ("Tall", 1, [(4, (0.0, f32(0.3), 0.0)), (5, (0.0, f32(0.3), 0.0))])],
        "animations": [("Breathe", 1.0, [(2, 1, [(0.0, [(0, 0.0)]), (1.0, [(0, 1.0), (1, f32(0.5))])])])],
    }
    skel = {
        "bones": [("Root", 0, (0, 0, 0), (0, 0, 0, 1), None),
                  ("Body", 1, (0, 0.5, 0), (0, 0, 0, 1), (1, 1, 1)),
                  ("Arm", 2, (0.5, 0.5, 0), quat_axis((0, 0, 1), 0), None)],
        "parents": [(2, 1), (1, 0)],
        "animations": [
            ("Wave", 2.0, [(2, [(0.0, (0, 0, 0, 1), (0, 0, 0), None),
                                (1.0, quat_axis((0, 0, 1), 90), (0, 0, 0), None),
                                (2.0, (0, 0, 0, 1), (0, 0, 0), None)])]),
            ("Bob", 2.0, [(1, [(0.0, (0, 0, 0, 1), (0, 0, 0), None),
                               (1.0, (0, 0, 0, 1), (0, 0.5, 0), (1, 2, 1))])]),
        ],
    }
    with open(os.path.join(out, "figure.mesh"), "wb") as f:
        f.write(qzmesh.mesh_bytes(mesh))
    with open(os.path.join(out, "figure.skeleton"), "wb") as f:
        f.write(qzmesh.skeleton_bytes(skel))
    for sm in mesh["submeshes"]:
        data = sm.pop("buffers")[0]
        sm["floats"] = list(struct.unpack("<%df" % (len(data) // 4), data))
    with open(os.path.join(out, "figure.expect.json"), "w") as f:
        json.dump({"mesh": mesh, "skeleton": skel}, f, indent=1)


def write_big(path, megabytes):
    # About n x n vertices of 32 bytes and 6 n x n 32-bit indices: 56 n x n bytes.
    n = int(math.sqrt(megabytes * 1024 * 1024 / 56))
    verts, idx = head_geometry(n, n)
    mesh = {"submeshes": [{
        "material": "big", "indices": idx, "idx32": True, "vertex_count": len(verts),
        "elements": [(0, qzmesh.FLOAT3, qzmesh.POSITION, 0, 0), (0, qzmesh.FLOAT3, qzmesh.NORMAL, 12, 0),
                     (0, qzmesh.FLOAT2, qzmesh.TEXCOORD, 24, 0)],
        "buffers": {0: pack_rows(verts)}}]}
    with open(path, "wb") as f:
        f.write(qzmesh.mesh_bytes(mesh))


def main():
    what = sys.argv[1]
    if what == "head":
        extra = [int(a) for a in sys.argv[3:5]]
        write_head(sys.argv[2], *extra)
        bg = Canvas(72, 128)
        for y in range(128):
            for x in range(72):
                bg.blend(x, y, (40 + y, 90 + y // 2, 160), 1.0)
        write_png(os.path.join(sys.argv[2], "background.png"), 72, 128, bg.px)
    elif what == "figure":
        write_figure(sys.argv[2])
    elif what == "big":
        write_big(sys.argv[2], float(sys.argv[3]))
    else:
        sys.exit(__doc__)


if __name__ == "__main__":
    main()
