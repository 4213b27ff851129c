#!/usr/bin/env python3
"""Writes the animoji position table, assets/shader/animoji_pos/animoji_def_pos.pos.

The blend-shape tracker measures the live face against the neutral face seen
at the same head pose. This script makes those neutral faces:

- The face is the FP standard face of gen_face_assets.py (the design image,
  y counted from the bottom), of which the tracker's 29 key landmarks are
  taken.
- Head model: each point gets a depth from an ellipsoid centred on the face
  oval, with the oval's half width and half height in x and y and a depth
  semi-axis of DEPTH times the half width: z = depth * sqrt(1 - u^2 - v^2) for
  u, v the point's place in the oval. The contour lies on the rim (z about
  0); the nose points stand NOSE times the half width further out.
- Sign conventions: positive yaw turns the nose towards image right (+x),
  positive pitch lifts the nose up (+y, y counted from the bottom). Yaw turns
  about the vertical axis first, then pitch about the horizontal axis.
- Projection is orthographic (the depth is dropped). The points are then
  scaled so that the two contour ends, key points 0 and 2, are 500 apart, as
  the tracker scales the live face, placed with the head centre at
  (500, 500) so that every value is a positive integer, and rounded half up.
- Range: yaw and pitch -45..45 (keys 015..105), the poses at which a tracker
  still reports the landmarks of both eyes; the 91 x 91 rows stay just under
  2 MB. Poses outside find no row and the tracker keeps its last reference.

Only distances between key points are measured, so the frame (x right, y up)
does not have to match a turned camera's working frame.

The output is deterministic. Run from the repository root:
    python3 scripts/gen_animoji_pos.py
"""
import math
import os
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import gen_face_assets as faces  # noqa: E402

# Landmarks of the key points a0..a28, in the order of a table row.
KEY_LANDMARKS = [0, 16, 32, 33, 37, 38, 42, 43, 49, 52, 55, 58, 61, 72, 73, 75, 76, 84, 86, 87,
                 88, 90, 92, 93, 94, 98, 102, 104, 105]
NOSE_LANDMARKS = {43: 0.1, 49: 0.3}  # bridge top a little, the nose bottom more
DEPTH = 0.9
ANGLE_MIN, ANGLE_MAX = -45, 45
FACE_WIDTH = 500.0
CENTRE = 500.0


def head_points():
    """The key points in 3D, the ellipsoid's centre at the origin."""
    layout = faces.layout_st()
    out = []
    for index in KEY_LANDMARKS:
        x, y = layout[index]
        u = (x - faces.CENTER_X) / faces.HALF_W
        v = (y - faces.CENTER_Y) / faces.HALF_H
        z = DEPTH * faces.HALF_W * math.sqrt(max(0.0, 1.0 - u * u - v * v))
        z += NOSE_LANDMARKS.get(index, 0.0) * faces.HALF_W
        out.append((x - faces.CENTER_X, y - faces.CENTER_Y, z))
    return out


def turned(points, yaw, pitch):
    cy, sy = math.cos(math.radians(yaw)), math.sin(math.radians(yaw))
    cp, sp = math.cos(math.radians(pitch)), math.sin(math.radians(pitch))
    out = []
    for x, y, z in points:
        x, z = x * cy + z * sy, -x * sy + z * cy       # yaw: nose (+z) towards +x
        y, z = y * cp + z * sp, -y * sp + z * cp       # pitch: nose towards +y
        out.append((x, y))
    return out


def half_up(v):
    return int(math.floor(v + 0.5))


def row(points):
    (x0, y0), (x2, y2) = points[0], points[2]
    scale = math.hypot(x2 - x0, y2 - y0) / FACE_WIDTH
    values = []
    for x, y in points:
        values += [half_up(x / scale + CENTRE), half_up(y / scale + CENTRE)]
    return values


def main():
    head = head_points()
    lines = []
    for yaw in range(ANGLE_MIN, ANGLE_MAX + 1):
        for pitch in range(ANGLE_MIN, ANGLE_MAX + 1):
            values = row(turned(head, yaw, pitch))
            assert all(v >= 0 for v in values)
            lines.append("%03d%03d %s\n" % (yaw + 60, pitch + 60, " ".join(str(v) for v in values)))
    root = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "assets", "shader", "animoji_pos")
    os.makedirs(root, exist_ok=True)
    with open(os.path.join(root, "animoji_def_pos.pos"), "w", newline="\n") as f:
        f.writelines(lines)


if __name__ == "__main__":
    main()
