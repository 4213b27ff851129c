#pragma once

#include "render/OUTSTEAMTYPE.h"
#include "scene/ZuNode.h"

class ZuDataSwap;
class ZuFboBeginNoclearRenderObject;
class ZuFboBeginRenderObject;
class ZuFboEndRenderObject;
class ZuFboObject;
class ZuFboSwapRenderObject;
class ZuMaterial;
class ZuReadPixelRenderObject;
class ZuRenderObject;
class ZuRowsRenderObject;

// Hands the finished scene to the host as a CPU buffer (stream 25): copies
// it into an own target in the camera's orientation, converts it there to
// the output format, and reads it back into a data swap. Format and size are
// fixed by the first setOutFormate; a new format needs a new node.
//
// Each frame takes the shortest road to the same bytes. RGBA and BGRA need
// one draw, orienting and converting at once; RGBA that needs no turn, no
// flip and no scaling is read straight from the scene target. The planar
// formats convert in one draw from the scene target when it needs no
// orienting, and shade only the rows that are read.
class ZuDataTransNode : public ZuNode {
public:
    explicit ZuDataTransNode(ZuAppMain* app);

    void zuinit() override;
    void zudestroy() override;
    void update(float dt) override;
    void render() override;

    void setOutFormate(OUTSTEAMTYPE format, int width, int height);
    // True (the default) keeps the picture as it is; false mirrors it.
    void setOutMirror(bool value) { mirror = value; }
    // True turns the picture upside down.
    void setOutInvert(bool value) { invert = value; }
    // While set nothing is recorded, so the last frame read stays readable.
    void setintercept(bool value) { intercept = value; }
    bool getintercept() const { return intercept; }
    ZuDataSwap* getOutDataSwap() const { return outSwap; }
    // A host buffer that takes the frames in place of the own one; null goes back.
    void setShareSwap(ZuDataSwap* swap);
    void debug(bool on) { debugOn = on; }

    OUTSTEAMTYPE getFormat() const { return format; }
    int getOutWidth() const { return outWidth; }
    int getOutHeight() const { return outHeight; }
    ZuFboObject* getFbo() const { return fbo; }
    ZuMaterial* getConvertMaterial() const { return convertMaterial; }

private:
    // The roads of render(), chosen in update.
    enum class Road { OrientThenConvert, ConvertScene, OneDraw, ReadScene };
    Road chooseRoad(ZuFboObject* sceneFbo, bool unturned) const;

    ZuFboBeginRenderObject* fboBegin = nullptr;
    ZuRenderObject* copyObject = nullptr;
    ZuFboSwapRenderObject* swapObject = nullptr;
    ZuRowsRenderObject* convertObject = nullptr;
    ZuFboBeginNoclearRenderObject* sceneBegin = nullptr;
    ZuFboEndRenderObject* sceneEnd = nullptr;
    Road road = Road::OrientThenConvert;
    ZuReadPixelRenderObject* readObject = nullptr;
    ZuFboEndRenderObject* fboEnd = nullptr;
    ZuRenderObject* debugObject = nullptr;
    ZuMaterial* debugMaterial = nullptr;

    OUTSTEAMTYPE format = OST_NV12;
    int outWidth = 1;
    int outHeight = 1;
    bool pboFlip = false;
    bool mirror = true;
    bool invert = false;
    bool debugOn = false;
    bool intercept = false;

    ZuMaterial* copyMaterial = nullptr;
    ZuMaterial* convertMaterial = nullptr;
    ZuFboObject* fbo = nullptr;
    ZuDataSwap* outSwap = nullptr;
    ZuDataSwap* shareSwap = nullptr;
};
