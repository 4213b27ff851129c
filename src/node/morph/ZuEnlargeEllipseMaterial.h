#pragma once

#include "node/morph/ZuAotuMirror.h"

// An oval lens: the two foci and the centre the picture is pulled towards,
// in camera pixels with y counted up. The radius is the half major axis.
class ZuEnlargeEllipseMaterial : public ZuAotuMirror {
public:
    explicit ZuEnlargeEllipseMaterial(ZuAppMain* app) : ZuAotuMirror(app, "filterEnlargeEllipse") {}

    void _refreshInner() override;
    void setPos(float x, float y);
    void setPosL(float x, float y);
    void setPosR(float x, float y);
    const float* getPos() const { return pos; }
    const float* getPosL() const { return posL; }
    const float* getPosR() const { return posR; }

private:
    float posL[2] = {0.0f, 0.0f};
    float posR[2] = {0.0f, 0.0f};
    float pos[2] = {0.0f, 0.0f};
};
