#include "node/output/ZuInputFboRenderNode.h"

#include "basesys/Camera.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuGlobalMgr.h"
#include "node/camera/BGTexture.h"
#include "render/command/RENDERSTREAMTYPE.h"
#include "render/fbo/ZuFboBeginRenderObject.h"
#include "render/fbo/ZuFboEndRenderObject.h"
#include "render/fbo/ZuFboMgr.h"
#include "render/fbo/ZuFboObject.h"
#include "render/material/ZuMaterial.h"
#include "render/mesh/ZuRenderData.h"
#include "render/object/ZuRenderObject.h"
#include "scene/ZuScene.h"

#include <cstdio>

ZuInputFboRenderNode::ZuInputFboRenderNode(ZuAppMain* app) : ZuNode(app) { setType("ZuInputFboRenderNode"); }

void ZuInputFboRenderNode::zuinit() {
    beginObject = new ZuFboBeginRenderObject(app);
    endObject = new ZuFboEndRenderObject(app);
    ZuRenderObject* object = new ZuRenderObject(app);
    setRenderObject(object);
    object->release();
    material = new ZuMaterial(app, "screennor");
}

void ZuInputFboRenderNode::zudestroy() {
    qzSafeRelease(beginObject);
    qzSafeRelease(endObject);
    qzSafeRelease(material);
    qzSafeRelease(fbo);
    ZuNode::zudestroy();
}

void ZuInputFboRenderNode::setFBO(const char* sceneName, int id) {
    if (id == fboId) return;
    qzSafeRelease(fbo);
    fboId = id;
    ZuGlobalMgr* global = app ? app->getGlobalMgr() : nullptr;
    if (!global || !global->getFboMgr() || !global->getConfig()) return;
    Camera* camera = global->getConfig()->getCamera(sceneName);
    char name[40];
    snprintf(name, sizeof name, "FboRender%d", m_uid);
    fbo = global->getFboMgr()->createOutFboTexture(name, camera->width, camera->height, static_cast<unsigned>(id), false);
    if (!fbo) return;
    fbo->setClearColor(1, 0, 0, 1);
    fbo->retain();
}

void ZuInputFboRenderNode::update(float dt) {
    ZuNode::update(dt);
    if (beginObject) beginObject->setFbo(fbo);
    ZuScene* scene = getScene();
    ZuRenderObject* object = getRenderObject();
    if (!material || !object || !scene) return;
    material->setTexcoordFlip(1.0f, 1.0f);
    material->setTexture0FBO(scene->getFbo(), true);
    ZuConfig* config = app->getGlobalMgr()->getConfig();
    if (config && config->getCamera(m_sceneName.c_str())->angle == 0) {
        if (ZuRenderData* data = BGTexture::renderDataOf(app)) object->setMesh(data->meshFull);
    }
    object->setMaterial(material);
}

void ZuInputFboRenderNode::render() {
    if (!isVisible()) return;
    if (!fbo || !beginObject || !endObject) return;
    ZuRenderScene* scene = getActiveRenderScene();
    beginObject->pushCmd(scene, RS_INPUT_FBO, "animojiModelRender");
    if (ZuRenderObject* object = getRenderObject()) object->pushCmd(scene, RS_INPUT_FBO, "animojiModelRender");
    endObject->pushCmd(scene, RS_INPUT_FBO, "animojiModelRender");
}
