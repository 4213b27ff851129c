#include "node/beauty/ZuFaceBuffingWhiteMaterial_ES30.h"

#include "person/ZuPersonTracker.h"

#include <GLES2/gl2.h>
#include <cstdio>

void ZuFaceBuffingWhiteMaterial_ES30::updateFacePoint(ZuPersonTracker* tracker) {
    if (!tracker || tracker->cameraWidth <= 0.0f || tracker->cameraHeight <= 0.0f) return;
    const ZuVec3* c = tracker->contourPoints;
    const ZuVec3& wingL = c[ZuPersonTracker::kContourCount + 2];
    const ZuVec3& wingR = c[ZuPersonTracker::kContourCount + 3];
    // From a contour point part of the way toward a nose wing: cheek skin,
    // clear of the nose, the eyes and the face's edge.
    struct Span {
        const ZuVec3* from;
        const ZuVec3* to;
        float share;
    };
    const Span spans[kSamples] = {{&c[0], &wingL, 0.3f}, {&c[0], &wingL, 0.6f}, {&c[1], &wingR, 0.3f},
                                  {&c[1], &wingR, 0.6f}, {&c[5], &wingR, 0.5f}, {&c[4], &wingL, 0.5f}};
    for (int i = 0; i < kSamples; ++i) {
        const Span& s = spans[i];
        samples[i][0] = (s.from->x + s.share * (s.to->x - s.from->x)) / tracker->cameraWidth;
        samples[i][1] = (s.from->y + s.share * (s.to->y - s.from->y)) / tracker->cameraHeight;
    }
    faceKnown = true;
}

void ZuFaceBuffingWhiteMaterial_ES30::_refreshInner() {
    ZuFaceBuffingWhiteMaterial::_refreshInner();
    glUniform1f(uniformLocation("faceKnown"), faceKnown ? 1.0f : 0.0f);
    char name[16];
    for (int i = 0; i < kSamples; ++i) {
        snprintf(name, sizeof name, "location%d", i);
        int location = uniformLocation(name);
        if (location >= 0) glUniform2fv(location, 1, samples[i]);
    }
}
