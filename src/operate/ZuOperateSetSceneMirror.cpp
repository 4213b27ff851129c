#include "operate/ZuOperateSetSceneMirror.h"

#include "operate/ZuOperateSceneAccess.h"
#include "scene/ZuScene.h"

void ZuOperateSetSceneMirror::process(float) {
    if (ZuScene* scene = zuop::scene(app, name.c_str())) scene->setMirror(mirror);
}
