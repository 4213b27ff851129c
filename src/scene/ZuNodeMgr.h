#pragma once

#include "basesys/ZuGBase.h"
#include "basesys/ZuLock.h"
#include "basesys/qzArray.h"
#include "basesys/qzMap.h"
#include "basesys/qzString.h"

class ZuNode;
class ZuNodeCreator;
class ZuVisitorBase;

// The flat registry that owns every node apart from the scenes, keyed by the
// decimal text of the uid (so iteration runs in text order: "10" before "2").
// Trees only borrow: a node leaves its tree when it is deleted here.
//
// The lock covers adding, deleting, clear and the list look-up, which other
// threads reach; single look-ups and visits run on the render thread without
// it. It is not recursive: a node's zudestroy, which runs under it, must not
// call back into a locking operation.
class ZuNodeMgr : public ZuGBase {
public:
    explicit ZuNodeMgr(ZuAppMain* app) : ZuGBase(app) {}
    ~ZuNodeMgr() override;

    void init();
    void destroy();

    // False for null or a uid already present; else retains the node.
    bool addNode(ZuNode* node);
    bool hasNode(int uid) const;
    ZuNode* getNode(int uid) const;
    // The first node of that name, in key order.
    ZuNode* getNode(const char* name) const;
    // Appends every node of resUID (the scene name takes no part).
    void getNode(const char* sceneName, int resUID, qz::array<ZuNode*>& list);

    // Takes the node out of its tree, zudestroy, release.
    void delNode(int uid);
    void delNode(const char* name);
    void delNodeByResID(int resUID);
    void clear();

    void visit(ZuVisitorBase* visitor);

    // The root of a package: the node named sceneName + resUID, made (as a
    // ZuDummyNode) when there is none.
    ZuNode* getPackageNode(const char* sceneName, int resUID);

    ZuNodeCreator* getCreator() const { return creator; }
    int size() const { return static_cast<int>(nodes.size()); }

private:
    static qz::string keyOf(int uid);
    // Deletes the entry of a found node; caller holds the lock.
    void deleteLocked(qz::map<qz::string, ZuNode*>::RBTree* entry);
    template <typename Match>
    void deleteAllLocked(Match match);

    qz::map<qz::string, ZuNode*> nodes;
    mutable ZuLock lock;
    ZuNodeCreator* creator = nullptr;
};
