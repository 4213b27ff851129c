#include "basesys/ZuGBase.h"
#include "basesys/ZuListenBase.h"
#include "support/LogCapture.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

namespace {

// A source that counts its own per-frame updates.
class Source : public ZuListenBase {
public:
    int updates = 0;
    float lastDelta = 0.f;

protected:
    void _updateSelf(float delta) override {
        ++updates;
        lastDelta = delta;
    }
};

class Listener : public ZuObject {
public:
    explicit Listener(std::vector<std::string>* log, const char* name) : log(log), name(name) {}

    void onData(ZuObject* source) {
        log->push_back(name + ":data");
        // The source's lock is held while listeners run.
        lockWasHeld = !static_cast<ZuListenBase*>(source)->getLock().trylock();
        if (!lockWasHeld) static_cast<ZuListenBase*>(source)->getLock().unlock();
        lastSource = source;
    }
    void onOther(ZuObject*) { log->push_back(name + ":other"); }
    void listenData(ZuObject*) override { log->push_back(name + ":listenData"); }

    std::vector<std::string>* log;
    std::string name;
    bool lockWasHeld = false;
    ZuObject* lastSource = nullptr;
};

// Overrides the virtual slot: a registered &ZuObject::listenData reaches it.
class DerivedListener : public Listener {
public:
    using Listener::Listener;
    void listenData(ZuObject*) override { log->push_back(name + ":derived"); }
};

// ZuObject is not the first base, so calls need the this-adjustment.
struct Padding {
    virtual ~Padding() = default;
    double pad[3] = {1, 2, 3};
};
class OffsetListener : public Padding, public ZuObject {
public:
    int hits = 0;
    double seenPad = 0;
    void onData(ZuObject*) {
        ++hits;
        seenPad = pad[2];
    }
};

class Counted : public ZuRefObject {
public:
    explicit Counted(int* destroyed) : destroyed(destroyed) {}
    ~Counted() override { ++*destroyed; }
    int* destroyed;
};

}  // namespace

TEST(ZuListenBaseTest, ListenersRunOncePerFrameUnderTheLock) {
    std::vector<std::string> log;
    Source* source = new Source;
    Listener a(&log, "a");
    source->registListenFunc(&a, &Listener::onData);

    // A fresh source starts changed: the first frame notifies.
    source->noticeListener(33.f);
    EXPECT_EQ(log, (std::vector<std::string>{"a:data"}));
    EXPECT_TRUE(a.lockWasHeld);
    EXPECT_EQ(a.lastSource, source);
    EXPECT_FLOAT_EQ(source->lastDelta, 33.f);

    // Nothing new: _updateSelf still runs, listeners do not.
    source->noticeListener(16.f);
    EXPECT_EQ(log.size(), 1u);
    EXPECT_EQ(source->updates, 2);

    // Many writes between frames give one call.
    for (int i = 0; i < 5; ++i) source->setChanged();
    source->noticeListener(16.f);
    source->noticeListener(16.f);
    EXPECT_EQ(log.size(), 2u);
    EXPECT_FALSE(source->isChanged());
    EXPECT_EQ(source->updates, 4);

    // The lock is free again after the notice.
    ASSERT_TRUE(source->getLock().trylock());
    source->getLock().unlock();
    source->release();
}

TEST(ZuListenBaseTest, RegistrationDedupsOnListenerAndMemberAndKeepsOrder) {
    std::vector<std::string> log;
    Source source;
    Listener a(&log, "a");
    Listener b(&log, "b");
    source.registListenFunc(&a, &Listener::onData);
    source.registListenFunc(&a, &Listener::onData);  // duplicate pair
    source.registListenFunc(&b, &Listener::onData);  // same member, other object
    source.registListenFunc(&a, &Listener::onOther);  // same object, other member
    EXPECT_EQ(source.getListenerCount(), 3u);

    source.noticeListener(0.f);
    EXPECT_EQ(log, (std::vector<std::string>{"a:data", "b:data", "a:other"}));

    source.unregistListenFunc(&a, &Listener::onData);
    source.unregistListenFunc(&a, &Listener::onData);  // already gone: no effect
    EXPECT_EQ(source.getListenerCount(), 2u);
    log.clear();
    source.setChanged();
    source.noticeListener(0.f);
    EXPECT_EQ(log, (std::vector<std::string>{"b:data", "a:other"}));
}

