#!/usr/bin/env python3
"""Authors the standard faces and face meshes under assets/shader/mesh/.

One neutral oval face is drawn at the design image size (700 x 1004 pixels,
y counted from the bottom like live landmarks) and laid out once per tracker
back end (101 points AS, 106 ST and FP, 70 Self); docs/face-landmarks.md
says which index is where. Each mesh is a Delaunay triangulation of the
back end's points (all of them for the full mesh, the key points for the
simplified one), so the triangles index the live landmark arrays directly.

Run from the repository root: python3 scripts/gen_face_assets.py
"""
import json
import math
import os

DESIGN_W, DESIGN_H = 700, 1004
CENTER_X, CENTER_Y = 350.0, 480.0
HALF_W, HALF_H = 200.0, 260.0  # the face oval, brow to chin


def to_px(u, v):
    """Face coordinates (u left-right, v bottom-top, both -1..1) to design pixels."""
    return (round(CENTER_X + u * HALF_W, 2), round(CENTER_Y + v * HALF_H, 2))


def contour(n):
    """From the left ear down round the chin (middle point) up to the right ear."""
    start, sweep = math.pi - 0.25, math.pi + 0.5
    return [to_px(math.cos(start + sweep * i / (n - 1)), math.sin(start + sweep * i / (n - 1))) for i in range(n)]


def ellipse(cu, cv, ru, rv, degrees):
    return [to_px(cu + ru * math.cos(math.radians(a)), cv + rv * math.sin(math.radians(a))) for a in degrees]


def brow_row(side, n, lower, outer_first):
    """One row of a brow; side -1 is the image-left brow."""
    pts = []
    for i in range(n):
        t = i / (n - 1)
        if not outer_first:
            t = 1.0 - t
        u = side * (0.75 - 0.6 * t)  # outer end at |u| 0.75, inner at 0.15
        v = 0.45 + 0.08 * math.sin(math.pi * t) - (0.07 if lower else 0.0)
        pts.append(to_px(u, v))
    return pts


EYE_V, EYE_U, EYE_RU, EYE_RV = 0.2, 0.4, 0.17, 0.07
MOUTH_V = -0.55


def eye(side, degrees):
    return ellipse(side * EYE_U, EYE_V, EYE_RU, EYE_RV, degrees)


def eye_centre(side):
    return to_px(side * EYE_U, EYE_V)


def bridge(n):
    return [to_px(0.0, 0.2 - 0.35 * i / (n - 1)) for i in range(n)]


