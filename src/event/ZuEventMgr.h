#pragma once

#include "basesys/ZuGBase.h"
#include "basesys/ZuLock.h"
#include "basesys/qzArray.h"
#include "basesys/qzList.h"

class ZuEvent;
class ZuEventProc;

// Broadcasts events to every registered receiver once a frame.
//
// Events pushed with pushEvent land in the write pool and are delivered in
// the next update after the pools are exchanged; events pushed to the second
// pool are delivered in the same update if they arrive before it finishes
// with that pool. Host threads and the load thread push too, so appends and
// the exchange are locked; delivery itself runs without the lock so that a
// receiver may push or (un)register from inside procEvent.
class ZuEventMgr : public ZuGBase {
public:
    explicit ZuEventMgr(ZuAppMain* app);
    ~ZuEventMgr() override;

    void init();
    void destroy();
    void reset();

    // Takes over the sender's reference. Dropped (and released) after destroy.
    void pushEvent(ZuEvent* event);
    void pushEventToSecondPool(ZuEvent* event);

    void registProcer(ZuEventProc* proc);
    void unregistProcer(ZuEventProc* proc);
    bool hasRegist(ZuEventProc* proc);

    // Offers one event to the receivers in registration order.
    void procEvent(ZuEvent* event);
    void update(float delta);

    void clearAllEventProcer();
    void clearAllEvent();

    int receiverCount() const { return static_cast<int>(m_receivers.size()); }

private:
    ZuEvent* takeFirst(qz::list<ZuEvent*>& pool);
    static void releaseAll(qz::list<ZuEvent*>& pool);

    qz::list<ZuEvent*> m_poolA;
    qz::list<ZuEvent*> m_poolB;
    qz::list<ZuEvent*>* m_readPool = nullptr;
    qz::list<ZuEvent*>* m_writePool = nullptr;
    qz::list<ZuEvent*> m_secondPool;
    qz::array<ZuEventProc*> m_receivers;
    ZuLock m_poolLock;
};
