#include "render/texture/ZuTextureCamera.h"

#include "render/texture/ZuRenderTexture.h"

#include <GLES3/gl3.h>

void ZuTextureCamera::apply() {
    if (id >= 0) {
        ZuRenderTexture::setTextrueNullType(id, GL_TEXTURE_2D);
        return;
    }
    id = ZuRenderTexture::ApplyTextureCamera();
    externalId = false;
    storedWidth = storedHeight = storedFormat = 0;
}
