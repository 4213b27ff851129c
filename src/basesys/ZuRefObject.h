#pragma once

#include "basesys/ZuObject.h"
#include <cstdint>

// Intrusive, non-atomic reference count. A new object starts at 1 and its
// creator owns that reference; whoever stores it retains, whoever removes it
// releases. Cross-thread hand-overs are ordered by the queues' own locks.
class ZuRefObject : public ZuObject {
public:
    ZuRefObject() = default;
    ~ZuRefObject() override = default;

    uint32_t retain() { return ++m_count; }

    // Destroys the object through its virtual destructor at zero.
    uint32_t release() {
        uint32_t left = --m_count;
        if (left == 0) delete this;
        return left;
    }

    uint32_t count() const { return m_count; }

private:
    uint32_t m_count = 1;
};

// Releases a held reference and nulls the holder, the engine's usual idiom.
template <class T>
inline void qzSafeRelease(T*& object) {
    if (object) {
        object->release();
        object = nullptr;
    }
}
