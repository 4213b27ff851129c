#pragma once

#include "basesys/ZuGBase.h"

class NodeIDPoolMgr;

// Holds the engine's data sources and notifies their listeners once a frame.
// It also owns the node identifier pool, so node ids live exactly as long as
// the data manager does.
class ZuDataMgr : public ZuGBase {
public:
    explicit ZuDataMgr(ZuAppMain* app);
    ~ZuDataMgr() override;

    void init();
    void destroy();
    void update(float delta);

    NodeIDPoolMgr* getNodeIDPool() const { return m_nodeIDPool; }

private:
    NodeIDPoolMgr* m_nodeIDPool = nullptr;
};
