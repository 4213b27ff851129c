#pragma once

#include "basesys/qzString.h"
#include "operate/ZuOperateBase.h"

class ZuMaterial;

// Shows a host-made full-screen material for some seconds, before the
// overlays, without a package.
class ZuOperateFilterOut : public ZuOperateBase {
public:
    // Retains the material until the operation has run.
    ZuOperateFilterOut(ZuAppMain* app, const char* scene, int unused, ZuMaterial* material, float seconds);
    ~ZuOperateFilterOut() override;
    void process(float delta) override;

private:
    qz::string scene;
    ZuMaterial* material;
    float seconds;
};
