#include "operate/ZuOperateBase.h"
#include "operate/ZuOperateMgr.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <thread>
#include <vector>

namespace {

// Records what ran, and counts its own destruction so leaks and double
// releases show.
struct Journal {
    std::vector<std::pair<int, int>> ran; // (producer, sequence)
    std::atomic<int> destroyed{0};
    std::vector<std::thread::id> threads;
};

struct RecordOp : public ZuOperateBase {
    RecordOp(Journal* journal, int producer, int sequence)
        : ZuOperateBase(nullptr), journal(journal), producer(producer), sequence(sequence) {}
    ~RecordOp() override { ++journal->destroyed; }
    void process(float delta) override {
        journal->ran.emplace_back(producer, sequence);
        journal->threads.push_back(std::this_thread::get_id());
    }
    Journal* journal;
    int producer, sequence;
};

// Pushes the next link of a chain from inside process.
struct ChainOp : public ZuOperateBase {
    ChainOp(ZuOperateMgr* mgr, std::vector<int>* frames, int* frame, int left)
        : ZuOperateBase(nullptr), mgr(mgr), frames(frames), frame(frame), left(left) {}
    void process(float delta) override {
        frames->push_back(*frame);
        if (left > 0) {
            auto* next = new ChainOp(mgr, frames, frame, left - 1);
            mgr->pushOperate(next);
            next->release();
        }
    }
    ZuOperateMgr* mgr;
    std::vector<int>* frames;
    int* frame;
    int left;
};

void push(ZuOperateMgr& mgr, ZuOperateBase* op, bool load = false) {
    if (load)
        mgr.pushLoadOperate(op);
    else
        mgr.pushOperate(op);
    op->release();
}

class OperateMgrTest : public ::testing::Test {
protected:
    void SetUp() override { mgr = new ZuOperateMgr(nullptr); }
    void TearDown() override {
        mgr->destroy();
        mgr->release();
    }
    ZuOperateMgr* mgr = nullptr;
    Journal journal;
};

} // namespace

TEST_F(OperateMgrTest, FrameQueueRunsInPushOrderAndReleasesAfterProcess) {
    mgr->init(false);
    mgr->pushOperate(nullptr);
    for (int i = 0; i < 3; ++i) push(*mgr, new RecordOp(&journal, 0, i));
    EXPECT_TRUE(mgr->hasOperate());
    mgr->update(16.0f);
    ASSERT_EQ(journal.ran.size(), 3u);
    for (int i = 0; i < 3; ++i) EXPECT_EQ(journal.ran[i].second, i);
    EXPECT_EQ(journal.destroyed, 3);
    EXPECT_FALSE(mgr->hasOperate());

    // An empty frame swaps and runs nothing.
    mgr->update(16.0f);
    EXPECT_EQ(journal.ran.size(), 3u);
}

TEST_F(OperateMgrTest, SameOperationPushedTwiceRunsTwice) {
    mgr->init(false);
    auto* op = new RecordOp(&journal, 0, 7);
    mgr->pushOperate(op);
    mgr->pushOperate(op);
    EXPECT_EQ(op->count(), 3u);
    op->release();
    mgr->update(1.0f);
    EXPECT_EQ(journal.ran.size(), 2u);
    EXPECT_EQ(journal.destroyed, 1);
}

TEST_F(OperateMgrTest, ChainAdvancesOneLinkPerFrame) {
    mgr->init(false);
    std::vector<int> frames;
    int frame = 0;
    push(*mgr, new ChainOp(mgr, &frames, &frame, 3));
    for (frame = 0; frame < 6; ++frame) mgr->update(16.0f);
    EXPECT_EQ(frames, (std::vector<int>{0, 1, 2, 3}));
}

TEST_F(OperateMgrTest, ManyHostThreadsWhileRenderThreadTicks) {
    mgr->init(false);
    const int producers = 4, perProducer = 500;
    std::atomic<int> finished{0};
    std::vector<std::thread> threads;
    for (int p = 0; p < producers; ++p) {
        threads.emplace_back([&, p] {
            for (int s = 0; s < perProducer; ++s) push(*mgr, new RecordOp(&journal, p, s));
            ++finished;
        });
    }
    // This thread plays the render thread.
    while (finished < producers) mgr->update(1.0f);
    for (auto& t : threads) t.join();
    mgr->update(1.0f);

    ASSERT_EQ(journal.ran.size(), static_cast<size_t>(producers * perProducer));
    std::vector<int> next(producers, 0);
    for (auto& [producer, sequence] : journal.ran) {
        EXPECT_EQ(sequence, next[producer]) << "producer " << producer << " out of order";
        next[producer] = sequence + 1;
    }
    EXPECT_EQ(journal.destroyed, producers * perProducer);
}

TEST_F(OperateMgrTest, LoadQueueRunsOffTheCallingThreadInOrder) {
    mgr->init(true);
    mgr->pushLoadOperate(nullptr);
    for (int i = 0; i < 3; ++i) push(*mgr, new RecordOp(&journal, 1, i), true);
    auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(5);
    while (journal.destroyed < 3 && std::chrono::steady_clock::now() < deadline)
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    ASSERT_EQ(journal.destroyed, 3);
    ASSERT_EQ(journal.ran.size(), 3u);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(journal.ran[i].second, i);
        EXPECT_NE(journal.threads[i], std::this_thread::get_id());
    }
    // Idle again: the loop settles on its slowest poll.
    std::this_thread::sleep_for(std::chrono::milliseconds(80));
    EXPECT_EQ(mgr->loadSleepMicros(), ZuOperateMgr::kSleepIdle);
}

TEST_F(OperateMgrTest, DestroyReleasesEverythingQueuedWithoutRunningIt) {
    mgr->init(true);
    // A slow load entry keeps the loop busy so that later entries stay queued.
    struct SlowOp : public ZuOperateBase {
        SlowOp() : ZuOperateBase(nullptr) {}
        void process(float) override { std::this_thread::sleep_for(std::chrono::milliseconds(60)); }
    };
    push(*mgr, new SlowOp(), true);
    std::this_thread::sleep_for(std::chrono::milliseconds(40));
    for (int i = 0; i < 5; ++i) push(*mgr, new RecordOp(&journal, 2, i), true);
    for (int i = 0; i < 5; ++i) push(*mgr, new RecordOp(&journal, 3, i));
    mgr->destroy();
    EXPECT_TRUE(journal.ran.empty());
    EXPECT_EQ(journal.destroyed, 10);
    // Pushing after destroy is refused, not leaked.
    auto* late = new RecordOp(&journal, 4, 0);
    mgr->pushOperate(late);
    mgr->pushLoadOperate(late);
    EXPECT_EQ(late->count(), 1u);
    late->release();
}
