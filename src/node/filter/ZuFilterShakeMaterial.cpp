#include "node/filter/ZuFilterShakeMaterial.h"

#include <GLES2/gl2.h>

void ZuFilterShakeMaterial::_refreshInner() {
    glUniform1f(uniformLocation("offsetY"), offsetY);
    ZuGMaterial::_refreshInner();
}
