#include "operate/ZuOperateCameraControl.h"

#include "operate/ZuOperateSceneAccess.h"
#include "scene/ZuNode.h"
#include "scene/ZuNodeCreator.h"
#include "scene/ZuNodeMgr.h"

void ZuOperateCameraControl::process(float) {
    ZuNodeMgr* nodes = zuop::nodeMgr(app);
    if (!flag || !nodes || !nodes->getCreator() || nodes->getNode("CameraControl")) return;
    // Not in any tree: it takes part through the registry alone.
    ZuNode* node = nodes->getCreator()->createNode("ZuCameraControlFp", scene.c_str(), "cameraControl");
    if (!node) return;
    node->setresUID(resUID);
    node->setname("CameraControl");
}
