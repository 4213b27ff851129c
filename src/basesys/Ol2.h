#pragma once

#include "basesys/ZuSceneFacade.h"

enum OL2_CAMERA_FORMATE { OL2_CAMERA_NV21 = 0, OL2_CAMERA_NV12 = 1, OL2_CAMERA_YV12 = 2, OL2_CAMERA_I420 = 3 };

// The one-scene facade on the scene "Ol2": its start also makes the scratch
// frame and adds the face-point and face-axis debug nodes.
class Ol2 : public ZuSceneFacade {
public:
    Ol2() : ZuSceneFacade("Ol2") {}
    ~Ol2() override = default;

protected:
    void afterStart(int width, int height) override;
};
