#include "node/morph/ZuEnlargeEyeMaterial.h"

#include <GLES2/gl2.h>

void ZuEnlargeEyeMaterial::setCentralPos(float x, float y) {
    centralPos[0] = x;
    centralPos[1] = y;
}

void ZuEnlargeEyeMaterial::_refreshInner() {
    ZuAotuMirror::_refreshInner();
    int location = uniformLocation("centralPos");
    if (location >= 0) glUniform2fv(location, 1, centralPos);
}
