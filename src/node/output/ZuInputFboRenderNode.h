#pragma once

#include "scene/ZuNode.h"

class ZuFboBeginRenderObject;
class ZuFboEndRenderObject;
class ZuFboObject;
class ZuMaterial;

// Copies the finished scene into a framebuffer that the host owns (stream 28).
class ZuInputFboRenderNode : public ZuNode {
public:
    explicit ZuInputFboRenderNode(ZuAppMain* app);

    void zuinit() override;
    void zudestroy() override;
    void update(float dt) override;
    void render() override;

    // Wraps the host's framebuffer name at the scene camera's size (once per name).
    void setFBO(const char* sceneName, int id);
    ZuFboObject* getFbo() const { return fbo; }

private:
    int fboId = 0;
    ZuFboObject* fbo = nullptr;
    ZuFboBeginRenderObject* beginObject = nullptr;
    ZuMaterial* material = nullptr;
    ZuFboEndRenderObject* endObject = nullptr;
};
