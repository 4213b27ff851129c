#pragma once

#include "basesys/ZuRefObject.h"
#include "basesys/qzString.h"

class ZuRenderScene;

// One recorded step of a frame, replayed once on the GL thread and then
// released. Commands live at most one frame.
class ZuRenderCmd : public ZuRefObject {
public:
    ZuRenderCmd() : name("ZuRenderCmd") {}
    virtual void render() {}

    void setName(const char* label) { name = label ? label : ""; }
    const qz::string& getName() const { return name; }
    void setScene(ZuRenderScene* owner) { scene = owner; }
    ZuRenderScene* getScene() const { return scene; }

protected:
    qz::string name;
    ZuRenderScene* scene = nullptr;  // filled by ZuRenderScene::pushRenderCmd
};
