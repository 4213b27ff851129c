#include "basesys/qzContainers.h"
#include "support/LogCapture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>
#include <string>
#include <vector>

namespace {

// Counts live instances so leaks and double destruction show up as a
// non-zero balance once the container is gone.
struct Tracked {
    static int live;
    int value;
    Tracked(int v = 0) : value(v) { ++live; }
    Tracked(const Tracked& o) : value(o.value) { ++live; }
    Tracked& operator=(const Tracked& o) {
        value = o.value;
        return *this;
    }
    ~Tracked() { --live; }
    bool operator==(const Tracked& o) const { return value == o.value; }
};
int Tracked::live = 0;

// An element sorted by key; id records the original order.
struct Keyed {
    int key;
    int id;
    bool operator<(const Keyed& o) const { return key < o.key; }
    bool operator>(const Keyed& o) const { return key > o.key; }
};

std::vector<int> valuesOf(const qz::array<Tracked>& a) {
    std::vector<int> out;
    for (const Tracked& t : a) out.push_back(t.value);
    return out;
}

}  // namespace

// ---------------------------------------------------------------- qz::array

TEST(QzArray, DoublingGrowthReachesTheDocumentedCapacities) {
    // extra = 5 below capacity 5, = used below 500, = used/4 from 500 on:
    // 0+1+5=6, 6+1+6=13, 27, 55, 111, 223, 447, 447+1+447=895,
    // 895+1+223=1119, 1119+1+279=1399.
    const std::vector<uint32_t> expected = {6, 13, 27, 55, 111, 223, 447, 895, 1119, 1399};
    qz::array<int> a;
    std::vector<uint32_t> seen;
    for (int i = 0; i < 1399; ++i) {
        a.push_back(i);
        if (seen.empty() || seen.back() != a.allocated_size()) seen.push_back(a.allocated_size());
    }
    EXPECT_EQ(seen, expected);
    for (int i = 0; i < 1399; ++i) ASSERT_EQ(a[i], i);
}

TEST(QzArray, OtherStrategiesGrowExactly) {
    qz::array<int> a;
    a.setAllocStrategy(qz::array<int>::ALLOC_STRATEGY_SAFE);
    for (uint32_t i = 1; i <= 20; ++i) {
        a.push_back(static_cast<int>(i));
        EXPECT_EQ(a.allocated_size(), i);
    }
}

TEST(QzArray, InsertOfOwnElementSurvivesGrowthAndShifting) {
    qz::array<qz::string> a;
    for (int i = 0; i < 6; ++i) a.push_back(qz::string(i));
    ASSERT_EQ(a.allocated_size(), 6u);  // full: the next insert reallocates
    a.insert(a[2], 0);
    ASSERT_EQ(a.size(), 7u);
    EXPECT_EQ(a[0], "2");
    EXPECT_EQ(a[3], "2");
    EXPECT_EQ(a[6], "5");

    // With room to spare the tail shifts under the reference instead.
    ASSERT_GT(a.allocated_size(), a.size());
    a.insert(a[5], 1);  // a[5] is "4"
    EXPECT_EQ(a[1], "4");
    EXPECT_EQ(a[6], "4");
    a.push_back(a[0]);
    EXPECT_EQ(a.getLast(), "2");
}

TEST(QzArray, InsertEraseKeepOrderAndCapacity) {
    Tracked::live = 0;
    {
        qz::array<Tracked> a;
        for (int i = 0; i < 10; ++i) a.push_back(Tracked(i));
        a.insert(Tracked(100), 0);
        a.insert(Tracked(200), 5);
        a.insert(Tracked(300), a.size());
        EXPECT_EQ(valuesOf(a), (std::vector<int>{100, 0, 1, 2, 3, 200, 4, 5, 6, 7, 8, 9, 300}));

        const uint32_t capacity = a.allocated_size();
        a.erase(0);
        a.erase(4);
        a.erase(a.size() - 1);
        EXPECT_EQ(valuesOf(a), (std::vector<int>{0, 1, 2, 3, 4, 5, 6, 7, 8, 9}));
        a.erase(2, 3);
        EXPECT_EQ(valuesOf(a), (std::vector<int>{0, 1, 5, 6, 7, 8, 9}));
        a.erase(5, 100);  // count cut at the end
        EXPECT_EQ(valuesOf(a), (std::vector<int>{0, 1, 5, 6, 7}));
        EXPECT_EQ(a.allocated_size(), capacity);
        EXPECT_EQ(Tracked::live, 5);

        a.clear();
        EXPECT_EQ(a.allocated_size(), 0u);
        EXPECT_EQ(a.pointer(), nullptr);
        EXPECT_TRUE(a.empty());
        EXPECT_EQ(Tracked::live, 0);

        for (int i = 0; i < 30; ++i) a.insert(Tracked(i), static_cast<uint32_t>(i / 2));
    }
    EXPECT_EQ(Tracked::live, 0);
}

