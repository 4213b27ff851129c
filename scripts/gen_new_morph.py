#!/usr/bin/env python3
"""Authors the landmark morph's data under assets/shader/mesh/ from the AS
standard face (assets/shader/mesh/standerface_as.json, itself made by
scripts/gen_face_assets.py):

newmorph_mesh_as.json: the 221 triangles over the morph's 128 vertices.
  The vertices are laid out on the standard face as the engine lays them
  out on a live one: 0-100 the AS landmarks, with the inner lips 87-94 all
  on landmark 93 (the mouth drawn closed); 101-108 copies of the upper brow
  points 19, 21, 22, 23, 30, 31, 32, 34; 109-127 the contour 0-18 pushed
  out by 1.3 around landmark 97, a ring that keeps the warp continuous.
  The triangles are the Delaunay triangulation of every vertex with a
  place of its own (the inner lips count once, as 93; the brow copies not
  at all), which covers the face and the ring. The table is padded to 221
  with triangles over the closed inner lips, which have no area.

newmorph_rules_as.json: the default rule list. Each rule moves its
  vertices towards the line from vertex "start" to vertex "end" by
  "strength" (0 keeps them, 1 puts them on the line), in order:
  0, 1  slim: each side's cheek contour (1-8, 10-17) towards the line from
        that eye's outer corner (39, 57) to the chin (9); adaptive, so a
        face already narrow against that line is pulled less;
  2     short: the lower contour (6-12) up towards the line through the
        mouth corners (75, 81);
  3     nose: the nose wings (63-74) towards the nose's middle line, from
        the top of the bridge (97) to the tip (100);
  4     mouth: the lips (75-86 and the closed inner lips 87-94) towards the
        line from the nose tip (100) to the chin (9).
  All strengths start at 0: the host sets them. The script checks that at
  strength 0.3 every rule moves its points the way its name says on the
  standard face.

Run from the repository root: python3 scripts/gen_new_morph.py
"""
import json
import os
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from gen_face_assets import delaunay  # noqa: E402

ROOT = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "assets", "shader", "mesh")
VERTICES = 128
TRIANGLES = 221
INNER_LIPS = range(87, 95)
BROW_COPIES = [19, 21, 22, 23, 30, 31, 32, 34]
CENTRE = 97

RULES = [
    {"start": 39, "end": 9, "indices": list(range(1, 9)), "strength": 0.0, "adaptive": True},
    {"start": 57, "end": 9, "indices": list(range(10, 18)), "strength": 0.0, "adaptive": True},
    {"start": 75, "end": 81, "indices": list(range(6, 13)), "strength": 0.0, "adaptive": False},
    {"start": 97, "end": 100, "indices": list(range(63, 75)), "strength": 0.0, "adaptive": False},
    {"start": 100, "end": 9, "indices": list(range(75, 95)), "strength": 0.0, "adaptive": False},
]


def standard_face():
    with open(os.path.join(ROOT, "standerface_as.json")) as f:
        data = json.load(f)["data"]
    return [(data[2 * i], data[2 * i + 1]) for i in range(len(data) // 2)]


def vertices(face):
    v = list(face[:101])
    for i in INNER_LIPS:
        v[i] = face[93]
    v += [face[i] for i in BROW_COPIES]
    cx, cy = face[CENTRE]
    v += [(round(x * 1.3 - cx * 0.3, 2), round(y * 1.3 - cy * 0.3, 2)) for x, y in face[:19]]
    assert len(v) == VERTICES
    return v


def triangles(v):
    used = [i for i in range(101) if i not in INNER_LIPS or i == 93] + list(range(109, VERTICES))
    tris = delaunay(v, used)
    assert len(tris) <= TRIANGLES, len(tris)
    lips = list(INNER_LIPS)
    k = 0
    while len(tris) < TRIANGLES:
        tris.append((lips[k % 8], lips[(k + 1) % 8], lips[(k + 2) % 8]))
        k += 1
    return tris


def foot(p, a, b):
    dx, dy = b[0] - a[0], b[1] - a[1]
    t = ((p[0] - a[0]) * dx + (p[1] - a[1]) * dy) / (dx * dx + dy * dy)
    return (a[0] + t * dx, a[1] + t * dy)


def check_rules(v):
    """At strength 0.3 each rule moves its points as its name says."""
    def moved(rule):
        out = {}
        for i in rule["indices"]:
            f = foot(v[i], v[rule["start"]], v[rule["end"]])
            out[i] = (v[i][0] * 0.7 + f[0] * 0.3, v[i][1] * 0.7 + f[1] * 0.3)
        return out
    left, right, short, nose, mouth = (moved(r) for r in RULES)
    assert all(left[i][0] > v[i][0] for i in range(1, 8)), "left cheek moves right, inwards"
    assert all(right[i][0] < v[i][0] for i in range(11, 18)), "right cheek moves left, inwards"
    assert short[9][1] > v[9][1], "the chin moves up"
    assert nose[63 + 3][0] > v[63 + 3][0] and nose[69 + 3][0] < v[69 + 3][0], "the wings move in"
    assert mouth[75][0] > v[75][0] and mouth[81][0] < v[81][0], "the mouth corners move in"


def write(path, obj):
    with open(path, "w") as f:
        json.dump(obj, f, separators=(",", ":"))
        f.write("\n")


def main():
    v = vertices(standard_face())
    tris = triangles(v)
    check_rules(v)
    for rule in RULES:
        assert all(0 <= i < VERTICES for i in rule["indices"] + [rule["start"], rule["end"]])
    write(os.path.join(ROOT, "newmorph_mesh_as.json"),
          {"param": {"tricount": len(tris), "vertexcount": VERTICES}, "data": [i for t in tris for i in t]})
    write(os.path.join(ROOT, "newmorph_rules_as.json"), {"rules": RULES})
    print("newmorph_mesh_as.json: %d triangles; newmorph_rules_as.json: %d rules" % (len(tris), len(RULES)))


if __name__ == "__main__":
    main()
