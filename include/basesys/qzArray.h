#pragma once

#include "basesys/ZuCoreAllocator.h"
#include "platform/ZuLog.h"

#include <cstdint>
#include <type_traits>
#include <utility>

namespace qz {

// Bidirectional bubble sort of an array of object pointers by the pointed
// objects' operator> and operator<. Strict comparisons keep equal elements
// in their order; a nearly ordered array (the usual child list after one
// insert) finishes in a few passes.
template <typename P>
void popsortobject(P* array, int count) {
    if (!array || count < 2) return;
    int low = 0;
    int high = count - 1;
    while (low < high) {
        bool swapped = false;
        for (int i = low; i < high; ++i) {
            if (*array[i] > *array[i + 1]) {
                std::swap(array[i], array[i + 1]);
                swapped = true;
            }
        }
        --high;
        for (int i = high; i > low; --i) {
            if (*array[i] < *array[i - 1]) {
                std::swap(array[i], array[i - 1]);
                swapped = true;
            }
        }
        ++low;
        // A round trip without swaps means the rest is in order already.
        if (!swapped) break;
    }
}

// Contiguous growing array. Growth doubles while small and slows to a quarter
// from 500 elements on, so long-lived per-frame arrays settle quickly without
// wasting much; erase keeps capacity, clear gives the memory back.
template <typename T, typename TAlloc = ZuCoreAllocator<T>>
class array {
public:
    // Growth strategies: 1 doubles, anything else grows to the exact need.
    enum { ALLOC_STRATEGY_DOUBLE = 1, ALLOC_STRATEGY_SAFE = 0 };

    array() : strategy(ALLOC_STRATEGY_DOUBLE), freeWhenDestroyed(1), isSorted(1) {}

    explicit array(uint32_t startCount) : array() { reallocate(startCount, true); }

    array(const array& other) : array() { *this = other; }

    ~array() { clear(); }

    array& operator=(const array& other) {
        if (this == &other) return *this;
        clear();
        strategy = other.strategy;
        isSorted = other.isSorted;
        freeWhenDestroyed = 1;
        if (other.allocated) {
            data = allocator.allocate(other.allocated);
            allocated = other.allocated;
        }
        for (uint32_t i = 0; i < other.used; ++i) allocator.construct(&data[i], other.data[i]);
        used = other.used;
        return *this;
    }

    void push_back(const T& value) { insert(value, used); }

    // Index may equal size() to append. The value may live inside this array.
    void insert(const T& value, uint32_t index) {
        if (index > used) {
            QZLOGE("qz::array::insert: index %u beyond size %u", index, used);
            return;
        }
        if (used + 1 > allocated) {
            // The value may be one of ours and is about to move: keep a copy.
            const T saved(value);
            uint32_t newSize = used + 1;
            if (strategy == ALLOC_STRATEGY_DOUBLE) {
                uint32_t extra;
                if (allocated < 5)
                    extra = 5;
                else if (allocated < 500)
                    extra = used;
                else
                    extra = used / 4;
                newSize += extra;
            }
            reallocate(newSize, true);
            for (uint32_t i = used; i > index; --i) {
                if (i < used) allocator.destruct(&data[i]);
                allocator.construct(&data[i], data[i - 1]);
            }
            if (used > index) allocator.destruct(&data[index]);
            allocator.construct(&data[index], saved);
        } else if (index < used) {
            if (data <= &value && &value < data + used) {
                // Shifting would change what the reference points at.
                const T saved(value);
                shiftUpFrom(index);
                data[index] = saved;
            } else {
                shiftUpFrom(index);
                data[index] = value;
            }
        } else {
            allocator.construct(&data[index], value);
        }
        isSorted = 0;
        ++used;
    }

    void erase(uint32_t index) {
        if (index >= used) {
            QZLOGE("qz::array::erase: index %u beyond size %u", index, used);
            return;
        }
        for (uint32_t i = index + 1; i < used; ++i) {
            allocator.destruct(&data[i - 1]);
            allocator.construct(&data[i - 1], data[i]);
        }
        allocator.destruct(&data[used - 1]);
        --used;
    }

    // Removes count elements from index on; a count past the end is cut.
    void erase(uint32_t index, uint32_t count) {
        if (index >= used) {
            QZLOGE("qz::array::erase: index %u beyond size %u", index, used);
            return;
        }
        if (count > used - index) count = used - index;
        if (count == 0) return;
        for (uint32_t i = index; i + count < used; ++i) {
            allocator.destruct(&data[i]);
            allocator.construct(&data[i], data[i + count]);
        }
        for (uint32_t i = used - count; i < used; ++i) allocator.destruct(&data[i]);
        used -= count;
    }

