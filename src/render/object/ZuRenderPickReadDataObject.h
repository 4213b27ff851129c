#pragma once

#include "render/object/ZuRenderObject.h"

class ZuDataSwap;

// Samples twelve pixels at points given in one swap into another, then draws.
class ZuRenderPickReadDataObject : public ZuRenderObject {
public:
    explicit ZuRenderPickReadDataObject(ZuAppMain* app) : ZuRenderObject(app) {}
    void pushCmd(ZuRenderScene* scene, RENDERSTREAMTYPE stream, const char* label) override;
    void setSwaps(ZuDataSwap* pixels, ZuDataSwap* points) {
        pixelSwap = pixels;
        pointSwap = points;
    }

private:
    ZuDataSwap* pixelSwap = nullptr;
    ZuDataSwap* pointSwap = nullptr;
};
