#pragma once

#include "basesys/qzString.h"
#include "render/object/ZuRenderObject.h"

class ZuDataSwap;
class ZuPboObject;

// Reads a finished frame back into a data swap. On ES 3 it goes through two
// pixel buffers that trade roles every frame (the owner toggles flip), so
// each is written in one frame and mapped in the next; below ES 3 the read
// is synchronous.
class ZuReadPixelRenderObject : public ZuRenderObject {
public:
    explicit ZuReadPixelRenderObject(ZuAppMain* app) : ZuRenderObject(app) {}
    // Gives the pixel buffers back to their manager.
    ~ZuReadPixelRenderObject() override;

    void pushCmd(ZuRenderScene* scene, RENDERSTREAMTYPE stream, const char* label) override;

    // Also makes the two pixel buffers on ES 3 (once).
    void setParam(int outWidth, int outHeight, int outFormat);
    void setDataSwap(ZuDataSwap* swap);
    void setSceneName(const char* name) { sceneName = name ? name : ""; }
    void setNodeName(const char* name) { nodeName = name ? name : ""; }
    void setFlip(bool value) { flip = value; }
    bool getFlip() const { return flip; }
    ZuPboObject* getPbo(int index) const { return index == 0 ? pbo0 : pbo1; }

private:
    bool isGles3() const;
    void createPbo(int pboWidth, int pboHeight);
    void releasePbo(ZuPboObject*& pbo);

    qz::string sceneName;
    qz::string nodeName;
    bool flip = false;
    ZuDataSwap* dataSwap = nullptr;
    ZuPboObject* pbo0 = nullptr;
    ZuPboObject* pbo1 = nullptr;
    int format = 1;
    int width = 0;
    int height = 0;
};
