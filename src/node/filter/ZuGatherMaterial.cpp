#include "node/filter/ZuGatherMaterial.h"

#include <GLES2/gl2.h>

void ZuGatherMaterial::_refreshInner() {
    glUniform1f(glGetUniformLocation(program, "deltas"), deltas);
    glUniform1f(glGetUniformLocation(program, "deltah"), deltah);
    glUniform1i(glGetUniformLocation(program, "isHsv"), isHsv);
    glUniform1i(glGetUniformLocation(program, "isContrast"), isContrast);
    glUniform1i(glGetUniformLocation(program, "isBrightness"), isBrightness);
    ZuGMaterial::_refreshInner();
}
