#pragma once

#include "render/object/ZuRenderObject.h"

// Closes the framebuffer opened last. With clear (the default) returning to
// an enclosing framebuffer wipes it; setClear(false) keeps its content.
class ZuFboEndRenderObject : public ZuRenderObject {
public:
    explicit ZuFboEndRenderObject(ZuAppMain* app) : ZuRenderObject(app) {}
    void pushCmd(ZuRenderScene* scene, RENDERSTREAMTYPE stream, const char* label) override;
    void setClear(bool value) { clear = value; }
    bool getClear() const { return clear; }

private:
    bool clear = true;
};
