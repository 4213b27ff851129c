#pragma once

#include "basesys/qzString.h"
#include "render/object/ZuRenderObject.h"

// Asks for one pick read at a touch point; the point is used once.
class ZuPickColorRenderObject : public ZuRenderObject {
public:
    explicit ZuPickColorRenderObject(ZuAppMain* app) : ZuRenderObject(app) {}
    void pushCmd(ZuRenderScene* scene, RENDERSTREAMTYPE stream, const char* label) override;
    void setPoint(int px, int py) { x = px; y = py; }
    void setNodeName(const char* name) { nodeName = name ? name : ""; }

private:
    int x = 0;
    int y = 0;
    qz::string nodeName;
};