TEST(QzArray, BadIndicesAreRefusedAndLogged) {
    LogCapture log;
    qz::array<int> a;
    a.push_back(1);
    a.insert(5, 3);
    a.erase(1);
    a.erase(7, 2);
    EXPECT_EQ(a.size(), 1u);
    EXPECT_EQ(a[0], 1);
    EXPECT_EQ(log.count("qz::array::insert", ZU_LOG_ERROR), 1);
    EXPECT_EQ(log.count("qz::array::erase", ZU_LOG_ERROR), 2);
}

TEST(QzArray, ReallocateSetUsedAndSwap) {
    qz::array<qz::string> a;
    for (int i = 0; i < 8; ++i) a.push_back(qz::string(i));
    a.reallocate(4, false);  // shrinking not allowed: nothing happens
    EXPECT_EQ(a.size(), 8u);
    a.reallocate(5, true);
    EXPECT_EQ(a.size(), 5u);
    EXPECT_EQ(a.allocated_size(), 5u);
    EXPECT_EQ(a.getLast(), "4");

    // Grown slots of a class type are usable objects.
    a.set_used(9);
    EXPECT_EQ(a.size(), 9u);
    EXPECT_TRUE(a[8].empty());
    a[8] = "x";
    a.set_used(2);
    EXPECT_EQ(a.size(), 2u);

    qz::array<float> f;
    f.set_used(3);
    f[0] = 1.f;
    f[1] = 2.f;
    f[2] = 3.f;
    EXPECT_EQ(f.size(), 3u);
    EXPECT_EQ(f.allocated_size(), 3u);

    qz::array<qz::string> b;
    b.push_back("only");
    a.swap(b);
    EXPECT_EQ(a.size(), 1u);
    EXPECT_EQ(a[0], "only");
    EXPECT_EQ(b.size(), 2u);
    EXPECT_EQ(b[1], "1");
}

TEST(QzArray, AssignmentIsADeepCopyWithTheSourceFlags) {
    Tracked::live = 0;
    {
        qz::array<Tracked> a;
        a.setAllocStrategy(0);
        for (int i = 0; i < 4; ++i) a.push_back(Tracked(i));
        qz::array<Tracked> b;
        b.push_back(Tracked(9));
        b = a;
        EXPECT_EQ(valuesOf(b), valuesOf(a));
        EXPECT_EQ(b.getAllocStrategy(), 0u);
        EXPECT_EQ(b.allocated_size(), a.allocated_size());
        EXPECT_FALSE(b.sorted());
        b[0].value = 42;
        EXPECT_EQ(a[0].value, 0);
        qz::array<Tracked>& alias = b;
        b = alias;  // self-assignment keeps the contents
        EXPECT_EQ(b.size(), 4u);
        qz::array<Tracked> c(b);
        EXPECT_EQ(c[0].value, 42);
        EXPECT_EQ(a.linear_search(Tracked(3)), 3);
        EXPECT_EQ(a.linear_search(Tracked(7)), -1);
    }
    EXPECT_EQ(Tracked::live, 0);
}

