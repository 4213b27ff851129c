#pragma once

#include "basesys/ZuGBase.h"
#include "basesys/qzArray.h"

// Hands out node identifiers. The most recently returned identifier is
// reused first; fresh ones count up from 0.
class NodeIDPoolMgr : public ZuGBase {
public:
    explicit NodeIDPoolMgr(ZuAppMain* app) : ZuGBase(app) {}

    void init();
    void destroy();

    int applyUID();
    void returnUID(int uid);

private:
    int m_next = 0;
    qz::array<int> m_freed;
};
