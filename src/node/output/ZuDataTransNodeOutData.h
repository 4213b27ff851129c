#pragma once

#include "render/OUTSTEAMTYPE.h"
#include "scene/ZuNode.h"

class ZuDataSwapCache;
class ZuFboBeginRenderObject;
class ZuFboEndRenderObject;
class ZuFboObject;
class ZuFboSwapRenderObject;
class ZuMaterial;
class ZuReadPixelRenderObjDataOut;
class ZuRenderObject;

// The ring-buffer form of the CPU output (stream 25): each frame is oriented,
// converted and read into the next free slot of a ring that a host thread
// drains, so a slow reader holds the frames instead of losing them.
class ZuDataTransNodeOutData : public ZuNode {
public:
    explicit ZuDataTransNodeOutData(ZuAppMain* app);

    void zuinit() override;
    void zudestroy() override;
    void update(float dt) override;
    void render() override;

    // Fixed by the first call, as for the single-buffer output.
    void setOutFormate(OUTSTEAMTYPE format, int width, int height);
    // The ring the frames go to; makes the read object.
    void setDataCache(ZuDataSwapCache* cache);
    void setOutMirror(bool value) { mirror = value; }
    void debug(bool on) { debugOn = on; }

    ZuFboObject* getFbo() const { return fbo; }
    OUTSTEAMTYPE getFormat() const { return format; }

private:
    ZuMaterial* convertMaterial = nullptr;
    ZuFboBeginRenderObject* fboBegin = nullptr;
    ZuFboEndRenderObject* fboEnd = nullptr;
    ZuRenderObject* angleObject = nullptr;
    ZuFboSwapRenderObject* swapObject = nullptr;
    ZuReadPixelRenderObjDataOut* readObject = nullptr;
    ZuFboObject* fbo = nullptr;
    ZuDataSwapCache* cache = nullptr;
    OUTSTEAMTYPE format = OST_NV12;
    int outWidth = 1;
    int outHeight = 1;
    bool mirror = true;
    bool debugOn = false;
    ZuRenderObject* debugObject = nullptr;
    ZuMaterial* debugMaterial = nullptr;
    ZuMaterial* angleMaterial = nullptr;
};
