#pragma once

#include "render/fbo/ZuFboObject.h"

// A 4-sample framebuffer (ES 3). It has no textures and cannot be sampled:
// it is resolved into an ordinary framebuffer by a blit.
class ZuMSAAFboObject : public ZuFboObject {
public:
    explicit ZuMSAAFboObject(ZuAppMain* app) : ZuFboObject(app) {}
    ~ZuMSAAFboObject() override;

    bool resetFboWidth(int width, int height) override;
    void disableFbo() override;
    void swap() override {}

    unsigned int getColorRb() const { return colorRb; }

    static constexpr int kSamples = 4;

private:
    unsigned int colorRb = 0;
    bool colorEnabled = false;
};
