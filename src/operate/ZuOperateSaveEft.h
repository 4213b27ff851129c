#pragma once

#include "basesys/qzString.h"
#include "operate/ZuOperateBase.h"

// Walks a scene for the nodes of one package. Nothing is written: saving a
// package back to disk is not something the engine does.
class ZuOperateSaveEft : public ZuOperateBase {
public:
    ZuOperateSaveEft(ZuAppMain* app, int resUID, const char* scene, const char* path)
        : ZuOperateBase(app), resUID(resUID), scene(scene), path(path) {}
    void process(float delta) override;

private:
    int resUID;
    qz::string scene;
    qz::string path;
};