TEST(QzArray, StableSortObjectMatchesStdStableSortAndHonoursTheSortedFlag) {
    std::mt19937 rng(7);
    for (int round = 0; round < 50; ++round) {
        const int n = static_cast<int>(rng() % 40);
        std::vector<Keyed> items(n);
        for (int i = 0; i < n; ++i) items[i] = {static_cast<int>(rng() % 5), i};
        qz::array<Keyed*> a;
        std::vector<Keyed*> expected;
        for (Keyed& k : items) {
            a.push_back(&k);
            expected.push_back(&k);
        }
        std::stable_sort(expected.begin(), expected.end(),
                         [](const Keyed* l, const Keyed* r) { return l->key < r->key; });
        a.stable_sort_object();
        ASSERT_EQ(a.size(), expected.size());
        for (int i = 0; i < n; ++i) ASSERT_EQ(a[i], expected[i]) << "round " << round << " at " << i;
    }

    Keyed k[3] = {{2, 0}, {1, 1}, {0, 2}};
    qz::array<Keyed*> a;
    for (Keyed& x : k) a.push_back(&x);
    a.stable_sort_object();
    EXPECT_TRUE(a.sorted());
    EXPECT_EQ(a[0], &k[2]);
    // A key change alone does not clear the flag, so nothing moves ...
    k[2].key = 10;
    a.stable_sort_object();
    EXPECT_EQ(a[0], &k[2]);
    // ... until an insert does.
    Keyed extra{-1, 3};
    a.push_back(&extra);
    EXPECT_FALSE(a.sorted());
    a.stable_sort_object();
    EXPECT_EQ(a[0], &extra);
    EXPECT_EQ(a.getLast(), &k[2]);
}

// ----------------------------------------------------------------- qz::list

TEST(QzList, PushIterateAndErase) {
    Tracked::live = 0;
    {
        qz::list<Tracked> l;
        EXPECT_TRUE(l.empty());
        EXPECT_TRUE(l.begin() == l.end());
        EXPECT_TRUE(l.getLast() == l.end());
        for (int i = 0; i < 5; ++i) l.push_back(Tracked(i));
        l.push_front(Tracked(-1));
        EXPECT_EQ(l.size(), 6u);
        EXPECT_EQ(l.getSize(), 6u);
        EXPECT_EQ(l.getLast()->value, 4);

        std::vector<int> seen;
        for (const Tracked& t : l) seen.push_back(t.value);
        EXPECT_EQ(seen, (std::vector<int>{-1, 0, 1, 2, 3, 4}));

        // Erase every even value while walking.
        for (qz::list<Tracked>::Iterator it = l.begin(); it != l.end();) {
            if (it->value % 2 == 0) {
                qz::list<Tracked>::Iterator victim = it;
                it = l.erase(victim);
                EXPECT_TRUE(victim == l.end());  // the passed iterator is nulled
            } else {
                ++it;
            }
        }
        seen.clear();
        for (qz::list<Tracked>::Iterator it = l.begin(); it != l.end(); ++it) seen.push_back((*it).value);
        EXPECT_EQ(seen, (std::vector<int>{-1, 1, 3}));
        EXPECT_EQ(Tracked::live, 3);

        // Backwards from the last keeps the links consistent.
        seen.clear();
        for (qz::list<Tracked>::Iterator it = l.getLast(); it != l.end(); --it) seen.push_back(it->value);
        EXPECT_EQ(seen, (std::vector<int>{3, 1, -1}));

        qz::list<Tracked>::Iterator last = l.getLast();
        EXPECT_TRUE(l.erase(last) == l.end());
        EXPECT_EQ(l.getLast()->value, 1);
        l.insert_before(l.getLast(), Tracked(7));
        l.insert_before(l.end(), Tracked(8));
        seen.clear();
        for (const Tracked& t : l) seen.push_back(t.value);
        EXPECT_EQ(seen, (std::vector<int>{-1, 7, 1, 8}));
        EXPECT_TRUE(l.remove(Tracked(7)));
        EXPECT_FALSE(l.remove(Tracked(7)));

        qz::list<Tracked> copy(l);
        l.clear();
        EXPECT_TRUE(l.empty());
        EXPECT_EQ(l.size(), 0u);
        EXPECT_EQ(copy.size(), 3u);
        const qz::list<Tracked>& cref = copy;
        int sum = 0;
        for (qz::list<Tracked>::ConstIterator it = cref.begin(); it != cref.end(); ++it) sum += it->value;
        EXPECT_EQ(sum, 8);
    }
    EXPECT_EQ(Tracked::live, 0);
}

