#pragma once

#include "node/morph/ZuAotuMirror.h"

// A round lens around one point, in camera pixels with y counted up.
class ZuEnlargeEyeMaterial : public ZuAotuMirror {
public:
    explicit ZuEnlargeEyeMaterial(ZuAppMain* app) : ZuAotuMirror(app, "filterEnlargeEye") {}

    void _refreshInner() override;
    void setCentralPos(float x, float y);
    const float* getCentralPos() const { return centralPos; }

private:
    float centralPos[2] = {0.0f, 0.0f};
};