def nose_bottom(n):
    return [to_px(-0.15 + 0.3 * i / (n - 1), -0.25 - (0.03 if i == n // 2 else 0.0)) for i in range(n)]


def mouth_outer():
    return ellipse(0.0, MOUTH_V, 0.3, 0.12, [180, 150, 120, 90, 60, 30, 0, -30, -60, -90, -120, -150])


def mouth_inner():
    return ellipse(0.0, MOUTH_V, 0.22, 0.05, [180, 135, 90, 45, 0, -45, -90, -135])


def layout_st():
    """106 points, shared by ST and FP."""
    p = contour(33)                                              # 0-32, 16 chin
    p += brow_row(-1, 5, False, True)                            # 33-37 left brow, outer to inner
    p += brow_row(1, 5, False, False)                            # 38-42 right brow, inner to outer
    p += bridge(4)                                               # 43-46
    p += nose_bottom(5)                                          # 47-51, 49 centre
    p += eye(-1, [180, 120, 60, 0, -60, -120])                   # 52-57 left eye, 52 outer corner
    p += eye(1, [180, 120, 60, 0, -60, -120])                    # 58-63 right eye, 58 inner corner
    p += brow_row(-1, 4, True, False)                            # 64-67 left brow lower, inner to outer
    p += brow_row(1, 4, True, True)                              # 68-71 right brow lower, outer to inner
    p += eye(-1, [90, -90]) + [to_px(-EYE_U + 0.08, EYE_V)]      # 72 top, 73 bottom, 74 inner of the pupil
    p += eye(1, [90, -90]) + [to_px(EYE_U - 0.08, EYE_V)]        # 75 top, 76 bottom, 77 inner of the pupil
    p += [to_px(-0.1, 0.0), to_px(0.1, 0.0), to_px(-0.14, -0.12), to_px(0.14, -0.12)]  # 78-81 nose sides
    p += [to_px(-0.2, -0.2), to_px(0.2, -0.2)]                   # 82, 83 nose wings
    p += mouth_outer()                                           # 84-95
    p += mouth_inner()                                           # 96-103
    p += [eye_centre(-1), eye_centre(1)]                         # 104, 105 pupils
    return p


def layout_as():
    """101 points."""
    p = contour(19)                                              # 0-18, 9 chin
    p += brow_row(-1, 5, False, True)                            # 19-23 left brow upper, outer to inner
    p += brow_row(-1, 5, True, False)                            # 24-28 left brow lower, inner to outer
    p += brow_row(1, 6, False, False)                            # 29-34 right brow upper, inner end to outer end
    p += brow_row(1, 4, True, True)                              # 35-38 right brow lower, outer to inner
    twelve = [180, 150, 120, 90, 60, 30, 0, -30, -60, -90, -120, -150]
    p += eye(-1, twelve)                                         # 39-50, 39 outer, 42 top, 45 inner, 48 bottom
    p += eye(1, twelve)                                          # 51-62, 51 inner, 54 top, 57 outer, 60 bottom
    p += ellipse(-0.14, -0.15, 0.07, 0.1, [90, 150, 210, 270, 330, 30])   # 63-68 left nose wing
    p += ellipse(0.14, -0.15, 0.07, 0.1, [90, 30, 330, 270, 210, 150])    # 69-74 right nose wing
    p += mouth_outer()                                           # 75-86
    p += mouth_inner()                                           # 87-94
    p += [eye_centre(-1), eye_centre(1)]                         # 95, 96 pupils
    p += bridge(3)                                               # 97-99
    p += [to_px(0.0, -0.22)]                                     # 100 nose tip
    return p


def layout_self():
    """70 points."""
    p = contour(17)                                              # 0-16, 8 chin
    p += brow_row(-1, 5, False, True)                            # 17-21
    p += brow_row(1, 5, False, False)                            # 22-26
    p += bridge(4)                                               # 27-30
    p += nose_bottom(5)                                          # 31-35
    p += eye(-1, [180, 120, 60, 0, -60, -120])                   # 36-41
    p += eye(1, [180, 120, 60, 0, -60, -120])                    # 42-47
    p += mouth_outer()                                           # 48-59
    p += mouth_inner()                                           # 60-67
    p += [eye_centre(-1), eye_centre(1)]                         # 68, 69 pupils
    return p


# Landmark of each standard index 0-40, as the engine's detectors map them.
STANDARD = {
    "as": [9, 0, 1, 3, 5, 7, 18, 17, 15, 13, 11, 48, 39, 95, 45, 42, 19, 26, 24, 22, 75, 84, 93, 81, 89, 78,
           100, 66, 71, 99, 60, 51, 96, 57, 54, 29, 37, 34, 31, 97, 98],
    "st": [16, 1, 3, 7, 10, 13, 31, 29, 27, 23, 19, 73, 52, 104, 55, 72, 33, 65, 67, 35, 84, 93, 102, 90, 98,
           87, 49, 82, 83, 46, 76, 58, 105, 61, 75, 38, 70, 42, 40, 43, 45],
    "zu": [8, 0, 1, 3, 4, 6, 16, 15, 13, 12, 10, 41, 36, 68, 39, 37, 17, 20, 21, 20, 48, 57, 66, 54, 62, 51,
           33, 31, 35, 30, 46, 42, 69, 45, 44, 22, 23, 26, 23, 27, 29],
}
CONTOUR_LEN = {"as": 19, "st": 33, "zu": 17}


def circumcircle(a, b, c):
    d = 2 * (a[0] * (b[1] - c[1]) + b[0] * (c[1] - a[1]) + c[0] * (a[1] - b[1]))
    if abs(d) < 1e-12:
        return (0.0, 0.0, float("inf"))
    sa, sb, sc = a[0] ** 2 + a[1] ** 2, b[0] ** 2 + b[1] ** 2, c[0] ** 2 + c[1] ** 2
    ux = (sa * (b[1] - c[1]) + sb * (c[1] - a[1]) + sc * (a[1] - b[1])) / d
    uy = (sa * (c[0] - b[0]) + sb * (a[0] - c[0]) + sc * (b[0] - a[0])) / d
    return (ux, uy, (a[0] - ux) ** 2 + (a[1] - uy) ** 2)


def delaunay(points, indices):
    """Bowyer-Watson over points[indices]; triangles as landmark numbers, counter-clockwise."""
    big = 1e5
    pts = {i: points[i] for i in indices}
    pts[-1], pts[-2], pts[-3] = (-big, -big), (big, -big), (0.0, big)
    tris = [(-1, -2, -3)]
    seen = set()
    for i in indices:
        if points[i] in seen:  # a point twice (pupil on the eye centre) would make flat triangles
            continue
        seen.add(points[i])
        p = pts[i]
        bad = []
        for t in tris:
            ux, uy, r2 = circumcircle(pts[t[0]], pts[t[1]], pts[t[2]])
            if (p[0] - ux) ** 2 + (p[1] - uy) ** 2 < r2:
                bad.append(t)
        edges = {}
        for t in bad:
            for e in ((t[0], t[1]), (t[1], t[2]), (t[2], t[0])):
                key = tuple(sorted(e))
                edges[key] = edges.get(key, 0) + 1
        tris = [t for t in tris if t not in bad]
        for (a, b), n in edges.items():
            if n == 1:
                tris.append((a, b, i))
    out = []
    for t in tris:
        if min(t) < 0:
            continue
        a, b, c = (pts[k] for k in t)
        cross = (b[0] - a[0]) * (c[1] - a[1]) - (b[1] - a[1]) * (c[0] - a[0])
        if abs(cross) < 1e-6:
            continue
        out.append(t if cross > 0 else (t[0], t[2], t[1]))
    return sorted(out)


def key_points(backend, count):
    keys = set(STANDARD[backend])
    keys.update(range(0, CONTOUR_LEN[backend], 2))
    keys.add(CONTOUR_LEN[backend] - 1)
    return sorted(k for k in keys if k < count)


def write(path, obj):
    with open(path, "w") as f:
        json.dump(obj, f, separators=(",", ":"))
        f.write("\n")


def stander_face(points):
    xs, ys = [p[0] for p in points], [p[1] for p in points]
    return {
        "param": {
            "facepoints_count": len(points),
            "face_top": int(round(max(ys))),      # y counts from the bottom: top is the larger
            "face_left": int(round(min(xs))),
            "face_bottom": int(round(min(ys))),
            "face_right": int(round(max(xs))),
            "face_yaw": 0.0,
            "face_roll": 0.0,
            "face_pitch": 0.0,
            "design_img_width": DESIGN_W,
            "design_img_height": DESIGN_H,
        },
        "data": [c for p in points for c in p],
    }


def face_mesh(points, indices):
    tris = delaunay(points, indices)
    assert len(tris) <= 400, "a mesh holds at most 400 triangles"
    return {"param": {"tricount": len(tris), "vertexcount": len(points)}, "data": [i for t in tris for i in t]}


def main():
    root = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "assets", "shader", "mesh")
    os.makedirs(root, exist_ok=True)
    layouts = {"as": (layout_as(), 101, "as"), "st": (layout_st(), 106, "st"),
               "fp": (layout_st(), 106, "st"), "zu": (layout_self(), 70, "zu")}
    # The point debugging view keeps its landmark-only mesh; every other mesh
    # (full and simplified, with the synthetic points the engine adds to a
    # live face) is made by the engine's own triangulator afterwards:
    #   build/tools/facemesh/qzfacemesh assets/shader/mesh
    for name, (points, count, table) in layouts.items():
        assert len(points) == count, (name, len(points))
        write(os.path.join(root, "standerface_%s.json" % name), stander_face(points))
    points, count, _ = layouts["st"]
    write(os.path.join(root, "standerface_st_normal.json"), stander_face(points))
    write(os.path.join(root, "facemesh_st_normal.json"), face_mesh(points, list(range(count))))
    print("now run: build/tools/facemesh/qzfacemesh %s" % root)

if __name__ == "__main__":
    main()
