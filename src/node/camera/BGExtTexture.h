#pragma once

#include "node/camera/BGTexture.h"

// The background from a GL texture that the host owns and fills.
class BGExtTexture : public BGTexture {
public:
    // The host's name is detached first, so that it is never deleted here.
    void destroyTexture() override;
    void update(float dt) override;
    void render(ZuRenderScene* scene, int stream, const char* label) override;
};