TEST(QzList, EraseOfEndIsRefused) {
    LogCapture log;
    qz::list<int> l;
    l.push_back(1);
    qz::list<int>::Iterator none = l.end();
    EXPECT_TRUE(l.erase(none) == l.end());
    EXPECT_EQ(l.size(), 1u);
    EXPECT_EQ(log.count("qz::list::erase", ZU_LOG_ERROR), 1);
}

// ------------------------------------------------------------------ qz::map

namespace {

// Checks links, order and the red-black rules; returns the black height.
template <typename K, typename V>
int checkSubtree(typename qz::map<K, V>::RBTree* n, bool checkColours) {
    if (!n) return 1;
    auto* l = n->getLeftChild();
    auto* r = n->getRightChild();
    if (l) {
        EXPECT_EQ(l->getParent(), n);
        EXPECT_TRUE(l->getKey() < n->getKey());
    }
    if (r) {
        EXPECT_EQ(r->getParent(), n);
        EXPECT_TRUE(n->getKey() < r->getKey());
    }
    if (checkColours && n->isRed()) {
        EXPECT_FALSE(l && l->isRed());
        EXPECT_FALSE(r && r->isRed());
    }
    const int hl = checkSubtree<K, V>(l, checkColours);
    const int hr = checkSubtree<K, V>(r, checkColours);
    if (checkColours) {
        EXPECT_EQ(hl, hr);
    }
    return hl + (n->isBlack() ? 1 : 0);
}

template <typename K, typename V>
void checkTree(const qz::map<K, V>& m, bool checkColours) {
    if (m.getRoot()) {
        EXPECT_EQ(m.getRoot()->getParent(), nullptr);
        if (checkColours) {
            EXPECT_TRUE(m.getRoot()->isBlack());
        }
    }
    checkSubtree<K, V>(m.getRoot(), checkColours);
}

}  // namespace

TEST(QzMap, InsertKeepsOldValueAndSetReplaces) {
    qz::map<qz::string, int> m;
    EXPECT_TRUE(m.insert("b", 1));
    EXPECT_TRUE(m.insert("a", 2));
    EXPECT_FALSE(m.insert("b", 3));
    EXPECT_EQ(m.find("b")->getValue(), 1);
    m.set("b", 4);
    m.set("c", 5);
    EXPECT_EQ(m.find("b")->getValue(), 4);
    EXPECT_EQ(m.size(), 3u);
    EXPECT_EQ(m.find("zz"), nullptr);

    m["d"] = 6;
    int d = m["d"];
    EXPECT_EQ(d, 6);
    m["d"] = 7;
    EXPECT_EQ(m.find("d")->getValue(), 7);
    m.find("a")->setValue(8);
    EXPECT_EQ(static_cast<int>(m["a"]), 8);

    LogCapture log;
    int missing = m["nope"];
    EXPECT_EQ(missing, 0);
    EXPECT_EQ(log.count("missing key", ZU_LOG_ERROR), 1);
    EXPECT_EQ(m.size(), 4u);
}

TEST(QzMap, RandomInsertsAndRemovesMatchStdMap) {
    std::mt19937 rng(12345);
    qz::map<int, int> m;
    std::map<int, int> ref;

    // Inserts only: the tree must also satisfy the red-black rules.
    for (int i = 0; i < 2000; ++i) {
        const int k = static_cast<int>(rng() % 5000);
        const bool added = m.insert(k, i);
        EXPECT_EQ(added, ref.insert({k, i}).second);
    }
    checkTree(m, true);

    for (int i = 0; i < 6000; ++i) {
        const int k = static_cast<int>(rng() % 5000);
        switch (rng() % 3) {
            case 0:
                EXPECT_EQ(m.insert(k, i), ref.insert({k, i}).second);
                break;
            case 1:
                EXPECT_EQ(m.remove(k), ref.erase(k) == 1);
                break;
            default:
                m.set(k, i);
                ref[k] = i;
                break;
        }
    }
    // Removal does not repair colours, only structure and order.
    checkTree(m, false);
    ASSERT_EQ(m.size(), ref.size());

    auto expected = ref.begin();
    for (qz::map<int, int>::Iterator it = m.getIterator(); !it.atEnd(); ++it, ++expected) {
        ASSERT_TRUE(expected != ref.end());
        EXPECT_EQ(it->getKey(), expected->first);
        EXPECT_EQ(it.getNode()->getValue(), expected->second);
    }
    EXPECT_TRUE(expected == ref.end());

    auto rexpected = ref.rbegin();
    qz::map<int, int>::Iterator it = m.getIterator();
    for (it.reset(false); !it.atEnd(); --it, ++rexpected) EXPECT_EQ((*it).getKey(), rexpected->first);
    EXPECT_TRUE(rexpected == ref.rend());

    // Remove everything through nodes.
    while (m.getRoot()) m.remove(m.getRoot());
    EXPECT_EQ(m.size(), 0u);
    EXPECT_TRUE(m.empty());
}

