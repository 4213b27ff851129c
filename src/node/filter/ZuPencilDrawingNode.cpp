#include "node/filter/ZuPencilDrawingNode.h"

#include "node/filter/ZuPencilDrawingMaterial.h"
#include "render/fbo/ZuFboObject.h"
#include "scene/ZuScene.h"

ZuPencilDrawingNode::ZuPencilDrawingNode(ZuAppMain* app) : ZuFilterOutter(app) { setType("ZuPencilDrawingNode"); }

void ZuPencilDrawingNode::zuinit() {
    ZuFilterOutter::zuinit();
    auto* material = new ZuPencilDrawingMaterial(app);
    setMaterial(material);
    material->release();
}

ZuPencilDrawingMaterial* ZuPencilDrawingNode::getPencilMaterial() const {
    return dynamic_cast<ZuPencilDrawingMaterial*>(getMaterial());
}

void ZuPencilDrawingNode::update(float dt) {
    ZuFilterOutter::update(dt);
    // Strokes and hatching are measured in pixels of the picture.
    ZuScene* scene = getActiveScene();
    ZuFboObject* fbo = scene ? scene->getFbo() : nullptr;
    ZuPencilDrawingMaterial* pencil = getPencilMaterial();
    if (pencil && fbo)
        pencil->setTexSizeIndex(0, static_cast<float>(fbo->getFrameWidth()), static_cast<float>(fbo->getFrameHeight()));
}
