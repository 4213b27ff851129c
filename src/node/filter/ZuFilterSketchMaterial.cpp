#include "node/filter/ZuFilterSketchMaterial.h"

#include <GLES2/gl2.h>

void ZuFilterSketchMaterial::_refreshInner() {
    glUniform1f(uniformLocation("thresholdUpper"), thresholdUpper);
    glUniform1f(uniformLocation("thresholdDown"), thresholdDown);
    // The program's uniform is spelt this way.
    glUniform1f(uniformLocation("thresholEdge"), thresholdEdge);
    glUniform2f(uniformLocation("samplerSteps"), stepX, stepY);
    ZuGMaterial::_refreshInner();
}
