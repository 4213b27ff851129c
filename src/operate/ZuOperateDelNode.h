#pragma once

#include "operate/ZuOperateBase.h"

// Deletes one node by uid.
class ZuOperateDelNode : public ZuOperateBase {
public:
    ZuOperateDelNode(ZuAppMain* app, int uid) : ZuOperateBase(app), uid(uid) {}
    void process(float delta) override;

private:
    int uid;
};
