#include "node/beauty/ZuFaceBeautifyOptimizeMaterialEs30.h"

#include "person/ZuPersonTracker.h"

#include <GLES2/gl2.h>
#include <cstdio>
#include <initializer_list>

// Contour points 0, 2, 4 toward the left nose wing, then 1, 3, 5 toward the
// right one, each at 0.3 and 0.6 of the way.
void ZuFaceBeautifyOptimizeMaterialEs30::updateFacePoint(ZuPersonTracker* tracker) {
    if (!tracker || tracker->cameraWidth <= 0.0f || tracker->cameraHeight <= 0.0f) return;
    const ZuVec3* c = tracker->contourPoints;
    const ZuVec3& wingL = c[ZuPersonTracker::kContourCount + 2];
    const ZuVec3& wingR = c[ZuPersonTracker::kContourCount + 3];
    const int contour[6] = {0, 2, 4, 1, 3, 5};
    int n = 0;
    for (int k = 0; k < 6; ++k) {
        const ZuVec3& from = c[contour[k]];
        const ZuVec3& to = k < 3 ? wingL : wingR;
        for (float share : {0.3f, 0.6f}) {
            samples[n][0] = (from.x + share * (to.x - from.x)) / tracker->cameraWidth;
            samples[n][1] = (from.y + share * (to.y - from.y)) / tracker->cameraHeight;
            ++n;
        }
    }
}

void ZuFaceBeautifyOptimizeMaterialEs30::_refreshInner() {
    ZuFaceBeautifyOptimizeMaterial::_refreshInner();
    char name[16];
    for (int i = 0; i < kSamples; ++i) {
        snprintf(name, sizeof name, "location%d", i);
        int location = uniformLocation(name);
        if (location >= 0) glUniform2fv(location, 1, samples[i]);
    }
}
