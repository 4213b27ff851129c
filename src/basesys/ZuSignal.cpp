#include "basesys/ZuSignal.h"

void ZuSignal::wait() {
    std::unique_lock<std::mutex> hold(m_mutex);
    m_condition.wait(hold, [this] { return m_pending > 0; });
    --m_pending;
}

void ZuSignal::signal() {
    {
        std::lock_guard<std::mutex> hold(m_mutex);
        ++m_pending;
    }
    m_condition.notify_one();
}