// A removal that lifts a red child to the root must not break later inserts
// (the pool of named framebuffers does exactly this: remove, then insert).
TEST(QzMap, InsertAfterTheRootWasRemoved) {
    for (int extra = 1; extra <= 6; ++extra) {
        qz::map<int, int> m;
        m.insert(1, 1);
        m.insert(2, 2);  // red right child of the root
        ASSERT_TRUE(m.remove(1));
        for (int k = 3; k < 3 + extra; ++k) ASSERT_TRUE(m.insert(k, k));
        EXPECT_FALSE(m.getRoot()->isRed());
        EXPECT_EQ(m.size(), static_cast<uint32_t>(1 + extra));
        checkTree(m, false);
    }
}

TEST(QzMap, ParentLastIteratorVisitsChildrenFirst) {
    qz::map<int, int> m;
    for (int k : {50, 20, 80, 10, 30, 70, 90, 25, 35, 5}) m.insert(k, k);
    std::vector<qz::map<int, int>::RBTree*> order;
    for (auto it = m.getParentLastIterator(); !it.atEnd(); ++it) order.push_back(it.getNode());
    ASSERT_EQ(order.size(), m.size());
    auto pos = [&](qz::map<int, int>::RBTree* n) {
        return std::find(order.begin(), order.end(), n) - order.begin();
    };
    for (auto* n : order) {
        if (n->getLeftChild()) {
            EXPECT_LT(pos(n->getLeftChild()), pos(n));
        }
        if (n->getRightChild()) {
            EXPECT_LT(pos(n->getRightChild()), pos(n));
        }
    }
    EXPECT_EQ(order.back(), m.getRoot());
    EXPECT_TRUE(order.front()->isLeaf());
}

TEST(QzMap, ClassKeysAndCopies) {
    int objects[3] = {0, 1, 2};
    qz::map<std::string, int*> byStd;
    qz::map<qz::string, int*> byQz;
    const char* names[3] = {"camera", "beauty", "sticker"};
    for (int i = 0; i < 3; ++i) {
        byStd.insert(names[i], &objects[i]);
        byQz.insert(names[i], &objects[i]);
    }
    EXPECT_EQ(byStd.find("beauty")->getValue(), &objects[1]);
    EXPECT_EQ(byQz.find("sticker")->getValue(), &objects[2]);
    EXPECT_EQ(byQz.find(qz::string("camer")), nullptr);

    qz::map<qz::string, int*> copy(byQz);
    byQz.remove("camera");
    byQz.clear();
    EXPECT_EQ(byQz.size(), 0u);
    EXPECT_EQ(copy.size(), 3u);
    std::vector<std::string> keys;
    for (auto it = copy.getIterator(); !it.atEnd(); it++) keys.push_back(it->getKey().c_str());
    EXPECT_EQ(keys, (std::vector<std::string>{"beauty", "camera", "sticker"}));
}

TEST(QzMath, MinMaxClamp) {
    EXPECT_EQ(qz::min_(3, -2), -2);
    EXPECT_EQ(qz::max_(3, -2), 3);
    EXPECT_FLOAT_EQ(qz::clamp(1.5f, 0.f, 1.f), 1.f);
    EXPECT_FLOAT_EQ(qz::clamp(-0.5f, 0.f, 1.f), 0.f);
    EXPECT_FLOAT_EQ(qz::clamp(0.25f, 0.f, 1.f), 0.25f);
}
