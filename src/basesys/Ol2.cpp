#include "basesys/Ol2.h"

#include "basesys/CBrockHelp.h"
#include "basesys/ZuAppMainAsync.h"
#include "basesys/ZuGlobalMgr.h"
#include "operate/ZuOperateCreateNode.h"
#include "operate/ZuOperateMgr.h"

void Ol2::afterStart(int width, int height) {
    help->create(width, height);
    ZuOperateMgr* operations = engine->getGlobalMgr()->getOperateMgr();
    if (!operations) return;
    auto* points = new ZuOperateCreateNode(engine, "FacePoint", "ZuFacePointNode", scene.c_str());
    operations->pushOperate(points);
    points->release();
    auto* axis = new ZuOperateCreateNode(engine, "FaceAxis", "ZuFaceAxis", scene.c_str());
    operations->pushOperate(axis);
    axis->release();
}
