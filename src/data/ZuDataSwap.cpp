#include "data/ZuDataSwap.h"

#include "platform/ZuLog.h"

#include <cstdlib>
#include <cstring>

ZuDataSwap::ZuDataSwap() { lock.create(); }

ZuDataSwap::~ZuDataSwap() {
    dropBlockLocked();
    lock.destroy();
}

void ZuDataSwap::dropBlockLocked() {
    if (!borrowed) std::free(data);
    borrowed = false;
    data = nullptr;
    size = 0;
}

void ZuDataSwap::borrowBlock(void* block, int blockSize) {
    ZuLockGuard guard(lock);
    dropBlockLocked();
    if (!block || blockSize <= 0) return;
    data = static_cast<unsigned char*>(block);
    size = blockSize;
    borrowed = true;
    written = true;
}

void ZuDataSwap::reallocLocked(int newSize) {
    dropBlockLocked();
    if (newSize <= 0) return;
    // Zeroed, so that a partial write followed by a full upload never hands
    // uninitialised bytes to GL or to the host.
    data = static_cast<unsigned char*>(std::calloc(static_cast<size_t>(newSize), 1));
    if (!data) {
        QZLOGE("ZuDataSwap: cannot allocate %d bytes", newSize);
        return;
    }
    size = newSize;
}

void ZuDataSwap::aplly(int newSize) {
    if (newSize < 0) {
        QZLOGW("ZuDataSwap::aplly: negative size %d refused", newSize);
        return;
    }
    ZuLockGuard guard(lock);
    if (newSize > size) reallocLocked(newSize);
}

void ZuDataSwap::resize(int newSize) {
    if (newSize < 0) {
        QZLOGW("ZuDataSwap::resize: negative size %d refused", newSize);
        return;
    }
    if (newSize == size) return;
    ZuLockGuard guard(lock);
    reallocLocked(newSize);
}

void ZuDataSwap::reback() {
    ZuLockGuard guard(lock);
    reallocLocked(0);
}

void ZuDataSwap::writeData(const void* src, int* bytes) {
    if (!src || !bytes || *bytes < 0) return;
    ZuLockGuard guard(lock);
    if (*bytes > size || !data) return;
    std::memcpy(data, src, static_cast<size_t>(*bytes));
}

void ZuDataSwap::fetchData(void* dst, int* bytes) {
    if (!dst || !bytes || *bytes < 0) return;
    ZuLockGuard guard(lock);
    if (*bytes > size || !data) return;
    std::memcpy(dst, data, static_cast<size_t>(*bytes));
}

void ZuDataSwap::swap(ZuDataSwap* other) {
    // A borrowed block stays with its swap: the owner would lose track of it.
    if (!other || other == this || !data || !other->data || size != other->size) return;
    if (borrowed || other->borrowed) return;
    unsigned char* mine = data;
    data = other->data;
    other->data = mine;
}

void ZuDataSwap::tryCopyData(ZuDataSwap* src) {
    if (!src || src == this) return;
    if (!src->tryLockData()) return;
    if (src->written) {
        ZuLockGuard guard(lock);
        if (src->size > size) reallocLocked(src->size);
        if (data && src->data && src->size > 0) {
            std::memcpy(data, src->data, static_cast<size_t>(src->size));
            written = true;
        }
    }
    src->unlockData();
}
