#pragma once

#include "scene/ZuNode.h"

class ZuFboBeginRenderObject;
class ZuFboEndRenderObject;
class ZuFboObject;
class ZuMaterial;
class ZuRenderObject;

// Draws a small thumbnail of the finished scene into an own target (stream 27).
class ZuIconNode : public ZuNode {
public:
    explicit ZuIconNode(ZuAppMain* app);

    void zuinit() override;
    void zudestroy() override;
    void update(float dt) override;
    void render() override;

    // Makes the target on the first call; nothing is drawn before.
    void setIconSize(int width, int height);
    void debug(bool on) { debugOn = on; }

    ZuFboObject* getFbo() const { return fbo; }
    int getIconWidth() const { return iconWidth; }
    int getIconHeight() const { return iconHeight; }

private:
    ZuMaterial* material = nullptr;
    ZuFboObject* fbo = nullptr;
    int iconWidth = 64;
    int iconHeight = 64;
    ZuFboBeginRenderObject* fboBegin = nullptr;
    ZuFboEndRenderObject* fboEnd = nullptr;
    bool debugOn = false;
    ZuRenderObject* debugObject = nullptr;
    ZuMaterial* debugMaterial = nullptr;
};
