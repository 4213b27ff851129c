#include "node/camera/ZuSeparationBackgroundNode.h"

#include "node/camera/ZuSeparationMaterial.h"
#include "render/object/ZuRenderObject.h"

ZuSeparationBackgroundNode::ZuSeparationBackgroundNode(ZuAppMain* app) : ZuBgRenderNode(app) {
    setType("ZuSeparationBackgroundNode");
}

void ZuSeparationBackgroundNode::zuinit() {
    ZuSeparationMaterial* separation = new ZuSeparationMaterial(app, "screennorseparation");
    separation->setEdgeColor(1, 0, 0, 1);
    material = separation;
    ZuBgRenderNode::zuinit();
}

void ZuSeparationBackgroundNode::zudestroy() {
    mask.clear();
    ZuBgRenderNode::zudestroy();
}

void ZuSeparationBackgroundNode::update(float dt) {
    ZuNode::update(dt);
    if (placeBackground()) mask.applyTo(material);
}
