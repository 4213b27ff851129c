#pragma once

#include "render/object/ZuRenderObject.h"

class ZuFboObject;

// Opens a framebuffer for the commands that follow in its stream (and the
// later streams, until the matching end).
class ZuFboBeginRenderObject : public ZuRenderObject {
public:
    explicit ZuFboBeginRenderObject(ZuAppMain* app) : ZuRenderObject(app) {}
    ~ZuFboBeginRenderObject() override;
    void pushCmd(ZuRenderScene* scene, RENDERSTREAMTYPE stream, const char* label) override;

    // Held with a reference so that the target outlives its owner's last frame.
    void setFbo(ZuFboObject* target);
    ZuFboObject* getFbo() const { return fbo; }

protected:
    virtual bool clearsOnBind() const { return true; }
    ZuFboObject* fbo = nullptr;
};
