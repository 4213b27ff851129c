#include "node/morph/ZuEnlargeEllipseMaterial.h"

#include <GLES2/gl2.h>

void ZuEnlargeEllipseMaterial::setPos(float x, float y) {
    pos[0] = x;
    pos[1] = y;
}

void ZuEnlargeEllipseMaterial::setPosL(float x, float y) {
    posL[0] = x;
    posL[1] = y;
}

void ZuEnlargeEllipseMaterial::setPosR(float x, float y) {
    posR[0] = x;
    posR[1] = y;
}

void ZuEnlargeEllipseMaterial::_refreshInner() {
    ZuAotuMirror::_refreshInner();
    int location = uniformLocation("PointPosL");
    if (location >= 0) glUniform2fv(location, 1, posL);
    location = uniformLocation("PointPosR");
    if (location >= 0) glUniform2fv(location, 1, posR);
    location = uniformLocation("PointPos");
    if (location >= 0) glUniform2fv(location, 1, pos);
}
