#pragma once

#include "basesys/qzString.h"
#include "operate/ZuOperateBase.h"

// Shows or hides a scene: its render scene stops replaying and its node stops drawing.
class ZuSceneVisible : public ZuOperateBase {
public:
    ZuSceneVisible(ZuAppMain* app, const char* name, bool visible) : ZuOperateBase(app), name(name), visible(visible) {}
    void process(float delta) override;
    // The same change, for the facade to make at once as well.
    static void apply(ZuAppMain* app, const char* name, bool visible);

private:
    qz::string name;
    bool visible;
};
