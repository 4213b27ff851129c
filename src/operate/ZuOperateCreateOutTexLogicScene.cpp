#include "operate/ZuOperateCreateOutTexLogicScene.h"

#include "operate/ZuOperateSceneAccess.h"
#include "scene/ZuSceneMgr.h"

ZuOperateCreateOutTexLogicScene::ZuOperateCreateOutTexLogicScene(ZuAppMain* app, const char* name, int winWidth,
                                                                 int winHeight, int sceneWidth, int sceneHeight,
                                                                 unsigned texture)
    : ZuOperateBase(app), name(name), winWidth(winWidth), winHeight(winHeight), sceneWidth(sceneWidth),
      sceneHeight(sceneHeight), texture(texture) {}

void ZuOperateCreateOutTexLogicScene::process(float) {
    ZuSceneMgr* scenes = zuop::sceneMgr(app);
    if (scenes) scenes->createOutTexScene(name.c_str(), winWidth, winHeight, sceneWidth, sceneHeight, texture);
}