    void clear() {
        if (freeWhenDestroyed) {
            for (uint32_t i = 0; i < used; ++i) allocator.destruct(&data[i]);
            allocator.deallocate(data);
        }
        data = nullptr;
        used = 0;
        allocated = 0;
        isSorted = 1;
    }

    void reallocate(uint32_t newSize, bool canShrink = true) {
        if (newSize == allocated) return;
        if (!canShrink && newSize < allocated) return;
        T* old = data;
        data = newSize ? allocator.allocate(newSize) : nullptr;
        allocated = newSize;
        const uint32_t keep = used < newSize ? used : newSize;
        for (uint32_t i = 0; i < keep; ++i) allocator.construct(&data[i], old[i]);
        for (uint32_t i = 0; i < used; ++i) allocator.destruct(&old[i]);
        if (used > newSize) used = newSize;
        allocator.deallocate(old);
    }

    // Sets the element count directly. Plain element types are left as the
    // memory was, for callers that fill the block themselves; other types are
    // default-constructed or destroyed so the array never holds a dead object.
    void set_used(uint32_t count) {
        if (allocated < count) reallocate(count, true);
        if constexpr (!std::is_trivially_default_constructible<T>::value ||
                      !std::is_trivially_destructible<T>::value) {
            for (uint32_t i = used; i < count; ++i) new (static_cast<void*>(&data[i])) T();
            for (uint32_t i = count; i < used; ++i) allocator.destruct(&data[i]);
        }
        used = count;
    }

    uint32_t size() const { return used; }
    uint32_t allocated_size() const { return allocated; }
    bool empty() const { return used == 0; }

    // Unchecked: callers test size() first.
    T& operator[](uint32_t index) { return data[index]; }
    const T& operator[](uint32_t index) const { return data[index]; }

    T& getLast() { return data[used - 1]; }
    const T& getLast() const { return data[used - 1]; }

    T* pointer() { return data; }
    const T* const_pointer() const { return data; }

    // Raw pointers, enough for range-for.
    T* begin() { return data; }
    T* end() { return data + used; }
    const T* begin() const { return data; }
    const T* end() const { return data + used; }

    // Index of the first element equal to value, or -1.
    int linear_search(const T& value) const {
        for (uint32_t i = 0; i < used; ++i)
            if (data[i] == value) return static_cast<int>(i);
        return -1;
    }

    // Index of the last element equal to value, or -1.
    int linear_reverse_search(const T& value) const {
        for (uint32_t i = used; i > 0; --i)
            if (data[i - 1] == value) return static_cast<int>(i - 1);
        return -1;
    }

    void swap(array& other) {
        std::swap(data, other.data);
        std::swap(allocated, other.allocated);
        std::swap(used, other.used);
        const unsigned s = strategy, f = freeWhenDestroyed, o = isSorted;
        strategy = other.strategy;
        freeWhenDestroyed = other.freeWhenDestroyed;
        isSorted = other.isSorted;
        other.strategy = s;
        other.freeWhenDestroyed = f;
        other.isSorted = o;
    }

    // For arrays of object pointers; free when nothing was inserted since the
    // last sort, which is the usual case for the per-frame child sort.
    void stable_sort_object() {
        if (isSorted || used < 2) return;
        popsortobject(data, static_cast<int>(used));
        isSorted = 1;
    }

    void setAllocStrategy(unsigned value) { strategy = value & 0xF; }
    unsigned getAllocStrategy() const { return strategy; }
    // An array that does not own its block leaves it alone on clear.
    void set_free_when_destroyed(bool value) { freeWhenDestroyed = value ? 1 : 0; }
    void set_sorted(bool value) { isSorted = value ? 1 : 0; }
    bool sorted() const { return isSorted != 0; }

private:
    // Opens a hole at index (< used) by moving the tail up one place; the
    // caller assigns the hole.
    void shiftUpFrom(uint32_t index) {
        allocator.construct(&data[used], data[used - 1]);
        for (uint32_t i = used - 1; i > index; --i) data[i] = data[i - 1];
    }

    T* data = nullptr;
    uint32_t allocated = 0;
    uint32_t used = 0;
    TAlloc allocator;
    unsigned strategy : 4;
    unsigned freeWhenDestroyed : 1;
    unsigned isSorted : 1;
};

}  // namespace qz