TEST(ZuListenBaseTest, VirtualMembersDispatchAndAdjustmentsApply) {
    std::vector<std::string> log;
    Source source;
    DerivedListener d(&log, "d");
    source.registListenFunc(static_cast<ZuObject*>(&d), &ZuObject::listenData);
    OffsetListener off;
    source.registListenFunc(&off, &OffsetListener::onData);
    source.noticeListener(0.f);
    EXPECT_EQ(log, (std::vector<std::string>{"d:derived"}));
    EXPECT_EQ(off.hits, 1);
    EXPECT_DOUBLE_EQ(off.seenPad, 3.0);
}

#if defined(__GNUC__)
// Under the Itanium C++ ABI a member function pointer is a function part and
// a this-adjustment. Two entries that differ only in the adjustment name
// different calls and must both stay registered.
TEST(ZuListenBaseTest, BothPartsOfTheMemberPointerAreCompared) {
    ZuListenMember base = &ZuObject::listenData;
    struct Raw {
        intptr_t ptr;
        intptr_t adj;
    };
    static_assert(sizeof(ZuListenMember) == sizeof(Raw), "two-part member pointers");
    Raw raw;
    std::memcpy(&raw, &base, sizeof raw);
    raw.adj += 16;  // bit 0 of adj is left alone (ARM keeps a flag there)
    ZuListenMember shifted;
    std::memcpy(&shifted, &raw, sizeof raw);

    Source source;
    std::vector<std::string> log;
    Listener a(&log, "a");
    source.registListenFunc(&a, base);
    source.registListenFunc(&a, shifted);
    source.registListenFunc(&a, base);
    EXPECT_EQ(source.getListenerCount(), 2u);
    source.unregistListenFunc(&a, shifted);
    EXPECT_EQ(source.getListenerCount(), 1u);
}
#endif

TEST(ZuListenBaseTest, NullRegistrationsAreRefused) {
    LogCapture capture;
    Source source;
    std::vector<std::string> log;
    Listener a(&log, "a");
    source.registListenFunc(static_cast<ZuObject*>(nullptr), &ZuObject::listenData);
    source.registListenFunc(static_cast<ZuObject*>(&a), ZuListenMember(nullptr));
    EXPECT_EQ(source.getListenerCount(), 0u);
    EXPECT_EQ(capture.count("registListenFunc", ZU_LOG_WARN), 2);
    source.noticeListener(0.f);
    EXPECT_TRUE(log.empty());
}

TEST(ZuObjectModel, ReferenceCountOwnership) {
    int destroyed = 0;
    Counted* object = new Counted(&destroyed);
    EXPECT_EQ(object->count(), 1u);  // the creator's reference
    EXPECT_EQ(object->retain(), 2u);  // a holder takes its own
    EXPECT_EQ(object->release(), 1u);  // the creator hands over
    EXPECT_EQ(destroyed, 0);
    Counted* holder = object;
    qzSafeRelease(holder);
    EXPECT_EQ(holder, nullptr);
    EXPECT_EQ(destroyed, 1);
    qzSafeRelease(holder);  // null: nothing happens
    EXPECT_EQ(destroyed, 1);

    // Destruction goes through the virtual destructor of the base pointer.
    ZuRefObject* base = new Counted(&destroyed);
    base->release();
    EXPECT_EQ(destroyed, 2);

    ZuGBase g(reinterpret_cast<ZuAppMain*>(0x1234));
    EXPECT_EQ(g.getApp(), reinterpret_cast<ZuAppMain*>(0x1234));
}

TEST(ZuLockTest, TrylockIsNonRecursive) {
    ZuLock lock;
    lock.create();
    EXPECT_TRUE(lock.isCreated());
    EXPECT_TRUE(lock.trylock());
    EXPECT_FALSE(lock.trylock());  // same thread: still refused
    lock.unlock();
    {
        ZuLockGuard guard(lock);
        EXPECT_FALSE(lock.trylock());
    }
    EXPECT_TRUE(lock.trylock());
    lock.unlock();
    lock.destroy();
    EXPECT_FALSE(lock.isCreated());
}
