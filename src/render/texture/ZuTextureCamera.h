#pragma once

#include "render/texture/ZuTexture.h"

// A camera plane: either a host-owned GL name (setid before apply) or a name
// of our own whose storage the per-frame commits allocate.
class ZuTextureCamera : public ZuTexture {
public:
    explicit ZuTextureCamera(ZuAppMain* app) : ZuTexture(app) {}

    // With a name present only its sampling is set; else a name without storage.
    void apply() override;
};
