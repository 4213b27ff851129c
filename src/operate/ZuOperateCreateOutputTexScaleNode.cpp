#include "operate/ZuOperateCreateOutputTexScaleNode.h"

#include "event/ZuEvent.h"
#include "event/ZuEventMgr.h"
#include "node/output/ZuDataOutputScaleTexNode.h"
#include "operate/ZuOperateSceneAccess.h"
#include "scene/ZuNodeCreator.h"
#include "scene/ZuNodeMgr.h"
#include "scene/ZuScene.h"

void ZuOperateCreateOutputTexScaleNode::process(float) {
    ZuScene* target = zuop::scene(app, scene.c_str());
    ZuNodeMgr* nodes = zuop::nodeMgr(app);
    if (!target || !nodes || !nodes->getCreator()) return;
    ZuDataOutputScaleTexNode* node = dynamic_cast<ZuDataOutputScaleTexNode*>(
        nodes->getCreator()->createNode("ZuDataOutputScaleTexNode", scene.c_str(), nodeName.c_str()));
    if (!node) return;
    node->setOutMirror(mirror);
    node->setOutInvert(invert);
    node->setOutputPixel(width, height);
    target->addChild(node);
    if (ZuEventMgr* events = zuop::eventMgr(app)) {
        ZuEvent* notice = new ZuEvent(scene.c_str(), ZU_EVENT_PERSON_NOTICE);
        notice->name = nodeName;
        if (!events->pushEvent(notice)) notice->release();
    }
}
