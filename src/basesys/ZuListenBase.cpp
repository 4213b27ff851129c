#include "basesys/ZuListenBase.h"

#include "platform/ZuLog.h"

ZuListenBase::ZuListenBase() {
    m_lock.create();
}

ZuListenBase::~ZuListenBase() {
    m_lock.destroy();
}

void ZuListenBase::registListenFunc(ZuObject* listener, ZuListenMember func) {
    if (!listener || !func) {
        QZLOGW("ZuListenBase::registListenFunc: null listener or function ignored");
        return;
    }
    ZuLockGuard guard(m_lock);
    LISTENFUNC entry;
    entry.listener = listener;
    entry.func = func;
    if (m_listeners.linear_search(entry) >= 0) return;
    m_listeners.push_back(entry);
}

void ZuListenBase::unregistListenFunc(ZuObject* listener, ZuListenMember func) {
    ZuLockGuard guard(m_lock);
    LISTENFUNC entry;
    entry.listener = listener;
    entry.func = func;
    const int index = m_listeners.linear_search(entry);
    if (index >= 0) m_listeners.erase(static_cast<uint32_t>(index));
}

void ZuListenBase::noticeListener(float delta) {
    ZuLockGuard guard(m_lock);
    _updateSelf(delta);
    if (m_changed.exchange(false)) {
        _notice(delta);
    }
}

// The vptr sanitizer checks the this-adjusted pointer against ZuObject, which
// wrongly flags listeners whose ZuObject base is not their first base; the
// call itself is well-defined since the listener's dynamic type has the member.
#if defined(__GNUC__)
__attribute__((no_sanitize("vptr")))
#endif
void ZuListenBase::_notice(float delta) {
    for (uint32_t i = 0; i < m_listeners.size(); ++i) {
        const LISTENFUNC& entry = m_listeners[i];
        (entry.listener->*entry.func)(this);
    }
}
