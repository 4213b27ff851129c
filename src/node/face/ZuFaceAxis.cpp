#include "node/face/ZuFaceAxis.h"

#include "person/ZuPerson.h"
#include "person/ZuPersonTracker.h"

ZuFaceAxis::ZuFaceAxis(ZuAppMain* app) : ZuFaceDebugLineNode(app) { setType("ZuFaceAxis"); }

int ZuFaceAxis::faceSegments(const ZuPerson* person, float* out) const {
    const ZuPersonTracker* tracker = person->getTracker();
    if (!tracker) return 0;
    const ZuVec3* ends[4] = {&tracker->leftEye, &tracker->rightEye, &tracker->axisTop, &tracker->axisBottom};
    for (int k = 0; k < 4; ++k) {
        out[k * 2] = ends[k]->x;
        out[k * 2 + 1] = ends[k]->y;
    }
    return 2;
}
