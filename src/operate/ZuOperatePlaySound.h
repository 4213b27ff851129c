#pragma once

#include "basesys/qzString.h"
#include "operate/ZuOperateBase.h"

// Kept for hosts that push it: sound belongs to the package's sound nodes,
// so this operation changes nothing.
class ZuOperatePlaySound : public ZuOperateBase {
public:
    ZuOperatePlaySound(ZuAppMain* app, const char* scene, const char* path, bool loop)
        : ZuOperateBase(app), scene(scene), path(path), loop(loop) {}
    void process(float) override {}

private:
    qz::string scene;
    qz::string path;
    bool loop;
};
