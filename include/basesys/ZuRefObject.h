#pragma once

#include "basesys/ZuObject.h"

#include <atomic>
#include <cstdint>

// Intrusive reference count. A new object starts at 1 and its creator owns
// that reference; whoever stores it retains, whoever removes it releases.
//
// The count is atomic: a host thread pushes an operation (the queue retains
// it under its lock) and then drops its own reference outside any lock, while
// the render thread may already be running and releasing it. With a plain
// integer those two decrements can lose one another.
class ZuRefObject : public ZuObject {
public:
    ZuRefObject() = default;
    ~ZuRefObject() override = default;

    uint32_t retain() { return m_count.fetch_add(1, std::memory_order_relaxed) + 1; }

    // Destroys the object through its virtual destructor at zero.
    uint32_t release() {
        uint32_t left = m_count.fetch_sub(1, std::memory_order_acq_rel) - 1;
        if (left == 0) delete this;
        return left;
    }

    uint32_t count() const { return m_count.load(std::memory_order_relaxed); }

private:
    std::atomic<uint32_t> m_count{1};
};

// Stores value in a holder that owns a reference: retains the new object,
// then releases the old one (in that order, so assigning the same object, or
// one that only the old holds, is safe).
template <class T>
inline void qzAssignRetained(T*& holder, T* value) {
    if (holder == value) return;
    if (value) value->retain();
    T* old = holder;
    holder = value;
    if (old) old->release();
}

// Releases a held reference and nulls the holder, the engine's usual idiom.
template <class T>
inline void qzSafeRelease(T*& object) {
    if (object) {
        object->release();
        object = nullptr;
    }
}
