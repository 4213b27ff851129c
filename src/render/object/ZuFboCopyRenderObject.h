#pragma once

#include "render/object/ZuRenderObject.h"

class ZuFboObject;

// Makes one ZuRenderCmdFboCopy a frame: the source framebuffer's picture
// copied unchanged into the bound one.
class ZuFboCopyRenderObject : public ZuRenderObject {
public:
    explicit ZuFboCopyRenderObject(ZuAppMain* app) : ZuRenderObject(app) {}
    void pushCmd(ZuRenderScene* scene, RENDERSTREAMTYPE stream, const char* label) override;

    // Borrowed: the command takes its own reference when it is made.
    void setSource(ZuFboObject* value) { source = value; }

private:
    ZuFboObject* source = nullptr;
};
