#include "parse/ZuParseData.h"

#include "basesys/ZuGBase.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuGlobalMgr.h"
#include "operate/ZuOperateGenerate.h"
#include "operate/ZuOperateMgr.h"
#include "operate/ZuOperateQueue.h"
#include "scene/ZuDummyNode.h"
#include "scene/ZuNode.h"
#include "scene/ZuNodeMgr.h"
#include "scene/ZuScene.h"
#include "scene/ZuSceneMgr.h"

ZuParseData::~ZuParseData() {
    for (uint32_t i = 0; i < nodes.size(); i++) nodes[i]->release();
    nodes.clear();
}

void ZuParseData::generate(int newResUID, const char*) { resUID = newResUID; }
void ZuParseData::generate(int newResUID, const char*, char*) { resUID = newResUID; }
void ZuParseData::generate(int newResUID, const char*, char*, char*) { resUID = newResUID; }

void ZuParseData::generate(ZuAppMain* app, ZuParseData* data, const char* sceneName, int resUID,
                           const char* directory) {
    if (!data) return;
    ZuOperateMgr* operates = ZuGBase::operateMgrOf(app);
    if (operates) {
        ZuOperateGenerate* op = new ZuOperateGenerate(app, data, sceneName, resUID, directory);
        operates->pushOperate(op);
        op->release();
    }
    data->release();
}

void ZuParseData::_addNode(ZuNode* node) {
    if (!node) return;
    node->retain();
    nodes.push_back(node);
}

void ZuParseData::suspend(const char* sceneName) {
    ZuGlobalMgr* global = app ? app->getGlobalMgr() : nullptr;
    ZuScene* scene = global && global->getSceneMgr() ? global->getSceneMgr()->getScene(sceneName) : nullptr;
    ZuNode* root = global && global->getNodeMgr() ? global->getNodeMgr()->getPackageNode(sceneName, resUID) : nullptr;
    if (!scene || !root) return;
    root->removeFromParent();
    if (ZuDummyNode* dummy = dynamic_cast<ZuDummyNode*>(root)) dummy->reset();
    int animations = 0;
    for (uint32_t i = 0; i < nodes.size(); i++) {
        ZuNode* node = nodes[i];
        if (node->getType() == "ZuAniSpineNode" || node->getType() == "ZuAniFrameNode") animations++;
        root->setZOrder(node->getZOrder());
        root->addChild(node);
        node->release();
    }
    nodes.clear();
    if (global->getOperateQueue()) global->getOperateQueue()->setMaxAnimateNum(animations);
    scene->addChild(root);
}
