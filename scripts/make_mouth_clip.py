#!/usr/bin/env python3
"""Writes a short clip for the desktop host: the sample photo repeated, with
one landmark file per frame in which the mouth is shut, opens wide, and
shuts again. The lower lip (and the chin below it) move; the rest of the
face stays where the tracker found it.

    scripts/make_mouth_clip.py PHOTO LANDMARKS OUT_DIR [FRAMES]
"""
import copy
import json
import os
import shutil
import sys

UPPER_INNER = (61, 62, 63)
LOWER_INNER = (67, 66, 65)  # under 61, 62, 63
LOWER_OUTER = (55, 56, 57, 58, 59)
CHIN = (6, 7, 8, 9, 10)


def opening(frame, frames):
    """Lip gap in pixels: shut for the first quarter, open (wider than half
    the mouth's width, where the tracker calls it open) through the
    middle half, shut again for the last quarter."""
    return 28.0 if frames // 4 <= frame < frames - frames // 4 else 0.0


def main():
    photo, landmarks, out = sys.argv[1:4]
    frames = int(sys.argv[4]) if len(sys.argv) > 4 else 12
    os.makedirs(out, exist_ok=True)
    source = json.load(open(landmarks))
    for f in range(frames):
        name = "frame_%04d" % (f + 1)
        shutil.copyfile(photo, os.path.join(out, name + ".png"))
        record = copy.deepcopy(source)
        gap = opening(f, frames)
        for face in record["faces"]:
            pts = face["landmarks68"]
            # Shut: the inner lower lip lies on the upper one.
            for up, low in zip(UPPER_INNER, LOWER_INNER):
                pts[low][1] = pts[up][1] + gap
            for i in LOWER_OUTER + CHIN:
                pts[i][1] += gap
        with open(os.path.join(out, name + ".landmarks.json"), "w") as fh:
            json.dump(record, fh)
    print("clip: %d frames in %s" % (frames, out))


if __name__ == "__main__":
    main()
