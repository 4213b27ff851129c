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

    // Takes over the sender's reference and returns true. After destroy it
    // takes nothing and returns false: the event stays with its sender, who
    // must release it.
    bool pushEvent(ZuEvent* event);
    void pushEventToSecondPool(ZuEvent* event);

    void registProcer(ZuEventProc* proc);
    void unregistProcer(ZuEventProc* proc);
    bool hasRegist(ZuEventProc* proc);

    // Offers one event to the receivers in registration order. Only those
    // registered when the offer starts see it; one that registers meanwhile
    // takes part from the next event on.
    void procEvent(ZuEvent* event);
    void update(float delta);

    void clearAllEventProcer();
    void clearAllEvent();

    int receiverCount() const { return static_cast<int>(m_receivers.size()); }

private:
    // Where a running procEvent stands: the next receiver to offer to and the
    // end of the receivers it started with. Dispatches nest (a handler may
    // call procEvent), so unregistProcer shifts every open cursor.
    struct Cursor {
        uint32_t next;
        uint32_t end;
    };

    ZuEvent* takeFirst(qz::list<ZuEvent*>& pool);
    static void releaseAll(qz::list<ZuEvent*>& pool);

    qz::list<ZuEvent*> m_poolA;
    qz::list<ZuEvent*> m_poolB;
    qz::list<ZuEvent*>* m_readPool = nullptr;
    qz::list<ZuEvent*>* m_writePool = nullptr;
    qz::list<ZuEvent*> m_secondPool;
    qz::array<ZuEventProc*> m_receivers;
    qz::array<Cursor*> m_cursors;
    ZuLock m_poolLock;
};
