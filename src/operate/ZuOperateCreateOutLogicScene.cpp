#include "operate/ZuOperateCreateOutLogicScene.h"

#include "operate/ZuOperateSceneAccess.h"
#include "scene/ZuScene.h"
#include "scene/ZuSceneMgr.h"

ZuOperateCreateOutLogicScene::ZuOperateCreateOutLogicScene(ZuAppMain* app, const char* name, int winWidth,
                                                           int winHeight, int sceneWidth, int sceneHeight,
                                                           unsigned fbo, int scaleMode)
    : ZuOperateBase(app), name(name), winWidth(winWidth), winHeight(winHeight), sceneWidth(sceneWidth),
      sceneHeight(sceneHeight), fbo(fbo), scaleMode(scaleMode) {}

void ZuOperateCreateOutLogicScene::process(float) {
    ZuSceneMgr* scenes = zuop::sceneMgr(app);
    if (!scenes) return;
    ZuScene* scene = scenes->createOutFBOScene(name.c_str(), winWidth, winHeight, sceneWidth, sceneHeight, fbo);
    if (scene) scene->setScaleMode(scaleMode);
}
