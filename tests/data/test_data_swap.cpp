#include "data/ZuDataDoubleSwap.h"
#include "data/ZuDataSwap.h"

#include <gtest/gtest.h>

#include <cstring>
#include <vector>

namespace {

void fill(ZuDataSwap* swap, unsigned char value, int bytes) {
    std::vector<unsigned char> block(static_cast<size_t>(bytes), value);
    swap->writeData(block.data(), &bytes);
}

} // namespace

TEST(DataSwap, ApllyGrowsOnlyAndResizeFollowsExactly) {
    ZuDataSwap* swap = new ZuDataSwap();
    swap->aplly(16);
    ASSERT_EQ(swap->getSize(), 16);
    fill(swap, 7, 16);
    swap->aplly(8); // smaller: block and content kept
    EXPECT_EQ(swap->getSize(), 16);
    EXPECT_EQ(swap->getData()[15], 7);
    swap->aplly(32); // larger: new block, old content gone
    EXPECT_EQ(swap->getSize(), 32);
    EXPECT_EQ(swap->getData()[0], 0);
    swap->resize(4); // shrinks too
    EXPECT_EQ(swap->getSize(), 4);
    swap->aplly(-1); // refused
    EXPECT_EQ(swap->getSize(), 4);
    swap->reback();
    EXPECT_EQ(swap->getSize(), 0);
    EXPECT_EQ(swap->getData(), nullptr);
    swap->release();
}

TEST(DataSwap, CopiesInAndOutOnlyWhenTheSizeFits) {
    ZuDataSwap* swap = new ZuDataSwap();
    swap->aplly(4);
    const unsigned char in[5] = {1, 2, 3, 4, 5};
    int five = 5;
    swap->writeData(in, &five); // too large: ignored
    EXPECT_EQ(swap->getData()[0], 0);
    int four = 4;
    swap->writeData(in, &four);
    unsigned char out[8] = {9, 9, 9, 9, 9, 9, 9, 9};
    int eight = 8;
    swap->fetchData(out, &eight); // above capacity: caller's buffer untouched
    EXPECT_EQ(out[0], 9);
    swap->fetchData(out, &four);
    EXPECT_EQ(std::memcmp(out, in, 4), 0);
    EXPECT_EQ(out[4], 9);
    swap->writeData(nullptr, &four);
    swap->fetchData(nullptr, &four);
    swap->release();
}

TEST(DataSwap, SwapNeedsMatchingSizes) {
    ZuDataSwap* a = new ZuDataSwap();
    ZuDataSwap* b = new ZuDataSwap();
    a->aplly(4);
    b->aplly(8);
    fill(a, 1, 4);
    fill(b, 2, 8);
    a->swap(b);
    EXPECT_EQ(a->getData()[0], 1);
    b->resize(4);
    fill(b, 3, 4);
    a->swap(b);
    EXPECT_EQ(a->getData()[0], 3);
    EXPECT_EQ(b->getData()[0], 1);
    a->release();
    b->release();
}

TEST(DataSwap, TryCopyTakesOnlyWrittenAndUnlockedSources) {
    ZuDataSwap* src = new ZuDataSwap();
    ZuDataSwap* dst = new ZuDataSwap();
    src->aplly(6);
    fill(src, 5, 6);
    dst->tryCopyData(src); // not written yet
    EXPECT_EQ(dst->getSize(), 0);
    EXPECT_FALSE(dst->isWrite());

    src->setWrite();
    src->lockData(); // busy: skipped at once, never waited for
    dst->tryCopyData(src);
    src->unlockData();
    EXPECT_EQ(dst->getSize(), 0);

    dst->tryCopyData(src);
    ASSERT_EQ(dst->getSize(), 6);
    EXPECT_EQ(dst->getData()[5], 5);
    EXPECT_TRUE(dst->isWrite());
    src->release();
    dst->release();
}

TEST(DataDoubleSwap, HalvesExchangeAndReportAgreedSize) {
    ZuDataDoubleSwap swap;
    EXPECT_EQ(swap.getsize(), 0);
    EXPECT_EQ(swap.getCurrentData(), nullptr);
    swap.apply(12);
    EXPECT_EQ(swap.getsize(), 12);
    ZuDataSwap* current = swap.getCurrentData();
    ZuDataSwap* next = swap.getNextData();
    ASSERT_NE(current, next);
    swap.swap();
    EXPECT_EQ(swap.getCurrentData(), next);
    EXPECT_EQ(swap.getNextData(), current);
    swap.getNextData()->resize(20); // halves disagree
    EXPECT_EQ(swap.getsize(), 0);
    swap.resize(8);
    EXPECT_EQ(swap.getsize(), 8);
    swap.reback();
    EXPECT_EQ(swap.getsize(), 0);
}
