#include "node/filter/ZuPencilDrawingMaterial.h"

#include <GLES2/gl2.h>

void ZuPencilDrawingMaterial::_refreshInner() {
    glUniform1f(uniformLocation("lineWidth"), lineWidth);
    glUniform1f(uniformLocation("lineLength"), lineLength);
    glUniform1f(uniformLocation("toneLengthWeight"), toneLengthWeight);
    ZuGMaterial::_refreshInner();
}
