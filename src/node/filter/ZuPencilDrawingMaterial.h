#pragma once

#include "render/material/ZuGMaterial.h"

// The pencil drawing's settings: how far the edge probe reaches (texels), how
// many texels a stroke runs along, and how strongly the shading hatch shows
// (0 plain paper, 1 full hatch).
class ZuPencilDrawingMaterial : public ZuGMaterial {
public:
    explicit ZuPencilDrawingMaterial(ZuAppMain* app) : ZuGMaterial(app, "filterPencilDrawing") {}

    void _refreshInner() override;
    void setLineWidth(float value) { lineWidth = value; }
    void setLineLength(float value) { lineLength = value; }
    void setToneLengthWeight(float value) { toneLengthWeight = value; }
    float getLineWidth() const { return lineWidth; }
    float getLineLength() const { return lineLength; }
    float getToneLengthWeight() const { return toneLengthWeight; }

private:
    float lineWidth = 1.0f;
    float lineLength = 3.0f;
    float toneLengthWeight = 0.6f;
};
