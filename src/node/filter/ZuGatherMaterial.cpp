#include "node/filter/ZuGatherMaterial.h"

#include <GLES2/gl2.h>

void ZuGatherMaterial::_refreshInner() {
    glUniform1f(uniformLocation("deltas"), deltas);
    glUniform1f(uniformLocation("deltah"), deltah);
    glUniform1i(uniformLocation("isHsv"), isHsv);
    glUniform1i(uniformLocation("isContrast"), isContrast);
    glUniform1i(uniformLocation("isBrightness"), isBrightness);
    ZuGMaterial::_refreshInner();
}
