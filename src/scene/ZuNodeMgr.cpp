#include "scene/ZuNodeMgr.h"

#include "scene/ZuDummyNode.h"
#include "scene/ZuNode.h"
#include "scene/ZuNodeCreator.h"
#include "scene/ZuVisitorBase.h"

#include <cstdio>

ZuNodeMgr::~ZuNodeMgr() {
    // destroy() is the normal way out; this only catches a manager released
    // without it.
    if (creator) destroy();
}

void ZuNodeMgr::init() {
    if (!lock.isCreated()) lock.create();
    if (!creator) {
        creator = new ZuNodeCreator(app, this);
        creator->init();
    }
}

void ZuNodeMgr::destroy() {
    if (lock.isCreated()) clear();
    if (creator) {
        creator->destroy();
        creator->release();
        creator = nullptr;
    }
    if (lock.isCreated()) lock.destroy();
}

qz::string ZuNodeMgr::keyOf(int uid) {
    char text[16];
    snprintf(text, sizeof text, "%d", uid);
    return qz::string(text);
}

bool ZuNodeMgr::addNode(ZuNode* node) {
    if (!node || !lock.isCreated()) return false;
    ZuLockGuard guard(lock);
    if (!nodes.insert(keyOf(node->getuid()), node)) return false;
    node->retain();
    return true;
}

bool ZuNodeMgr::hasNode(int uid) const { return nodes.find(keyOf(uid)) != nullptr; }

ZuNode* ZuNodeMgr::getNode(int uid) const {
    auto* entry = nodes.find(keyOf(uid));
    return entry ? entry->getValue() : nullptr;
}

ZuNode* ZuNodeMgr::getNode(const char* name) const {
    if (!name) return nullptr;
    for (auto it = nodes.getIterator(); !it.atEnd(); ++it) {
        ZuNode* node = it->getValue();
        if (node && node->getname() == name) return node;
    }
    return nullptr;
}

void ZuNodeMgr::getNode(const char* sceneName, int resUID, qz::array<ZuNode*>& list) {
    (void)sceneName;
    if (!lock.isCreated()) return;
    ZuLockGuard guard(lock);
    for (auto it = nodes.getIterator(); !it.atEnd(); ++it) {
        ZuNode* node = it->getValue();
        if (node && node->getresUID() == resUID) list.push_back(node);
    }
}

void ZuNodeMgr::deleteLocked(qz::map<qz::string, ZuNode*>::RBTree* entry) {
    ZuNode* node = entry->getValue();
    // Out of the map first: a zudestroy that looks itself up finds nothing.
    nodes.remove(entry);
    if (!node) return;
    node->removeFromParent();
    node->zudestroy();
    node->release();
}

// Removing invalidates the iterator, so the walk restarts from the smallest
// key after each removal.
template <typename Match>
void ZuNodeMgr::deleteAllLocked(Match match) {
    bool removed = true;
    while (removed) {
        removed = false;
        for (auto it = nodes.getIterator(); !it.atEnd(); ++it) {
            if (match(it->getValue())) {
                deleteLocked(it.getNode());
                removed = true;
                break;
            }
        }
    }
}

void ZuNodeMgr::delNode(int uid) {
    if (!lock.isCreated()) return;
    ZuLockGuard guard(lock);
    auto* entry = nodes.find(keyOf(uid));
    if (entry) deleteLocked(entry);
}

void ZuNodeMgr::delNode(const char* name) {
    if (!name || !lock.isCreated()) return;
    ZuLockGuard guard(lock);
    deleteAllLocked([name](ZuNode* node) { return node && node->getname() == name; });
}

void ZuNodeMgr::delNodeByResID(int resUID) {
    if (!lock.isCreated()) return;
    ZuLockGuard guard(lock);
    deleteAllLocked([resUID](ZuNode* node) { return node && node->getresUID() == resUID; });
}

void ZuNodeMgr::clear() {
    if (!lock.isCreated()) return;
    ZuLockGuard guard(lock);
    deleteAllLocked([](ZuNode*) { return true; });
}

void ZuNodeMgr::visit(ZuVisitorBase* visitor) {
    if (!visitor) return;
    for (auto it = nodes.getIterator(); !it.atEnd(); ++it)
        if (it->getValue()) visitor->visit(it->getValue());
}

ZuNode* ZuNodeMgr::getPackageNode(const char* sceneName, int resUID) {
    char number[16];
    snprintf(number, sizeof number, "%d", resUID);
    qz::string name(sceneName ? sceneName : "");
    name += number;
    if (ZuNode* found = getNode(name.c_str())) return found;
    ZuDummyNode* root = new ZuDummyNode(app);
    root->setSceneName(sceneName ? sceneName : "");
    root->zuinit();
    root->setname(name.c_str());
    root->setresUID(resUID);
    addNode(root);
    root->release();
    return root;
}
