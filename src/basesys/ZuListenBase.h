#pragma once

#include <atomic>

#include "basesys/ZuLock.h"
#include "basesys/ZuRefObject.h"
#include "basesys/qzArray.h"

// Member called on a listener with the source as argument; may be virtual.
typedef void (ZuObject::*ZuListenMember)(ZuObject* source);

// One registration: the listener (not retained) and what to call on it.
struct LISTENFUNC {
    ZuObject* listener = nullptr;
    ZuListenMember func = nullptr;

    bool operator==(const LISTENFUNC& other) const {
        // Member pointer equality compares both the function part and the
        // this-adjustment, so two bases of one object stay distinct.
        return listener == other.listener && func == other.func;
    }
};

// A data source. Producers set the changed flag; once a frame the data
// manager calls noticeListener, which calls each listener at most once no
// matter how many writes came in, all under the source's own lock.
class ZuListenBase : public ZuRefObject {
public:
    ZuListenBase();
    ~ZuListenBase() override;

    // Appends unless this exact pair is already registered. Must not be called
    // from inside a listener of this source: the lock is not recursive.
    void registListenFunc(ZuObject* listener, ZuListenMember func);
    // Removes the first matching entry, keeping the others' order.
    void unregistListenFunc(ZuObject* listener, ZuListenMember func);

    // Typed forms, so callers can pass &MyClass::onData directly.
    template <class C>
    void registListenFunc(C* listener, void (C::*func)(ZuObject*)) {
        registListenFunc(static_cast<ZuObject*>(listener), static_cast<ZuListenMember>(func));
    }
    template <class C>
    void unregistListenFunc(C* listener, void (C::*func)(ZuObject*)) {
        unregistListenFunc(static_cast<ZuObject*>(listener), static_cast<ZuListenMember>(func));
    }

    // Under the lock: _updateSelf, then _notice if new data was marked.
    void noticeListener(float delta);

    void setChanged(bool value = true) { m_changed = value; }
    bool isChanged() const { return m_changed; }
    uint32_t getListenerCount() const { return m_listeners.size(); }
    ZuLock& getLock() { return m_lock; }

protected:
    // Per-frame work of the source itself, before listeners are told.
    virtual void _updateSelf(float delta) {}
    // Calls every listener in registration order with this as source.
    virtual void _notice(float delta);

    qz::array<LISTENFUNC> m_listeners;
    // Set by producers on any thread without the lock; read under it.
    std::atomic<bool> m_changed{true};
    ZuLock m_lock;
};
