#include "logicsys/ZuLogicMgr.h"

#include "basesys/ZuAppMain.h"
#include "basesys/ZuGlobalMgr.h"
#include "logicsys/EftPackNode.h"
#include "scene/ZuNode.h"
#include "scene/ZuScene.h"
#include "scene/ZuSceneMgr.h"

namespace {
const float kTimeLeftEpsilon = 1e-5f;
} // namespace

ZuLogicMgr::~ZuLogicMgr() { clearEftPackNode(); }

void ZuLogicMgr::destroy() { clearEftPackNode(); }

void ZuLogicMgr::addEftPackNode(float seconds, ZuNode* node, const char* sceneName) {
    ZuSceneMgr* scenes = sceneMgr();
    ZuScene* scene = scenes ? scenes->getScene(sceneName) : nullptr;
    if (!scene) return;
    EftPackNode* record = new EftPackNode();
    record->time = seconds;
    if (node) {
        node->retain();
        record->node = node;
        scene->addChild(node);
    }
    packNodes.push_back(record);
}

void ZuLogicMgr::clearEftPackNode() {
    for (auto it = packNodes.begin(); it != packNodes.end(); ++it) {
        EftPackNode* record = *it;
        if (record->node) {
            record->node->removeFromParent();
            record->node->release();
        }
        delete record;
    }
    packNodes.clear();
}

void ZuLogicMgr::update(float delta) {
    auto it = packNodes.begin();
    while (it != packNodes.end()) {
        EftPackNode* record = *it;
        record->time -= delta * 0.001f;
        // Tenths of a second do not add up exactly in floats: 0.5 s less five
        // frames of 100 ms leaves a few billionths, which count as none.
        if (record->time > kTimeLeftEpsilon) {
            ++it;
            continue;
        }
        it = packNodes.erase(it);
        if (record->node) {
            record->node->removeFromParent();
            record->node->release();
        }
        delete record;
    }
}
