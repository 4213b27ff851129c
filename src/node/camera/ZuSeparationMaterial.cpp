#include "node/camera/ZuSeparationMaterial.h"

#include <GLES2/gl2.h>

void ZuSeparationMaterial::setEdgeColor(float r, float g, float b, float a) {
    edgeColor[0] = r;
    edgeColor[1] = g;
    edgeColor[2] = b;
    edgeColor[3] = a;
}

void ZuSeparationMaterial::_refreshInner() {
    int location = uniformLocation("edgecolor");
    if (location >= 0) glUniform4fv(location, 1, edgeColor);
}
