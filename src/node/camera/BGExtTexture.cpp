#include "node/camera/BGExtTexture.h"

#include "render/fbo/ZuFboBeginRenderObject.h"
#include "render/material/ZuMaterial.h"
#include "render/texture/ZuTexture.h"

void BGExtTexture::destroyTexture() {
    if (rgbaTex) rgbaTex->setid(-1);
    BGTexture::destroyTexture();
}

// As the base step (slot, flip, target), so that host textures come out the
// same way up as converted planes.
void BGExtTexture::update(float dt) {
    if (type != BG_TEXTURE) return;
    BGTexture::update(dt);
}

void BGExtTexture::render(ZuRenderScene* scene, int stream, const char* label) {
    if (type != BG_TEXTURE || !rgbaTex) return;
    BGTexture::render(scene, stream, label);
}
