#include "render/texture/ZuTextureNull.h"

#include "render/texture/ZuRenderTexture.h"

void ZuTextureNull::apply() {
    if (id >= 1) return;
    id = ZuRenderTexture::ApplyTextureNull(enableMipMaps);
    externalId = false;
    storedWidth = storedHeight = storedFormat = 0;
}
