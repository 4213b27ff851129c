#pragma once

#include "basesys/ZuObject.h"
#include "basesys/qzString.h"

#include <cstdint>

class ZuAppMain;
class ZuTexture;

// One image of a flip-book. The texture is looked up by its full path in the
// texture cache (an atlas region is found there under its frame name) and
// held while the frame lives.
class ZuKeyFrame : public ZuObject {
public:
    explicit ZuKeyFrame(ZuAppMain* app) : app(app) {}
    ~ZuKeyFrame() override { zudestroy(); }

    // Remembers the path and loads the image at once, so that the first
    // frame the animation shows already has its size.
    void initTexture(const char* path);
    // The texture, looked up again if the first attempt found nothing.
    ZuTexture* getTexture();
    void zudestroy();

    void setframeID(uint32_t id) { frameID = id; }
    uint32_t getframeID() const { return frameID; }
    const qz::string& getTexName() const { return texName; }

    ZuKeyFrame* next = nullptr;

private:
    ZuAppMain* app;
    uint32_t frameID = 0;
    qz::string texName;
    ZuTexture* texture = nullptr;
};
