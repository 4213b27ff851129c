#pragma once

#include "basesys/qzString.h"
#include "operate/ZuOperateBase.h"
#include "render/command/RENDERSTREAMTYPE.h"

// Puts a textured sky dome around a scene's 3D content.
class ZuOperateCreateSkyDome : public ZuOperateBase {
public:
    ZuOperateCreateSkyDome(ZuAppMain* app, const char* path, const char* scene, int resUID)
        : ZuOperateBase(app), path(path), scene(scene), resUID(resUID) {}
    void process(float delta) override;
    // Before the push: the stream the dome draws in (14 unless set).
    void setRenderOrder(RENDERSTREAMTYPE order) { renderOrder = order; }
    RENDERSTREAMTYPE getRenderOrder() const { return renderOrder; }

private:
    qz::string path;
    qz::string scene;
    int resUID;
    RENDERSTREAMTYPE renderOrder = 14;
};
