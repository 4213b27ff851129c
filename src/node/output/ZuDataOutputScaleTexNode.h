#pragma once

#include "scene/ZuNode.h"

class ZuFboBeginRenderObject;
class ZuFboEndRenderObject;
class ZuFboObject;
class ZuMaterial;
class ZuRenderObject;
class ZuTexture;

// Copies the finished scene, scaled, into an own texture of a chosen size
// (stream 25), for recorders that want fewer pixels than the scene has.
class ZuDataOutputScaleTexNode : public ZuNode {
public:
    explicit ZuDataOutputScaleTexNode(ZuAppMain* app);

    void zuinit() override;
    void zudestroy() override;
    void update(float dt) override;
    void render() override;

    // Makes the texture and its target once; later sizes are ignored.
    void setOutputPixel(int width, int height);
    void setOutMirror(bool value) { mirror = value; }
    void setOutInvert(bool value) { invert = value; }
    void debug(bool on) { debugOn = on; }

    ZuFboObject* getFbo() const { return fbo; }
    ZuTexture* getScaleTex() const { return scaleTex; }

private:
    ZuFboBeginRenderObject* fboBegin = nullptr;
    ZuRenderObject* copyObject = nullptr;
    ZuFboEndRenderObject* fboEnd = nullptr;
    ZuRenderObject* debugObject = nullptr;
    ZuMaterial* debugMaterial = nullptr;
    int outWidth = 1;
    int outHeight = 1;
    bool mirror = true;
    bool invert = false;
    bool debugOn = false;
    ZuMaterial* material = nullptr;
    ZuFboObject* fbo = nullptr;
    ZuTexture* scaleTex = nullptr;
};
