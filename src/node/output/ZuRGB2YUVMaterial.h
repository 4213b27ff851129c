#pragma once

#include "render/OUTSTEAMTYPE.h"
#include "render/material/ZuGMaterial.h"

// Draws slot 0 as packed planar YUV: four plane bytes to each RGBA pixel, so
// one read of 0.375 of the rows fetches a finished 1.5-bytes-per-pixel frame.
// The program follows the output format; the shader needs the frame size to
// find which source pixels each packed byte belongs to.
class ZuRGB2YUVMaterial : public ZuGMaterial {
public:
    ZuRGB2YUVMaterial(ZuAppMain* app, OUTSTEAMTYPE format);

    // The program of a YUV format; null for the packed RGB formats.
    static const char* programOf(OUTSTEAMTYPE format);

    // Truncated to whole pixels: the packing works in pixel steps.
    void setTex(float w, float h);
    int getTexWidth() const { return texWidth; }
    int getTexHeight() const { return texHeight; }

    void _refreshInner() override;

private:
    int texWidth = 0;
    int texHeight = 0;
};
