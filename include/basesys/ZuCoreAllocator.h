#pragma once

#include <cstddef>
#include <new>

namespace qz {

// The allocator every engine container holds by value. Its two virtual hooks
// are the only place container memory comes from, so a build can route them
// elsewhere without touching the containers.
template <typename T>
class ZuCoreAllocator {
public:
    virtual ~ZuCoreAllocator() = default;

    // Raw block for count elements; nothing is constructed.
    T* allocate(size_t count) {
        return static_cast<T*>(internal_new(count * sizeof(T)));
    }

    void deallocate(T* ptr) { internal_delete(ptr); }

    // Copy-constructs into raw memory.
    void construct(T* place, const T& value) { new (static_cast<void*>(place)) T(value); }

    // Runs the destructor only; the memory stays with its block.
    void destruct(T* ptr) { ptr->~T(); }

protected:
    virtual void* internal_new(size_t bytes) { return ::operator new(bytes); }
    virtual void internal_delete(void* ptr) { ::operator delete(ptr); }
};

}  // namespace qz
