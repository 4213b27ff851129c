#include "scene/ZuAdaptObj.h"

#include "render/command/RENDERSTREAMTYPE.h"
#include "render/material/ZuMaterial.h"
#include "render/ZuRenderCamera.h"
#include "render/mesh/ZuRenderData.h"
#include "render/mesh/ZuRenderMesh.h"
#include "render/object/ZuRenderObject.h"
#include "scene/ZuScene.h"

ZuAdaptObj::~ZuAdaptObj() { destroy(); }

void ZuAdaptObj::init(int newWinWidth, int newWinHeight, int newSceneWidth, int newSceneHeight) {
    destroy();
    winWidth = newWinWidth;
    winHeight = newWinHeight;
    sceneWidth = newSceneWidth;
    sceneHeight = newSceneHeight;
    mesh = ZuRenderData::createRectMesh(static_cast<float>(sceneWidth), static_cast<float>(sceneHeight));
    material = new ZuMaterial(app, "NormalV2CT1");
    renderObject = new ZuRenderObject(app);
    camera = new ZuRenderCamera();
    camera->resetRenderCamera(static_cast<float>(winWidth), static_cast<float>(winHeight));
}

void ZuAdaptObj::destroy() {
    qzSafeRelease(material);
    qzSafeRelease(renderObject);
    qzSafeRelease(mesh);
    delete camera;
    camera = nullptr;
}

void ZuAdaptObj::update(float delta, ZuScene* scene) {
    if (!material || !mesh || !renderObject || !camera) return;
    model.identity();
    if (scaleMode == SCALE_MODE_FULL && sceneWidth > 0 && sceneHeight > 0)
        model.setScale(ZuVec3(static_cast<float>(winWidth) / sceneWidth,
                              static_cast<float>(winHeight) / sceneHeight, 1.0f));
    model.setPostion(ZuVec3(winWidth * 0.5f, winHeight * 0.5f, 0.0f));
    material->update(delta);
    material->setModelMatrix(model.data());
    material->setVPMatrix(camera->getVPMat());
    material->setTexture0FBO(scene ? scene->getFbo() : nullptr, true);
    material->setTexcoordFlip(mirror ? 1.0f : -1.0f, 1.0f);
    renderObject->setMesh(mesh);
    renderObject->setMaterial(material);
}

void ZuAdaptObj::render(ZuRenderScene* scene) {
    if (renderObject && scene) renderObject->pushCmd(scene, RS_ADAPT, "adaptscene");
}
