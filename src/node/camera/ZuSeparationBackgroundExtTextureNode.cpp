#include "node/camera/ZuSeparationBackgroundExtTextureNode.h"

#include "node/camera/ZuSeparationMaterial.h"
#include "render/command/RENDERSTREAMTYPE.h"
#include "render/object/ZuRenderObject.h"

ZuSeparationBackgroundExtTextureNode::ZuSeparationBackgroundExtTextureNode(ZuAppMain* app)
    : ZuBackGroundExtTextureNode(app) {
    setType("ZuSeparationBackgroundExtTextureNode");
}

void ZuSeparationBackgroundExtTextureNode::zuinit() {
    ZuBackGroundExtTextureNode::zuinit();
    ZuSeparationMaterial* separation = new ZuSeparationMaterial(app, "screennorseparation");
    separation->setEdgeColor(1, 0, 0, 1);
    separationMaterial = separation;
}

void ZuSeparationBackgroundExtTextureNode::zudestroy() {
    mask.clear();
    qzSafeRelease(separationMaterial);
    ZuBackGroundExtTextureNode::zudestroy();
}

void ZuSeparationBackgroundExtTextureNode::update(float dt) {
    ZuBackGroundExtTextureNode::update(dt);
    if (!isVisible()) return;
    // The node's own render object draws the image into the scene, masked.
    placeImage(getRenderObject(), separationMaterial);
    mask.applyTo(separationMaterial);
}

void ZuSeparationBackgroundExtTextureNode::render() {
    if (!isVisible()) return;
    ZuBackGroundExtTextureNode::render();
    if (ZuRenderObject* object = getRenderObject()) object->pushCmd(getActiveRenderScene(), RS_BG_RENDER, "bg_render");
}
