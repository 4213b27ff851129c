#pragma once

#include "basesys/ZuRefObject.h"

class ZuRenderScene;

// One recorded step of a frame, replayed once on the GL thread and then
// released. Commands live at most one frame.
//
// The label is borrowed, not copied: recording runs for every draw of every
// frame, so labels are string literals (or text that outlives the frame).
class ZuRenderCmd : public ZuRefObject {
public:
    virtual void render() {}

    void setName(const char* label) { name = label ? label : ""; }
    const char* getName() const { return name; }
    void setScene(ZuRenderScene* owner) { scene = owner; }
    ZuRenderScene* getScene() const { return scene; }

protected:
    const char* name = "ZuRenderCmd";
    ZuRenderScene* scene = nullptr;  // filled by ZuRenderScene::pushRenderCmd
};
