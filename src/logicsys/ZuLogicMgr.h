#pragma once

#include "basesys/ZuGBase.h"
#include "basesys/qzList.h"

class ZuNode;
struct EftPackNode;

// The render thread's once-a-frame logic outside the scene graph: effect
// nodes that are shown for a fixed time and then taken away.
class ZuLogicMgr : public ZuGBase {
public:
    explicit ZuLogicMgr(ZuAppMain* app) : ZuGBase(app) {}
    ~ZuLogicMgr() override;

    void init() {}
    void destroy();
    void update(float delta);

    // Shows node in the scene for seconds; nothing when the scene is unknown.
    void addEftPackNode(float seconds, ZuNode* node, const char* sceneName);
    void clearEftPackNode();
    uint32_t getEftPackNodeCount() const { return packNodes.size(); }

private:
    qz::list<EftPackNode*> packNodes;
};
