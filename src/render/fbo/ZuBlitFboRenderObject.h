#pragma once

#include "basesys/qzString.h"
#include "render/object/ZuRenderObject.h"

class ZuFboObject;

// Copies one framebuffer into another by blit (ES 3), e.g. to resolve a
// multisampled target. Below ES 3 it records nothing and says so.
class ZuBlitFboRenderObject : public ZuRenderObject {
public:
    explicit ZuBlitFboRenderObject(ZuAppMain* app) : ZuRenderObject(app) {}
    void pushCmd(ZuRenderScene* scene, RENDERSTREAMTYPE stream, const char* label) override;
    void setBlitFboObject(ZuFboObject* src, ZuFboObject* dest, int blitWidth, int blitHeight);
    void setNames(const char* srcName, const char* destName);

private:
    qz::string srcFboName;
    qz::string destFboName;
    ZuFboObject* destFbo = nullptr;
    ZuFboObject* srcFbo = nullptr;
    int width = 0;
    int height = 0;
};
