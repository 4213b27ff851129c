#pragma once

#include "render/object/ZuRenderObject.h"

// Exchanges the open framebuffer's two colour textures (the filter step).
class ZuFboSwapRenderObject : public ZuRenderObject {
public:
    explicit ZuFboSwapRenderObject(ZuAppMain* app) : ZuRenderObject(app) {}
    void pushCmd(ZuRenderScene* scene, RENDERSTREAMTYPE stream, const char* label) override;
};
