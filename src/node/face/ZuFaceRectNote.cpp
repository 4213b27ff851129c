#include "node/face/ZuFaceRectNote.h"

#include "person/ZuPerson.h"

ZuFaceRectNote::ZuFaceRectNote(ZuAppMain* app) : ZuFaceDebugLineNode(app) { setType("ZuFaceRectNote"); }

int ZuFaceRectNote::faceSegments(const ZuPerson* person, float* out) const {
    const float l = person->getRLeft(), r = person->getRRight();
    const float t = person->getRTop(), b = person->getRBottom();
    // The four sides as a closed loop: each corner ends one side and starts the next.
    const float corners[5][2] = {{l, b}, {r, b}, {r, t}, {l, t}, {l, b}};
    for (int side = 0; side < 4; ++side) {
        out[side * 4] = corners[side][0];
        out[side * 4 + 1] = corners[side][1];
        out[side * 4 + 2] = corners[side + 1][0];
        out[side * 4 + 3] = corners[side + 1][1];
    }
    return 4;
}
