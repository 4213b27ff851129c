#pragma once

#include "basesys/qzString.h"
#include "operate/ZuOperateBase.h"

class ZuMaterial;

// Switches a material to the program of a shader key, on the GL thread.
class ZuOperateCreateShader : public ZuOperateBase {
public:
    ZuOperateCreateShader(ZuAppMain* app, ZuMaterial* material, const char* name)
        : ZuOperateBase(app), material(material), name(name) {}
    void process(float delta) override;

private:
    ZuMaterial* material;
    qz::string name;
};
