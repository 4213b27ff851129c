#include "scene/ZuNode.h"

#include "basesys/ZuAppMain.h"
#include "basesys/ZuCheck.h"
#include "basesys/ZuGlobalMgr.h"
#include "basesys/ZuGlobalParam.h"
#include "data/ZuDataMgr.h"
#include "event/ZuEventMgr.h"
#include "render/object/ZuRenderObject.h"
#include "scene/NodeIDPoolMgr.h"
#include "scene/ZuActionBase.h"
#include "scene/ZuScene.h"
#include "scene/ZuSceneMgr.h"
#include "scene/ZuVisitorBase.h"

namespace {

NodeIDPoolMgr* idPool(ZuAppMain* app) {
    if (!app || !app->getGlobalMgr() || !app->getGlobalMgr()->getDataMgr()) return nullptr;
    return app->getGlobalMgr()->getDataMgr()->getNodeIDPool();
}

} // namespace

ZuNode::ZuNode(ZuAppMain* app) : ZuEventProc(app), m_type("ZuNode") {
    if (NodeIDPoolMgr* pool = idPool(app)) m_uid = pool->applyUID();
}

ZuNode::~ZuNode() {
    // A node normally goes through zudestroy first; these only catch a node
    // released without it, so that children and actions are not leaked.
    clearAction();
    clearChild();
    qzSafeRelease(m_selectRenderObject);
    qzSafeRelease(m_renderObject);
    if (NodeIDPoolMgr* pool = idPool(app)) pool->returnUID(m_uid);
    m_uid = -1;
}

void ZuNode::zudestroy() {
    qzSafeRelease(m_selectRenderObject);
    qzSafeRelease(m_renderObject);
    unlistenEvent();
    removeFromParent();
    clearChild();
}

ZuScene* ZuNode::getActiveScene() const {
    return app && app->getGlobalParam() ? app->getGlobalParam()->activeScene : nullptr;
}

ZuRenderScene* ZuNode::getActiveRenderScene() const {
    ZuScene* scene = getActiveScene();
    return scene ? scene->getRenderScene() : nullptr;
}

ZuScene* ZuNode::getScene() const {
    ZuSceneMgr* scenes = sceneMgr();
    return scenes ? scenes->getScene(m_sceneName.c_str()) : nullptr;
}

void ZuNode::setRenderObject(ZuRenderObject* object) {
    qzAssignRetained(m_renderObject, object);
}

void ZuNode::setSelectRenderObject(ZuRenderObject* object) {
    qzAssignRetained(m_selectRenderObject, object);
}

void ZuNode::setPositionX(float x, float y, float z) {
    m_position.set(x, y, z);
    m_matrixDirty = true;
}

void ZuNode::setScaleX(float x, float y, float z) {
    m_scale.set(x, y, z);
    m_matrixDirty = true;
}

void ZuNode::setRotationX(float x, float y, float z, EUR_TYPE order) {
    m_rotation.set(x, y, z);
    m_rotationOrder = order;
    m_matrixDirty = true;
}

void ZuNode::addChild(ZuNode* child) {
    QZ_REQUIRE(child != nullptr, "parent %s", m_name.c_str());
    QZ_REQUIRE(child != this, "node %s under itself", m_name.c_str());
    if (hasChild(child)) return;
    // A node lives in one tree: moving it is removeFromParent, then addChild.
    QZ_REQUIRE(child->getParent() == nullptr, "%s already hangs under %s, not added under %s",
               child->m_name.c_str(), child->getParent()->m_name.c_str(), m_name.c_str());
    m_children.push_back(child); // clears isSorted, so the next walk sorts
    child->setParent(this);
    child->retain();
    child->zuenter();
}

void ZuNode::addChild(ZuNode* child, int zOrder) {
    if (!child) return;
    child->setZOrder(zOrder);
    addChild(child);
}

bool ZuNode::removeChild(ZuNode* child) {
    for (uint32_t i = 0; i < m_children.size(); ++i) {
        if (m_children[i] != child) continue;
        m_children.erase(i);
        child->zuexit();
        child->setParent(nullptr);
        child->release();
        return true;
    }
    return false;
}

bool ZuNode::removeChild(int resUID) {
    for (uint32_t i = 0; i < m_children.size(); ++i) {
        if (m_children[i]->getresUID() == resUID) return removeChild(m_children[i]);
    }
    return false;
}

bool ZuNode::hasChild(ZuNode* child) const {
    for (uint32_t i = 0; i < m_children.size(); ++i)
        if (m_children[i] == child) return true;
    return false;
}

bool ZuNode::removeFromParent() {
    ZuNode* parent = m_parent;
    if (!parent) return false;
    // Keep this node alive across the parent's release of it, since a caller
    // may hold no reference of its own.
    retain();
    parent->removeChild(this);
    m_parent = nullptr;
    release();
    return true;
}

void ZuNode::clearChild() {
    // Detach the array first, so that nothing below re-enters a half-cleared list.
    qz::array<ZuNode*> children;
    children.swap(m_children);
    for (uint32_t i = 0; i < children.size(); ++i) {
        ZuNode* child = children[i];
        child->zuexit();
        child->setParent(nullptr);
        child->clearChild();
        child->release();
    }
    children.clear();
    m_parent = nullptr;
}

void ZuNode::deep_update(float delta) {
    update(delta);
    render();
    m_children.stable_sort_object();
    for (uint32_t i = 0; i < m_children.size(); ++i) m_children[i]->deep_update(delta);
}

void ZuNode::deepVisit(ZuVisitorBase* visitor) {
    if (visitor) visitor->visit(this);
    for (uint32_t i = 0; i < m_children.size(); ++i) m_children[i]->deepVisit(visitor);
}

void ZuNode::runActions(float delta) {
    auto it = m_actions.begin();
    while (it != m_actions.end()) {
        ZuActionBase* action = *it;
        if (action->isEnd()) {
            action->release();
            it = m_actions.erase(it);
        } else {
            action->run(this, delta);
            ++it;
        }
    }
}

void ZuNode::update(float delta) {
    runActions(delta);
    if (m_matrixDirty) {
        m_localMatrix.identity();
        m_localMatrix.setScale(m_scale);
        m_localMatrix.setRotation(m_rotation, m_rotationOrder);
        m_localMatrix.setPostion(m_position);
        m_matrixDirty = false;
    }
    if (m_parent)
        ZuMat4::multMat(m_localMatrix, m_parent->getAbsoluteMat(), m_absoluteMatrix);
    else
        m_absoluteMatrix = m_localMatrix;
}

void ZuNode::listenEvent() {
    if (!app || !app->getGlobalMgr()) return;
    if (ZuEventMgr* events = app->getGlobalMgr()->getEventMgr()) events->registProcer(this);
}

void ZuNode::unlistenEvent() {
    if (!app || !app->getGlobalMgr()) return;
    if (ZuEventMgr* events = app->getGlobalMgr()->getEventMgr()) events->unregistProcer(this);
}

void ZuNode::addAction(ZuActionBase* action) {
    if (!action) return;
    action->retain();
    m_actions.push_back(action);
}

void ZuNode::delAction(ZuActionBase* action) {
    for (auto it = m_actions.begin(); it != m_actions.end(); ++it) {
        if (*it == action) {
            action->release();
            m_actions.erase(it);
            return;
        }
    }
}

void ZuNode::clearAction() {
    for (auto it = m_actions.begin(); it != m_actions.end(); ++it) (*it)->release();
    m_actions.clear();
}
