#pragma once

#include "basesys/ZuLock.h"
#include "basesys/ZuRefObject.h"

// A locked byte block with a recorded size. It carries camera planes from a
// host thread to the tick, read-back pixels from the render thread to the
// host, and each half of a mesh's vertex and index data. The lock is the only
// synchronisation between writer and reader.
class ZuDataSwap : public ZuRefObject {
public:
    ZuDataSwap();
    ~ZuDataSwap() override;

    // Grows only: a larger size replaces the block (content lost), a smaller
    // one keeps block and content.
    void aplly(int size);
    // Replaces the block whenever the size differs, shrinking too.
    void resize(int size);
    // Frees the block; the size goes back to 0.
    void reback();

    // Copies *size bytes in or out under the lock; a size above capacity, or
    // a null pointer, is refused and nothing is copied.
    void writeData(const void* src, int* size);
    void fetchData(void* dst, int* size);

    void lockData() { lock.lock(); }
    void unlockData() { lock.unlock(); }
    bool tryLockData() { return lock.trylock(); }

    // Marks the block as ready for a reader; never cleared.
    void setWrite() { written = true; }
    bool isWrite() const { return written; }

    unsigned char* getData() const { return data; }
    int getSize() const { return size; }

    // Exchanges the two blocks when both exist and the sizes match. No lock:
    // callers own both sides at that moment.
    void swap(ZuDataSwap* other);

    // Copies src's whole block when src is written, never waiting: a busy
    // src is skipped, so the render thread is never blocked by it.
    void tryCopyData(ZuDataSwap* src);

protected:
    // Points the swap at memory it does not own (a host's frame): nothing is
    // copied, and nothing is freed when the swap lets go of it. Null drops
    // the borrowed block.
    void borrowBlock(void* block, int blockSize);

private:
    // Replaces the block by a zeroed one of the given size; caller holds the lock.
    void reallocLocked(int newSize);
    // Frees the block unless it is borrowed; caller holds the lock.
    void dropBlockLocked();

    unsigned char* data = nullptr;
    int size = 0;
    ZuLock lock;
    bool written = false;
    bool borrowed = false;
};
