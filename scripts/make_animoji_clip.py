#!/usr/bin/env python3
"""Writes a clip for the desktop host that drives a 3D character: the sample
photo repeated, one landmark file per frame. The mouth opens and shuts over
the first half; over the second half the head turns left, then right (the
nose and the middle of the face slide sideways, which the host reads as a
yaw). Every frame moves the face by a quarter of a pixel more, as a live
tracker never reports the same landmarks twice and the character's tracker
measures each detection once.

    scripts/make_animoji_clip.py PHOTO LANDMARKS OUT_DIR [FRAMES]
"""
import copy
import json
import math
import os
import shutil
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from make_mouth_clip import CHIN, LOWER_INNER, LOWER_OUTER, UPPER_INNER  # noqa: E402

NOSE = tuple(range(27, 36))
MIDDLE = NOSE + tuple(range(48, 68))  # nose and mouth follow a turn most


def main():
    photo, landmarks, out = sys.argv[1:4]
    frames = int(sys.argv[4]) if len(sys.argv) > 4 else 16
    os.makedirs(out, exist_ok=True)
    source = json.load(open(landmarks))
    half = frames // 2
    for f in range(frames):
        name = "frame_%04d" % (f + 1)
        shutil.copyfile(photo, os.path.join(out, name + ".png"))
        record = copy.deepcopy(source)
        for face in record["faces"]:
            pts = face["landmarks68"]
            jaw = abs(pts[16][0] - pts[0][0]) / 2
            if f < half:
                gap = 30.0 * math.sin(math.pi * f / max(1, half - 1))
                for up, low in zip(UPPER_INNER, LOWER_INNER):
                    pts[low][1] = pts[up][1] + gap
                for i in LOWER_OUTER + CHIN:
                    pts[i][1] += gap
            else:
                turn = math.sin(2 * math.pi * (f - half) / max(1, frames - half))
                for i in MIDDLE:
                    pts[i][0] += 0.7 * jaw * turn * (1.0 if i in NOSE else 0.6)
            for p in pts:
                p[0] += 0.25 * f
            for p in face.get("pupils", []):
                p[0] += 0.25 * f
        with open(os.path.join(out, name + ".landmarks.json"), "w") as fh:
            json.dump(record, fh)
    print("clip: %d frames in %s" % (frames, out))


if __name__ == "__main__":
    main()
