#pragma once

#include "basesys/ZuRefObject.h"
#include "basesys/ZuSignal.h"
#include "basesys/qzArray.h"

#include <atomic>

class ZuDataSwap;

// A ring of swaps between one writer and one reader. The writer blocks in
// incWrite once the ring is full, until the reader frees a slot.
class ZuDataSwapCache : public ZuRefObject {
public:
    ~ZuDataSwapCache() override;

    void init(int count);
    void destroy();
    // Grows every slot to the size.
    void setBufSize(int size);

    ZuDataSwap* getReadData();
    ZuDataSwap* getWriteData();
    bool isFull() const;
    void incRead();
    void incWrite();
    void reset();

    int getCount() const { return m_count; }

private:
    qz::array<ZuDataSwap*> m_slots;
    ZuSignal m_signal;
    int m_count = 0;
    std::atomic<int> m_readIndex{0};
    std::atomic<int> m_writeIndex{0};
};
