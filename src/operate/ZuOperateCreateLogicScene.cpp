#include "operate/ZuOperateCreateLogicScene.h"

#include "operate/ZuOperateSceneAccess.h"
#include "scene/ZuScene.h"
#include "scene/ZuSceneMgr.h"

ZuOperateCreateLogicScene::ZuOperateCreateLogicScene(ZuAppMain* app, const char* name, int winWidth, int winHeight,
                                                     int sceneWidth, int sceneHeight, int scaleMode)
    : ZuOperateBase(app), name(name), winWidth(winWidth), winHeight(winHeight), sceneWidth(sceneWidth),
      sceneHeight(sceneHeight), scaleMode(scaleMode) {}

void ZuOperateCreateLogicScene::process(float) {
    ZuSceneMgr* scenes = zuop::sceneMgr(app);
    if (!scenes) return;
    ZuScene* scene = scenes->createScene(name.c_str(), winWidth, winHeight, sceneWidth, sceneHeight);
    if (scene) scene->setScaleMode(scaleMode);
}
