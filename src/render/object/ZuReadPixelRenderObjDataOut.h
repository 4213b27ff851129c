#pragma once

#include "basesys/qzString.h"
#include "render/object/ZuRenderObject.h"

class ZuDataSwapCache;

// Draws, then reads the frame into a ring of swaps that a host thread drains.
// The read is synchronous on every GL version: a ring already decouples the
// host from the render thread, and an asynchronous read would need a second
// ring of pixel buffers for no gain in latency.
class ZuReadPixelRenderObjDataOut : public ZuRenderObject {
public:
    explicit ZuReadPixelRenderObjDataOut(ZuAppMain* app) : ZuRenderObject(app) {}
    void pushCmd(ZuRenderScene* scene, RENDERSTREAMTYPE stream, const char* label) override;
    void setParam(const char* name, int outWidth, int outHeight, int outFormat);
    void setCache(ZuDataSwapCache* ring) { cache = ring; }

private:
    qz::string sceneName;
    int format = 1;
    int width = 0;
    int height = 0;
    ZuDataSwapCache* cache = nullptr;
};
