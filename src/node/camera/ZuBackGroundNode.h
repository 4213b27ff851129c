#pragma once

#include "node/camera/BGType.h"
#include "scene/ZuNode.h"

class BGTexture;
class ZuDataGenerate;
class ZuMaterial;

// A scene's camera input: takes each frame from the scene's camera source
// into plane textures and converts it, once per frame, into an RGBA target
// of camera size (stream 1) that every later pass reads. The picture reaches
// the scene through ZuBgRenderNode.
class ZuBackGroundNode : public ZuNode {
public:
    explicit ZuBackGroundNode(ZuAppMain* app);

    void zuinit() override;
    void zudestroy() override;
    void zuenter() override;
    void update(float dt) override;
    void render() override;
    // A new frame from the camera source (under the source's lock).
    void listenData(ZuObject* source) override;

    void setBackgroundSize(BGType type, int width, int height, float rotation);
    void setDataGen(ZuDataGenerate* source);
    BGTexture* getBGTexture() const { return bgTexture; }
    // Shows the converted image as a thumbnail in the window's top right.
    void debug(bool on);

protected:
    // Points mesh and material of object at the background image, turned by
    // the scene camera's angle.
    void placeImage(ZuRenderObject* object, ZuMaterial* material);
    // A camera frame this node cannot take: logged when the kind of refusal
    // changes, so a host that keeps sending the wrong frames is told once.
    void refuseFrame(const char* kind, const char* format, ...)
#if defined(__GNUC__)
        __attribute__((format(printf, 3, 4)))
#endif
        ;

    ZuDataGenerate* dataGen = nullptr;
    BGTexture* bgTexture = nullptr;
    ZuMaterial* outMaterial = nullptr;
    bool debugOn = false;
    ZuRenderObject* debugObject = nullptr;
    ZuMaterial* debugMaterial = nullptr;
    const char* lastRefusal = nullptr;
};
