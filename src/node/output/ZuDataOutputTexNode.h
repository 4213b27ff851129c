#pragma once

#include "node/camera/BGType.h"
#include "scene/ZuNode.h"

class ZuFboBeginNoclearRenderObject;
class ZuFboEndRenderObject;
class ZuFboObject;
class ZuMaterial;
class ZuRenderObject;

// Copies the finished scene into a GL texture that the host owns (stream 25),
// upright as the scene shows it, mirrored or turned over on request.
class ZuDataOutputTexNode : public ZuNode {
public:
    explicit ZuDataOutputTexNode(ZuAppMain* app);

    void zuinit() override;
    void zudestroy() override;
    void update(float dt) override;
    void render() override;

    // Wraps the host's texture name; a new name rebuilds the target, the same one keeps it.
    void setOutputTexture(unsigned texId, int width, int height);
    void setOutMirror(bool value) { mirror = value; }
    void setOutInvert(bool value) { invert = value; }
    // BGRA textures get their channels exchanged by the draw.
    void setOutTextureType(PIXELFORMATE type);
    void debug(bool on) { debugOn = on; }

    ZuFboObject* getFbo() const { return fbo; }
    unsigned getTexId() const { return texId; }
    PIXELFORMATE getTextureType() const { return texType; }
    ZuMaterial* getMaterial() const { return material; }

private:
    void chooseMaterial();

    ZuFboBeginNoclearRenderObject* fboBegin = nullptr;
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
    unsigned texId = 0;
    PIXELFORMATE texType = PF_RGBA;
};
