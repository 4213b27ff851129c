#include "support/PicturePainterNode.h"

#include "basesys/ZuAppMain.h"
#include "basesys/ZuGlobalMgr.h"
#include "basesys/ZuGlobalParam.h"
#include "render/command/RENDERSTREAMTYPE.h"
#include "render/material/ZuMaterial.h"
#include "render/mesh/ZuRenderData.h"
#include "render/ZuRenderMgr.h"
#include "render/object/ZuRenderObject.h"
#include "render/texture/ZuTexture2D.h"
#include "scene/ZuScene.h"

#include <GLES2/gl2.h>

void PicturePainterNode::zuinit() {
    int width = 0, height = 0;
    std::vector<uint8_t> pixels = picture(&width, &height);
    texture = new ZuTexture2D(app);
    texture->zuinit();
    texture->setwidth(width);
    texture->setheight(height);
    texture->setinformate(GL_RGBA);
    texture->setdataformate(GL_RGBA);
    texture->setData(pixels.data(), 0, false);
    texture->apply();
    texture->setbLoad(true);
    material = new ZuMaterial(app, "screennor");
    material->setTexture0(texture);
    material->setDepthTest(false);
    material->setBlendEnable(false);
    object = new ZuRenderObject(app);
}

void PicturePainterNode::zudestroy() {
    qzSafeRelease(material);
    qzSafeRelease(object);
    if (texture) texture->zudestroy();
    qzSafeRelease(texture);
    ZuNode::zudestroy();
}

void PicturePainterNode::update(float dt) {
    ZuNode::update(dt);
    object->setMesh(app->getGlobalMgr()->getRenderMgr()->getRenderData()->meshFull);
    object->setMaterial(material);
}

void PicturePainterNode::render() {
    ZuScene* scene = app->getGlobalParam()->activeScene;
    object->pushCmd(scene ? scene->getRenderScene() : nullptr, RS_BG_RENDER, "painter");
}
