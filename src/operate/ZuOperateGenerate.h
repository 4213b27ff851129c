#pragma once

#include "basesys/qzString.h"
#include "operate/ZuOperateBase.h"

class ZuParseData;

// Builds one parsed item on the render thread and hangs it in its scene.
// It runs once: a second process finds nothing left to build.
class ZuOperateGenerate : public ZuOperateBase {
public:
    ZuOperateGenerate(ZuAppMain* app, ZuParseData* data, const char* scene, int resUID, const char* path);
    ~ZuOperateGenerate() override;
    void process(float delta) override;

private:
    ZuParseData* data;
    qz::string scene;
    int resUID;
    qz::string path;
};
