#pragma once

#include "render/material/ZuGMaterial.h"

// The run-time curve look's material: which of the three tables apply, and
// the hue turn and saturation factor of the HSV step.
class ZuGatherMaterial : public ZuGMaterial {
public:
    explicit ZuGatherMaterial(ZuAppMain* app) : ZuGMaterial(app, "filterMoon") {}

    void _refreshInner() override;

    void setDeltas(float value) { deltas = value; }
    void setDeltah(float value) { deltah = value; }
    void setIsHsv(int value) { isHsv = value; }
    void setIsContrast(int value) { isContrast = value; }
    void setIsBrightness(int value) { isBrightness = value; }
    float getDeltas() const { return deltas; }
    float getDeltah() const { return deltah; }
    int getIsHsv() const { return isHsv; }
    int getIsContrast() const { return isContrast; }
    int getIsBrightness() const { return isBrightness; }

private:
    float deltas = 0.0f;
    float deltah = 0.0f;
    int isHsv = 0;
    int isContrast = 0;
    int isBrightness = 0;
};
