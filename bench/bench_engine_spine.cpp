// Costs on the engine's hot paths that hosts feel: pushing an operation from
// a host thread, and the per-frame walk of a node tree.
#include "basesys/ZuAppMain.h"
#include "basesys/ZuGlobalMgr.h"
#include "operate/ZuOperateBase.h"
#include "operate/ZuOperateMgr.h"
#include "scene/ZuNode.h"

#include <benchmark/benchmark.h>

#include <vector>

namespace {

struct NoOp : public ZuOperateBase {
    NoOp() : ZuOperateBase(nullptr) {}
};

// One push as a host does it: construct, push, release. The queue is drained
// outside the timed region every so often so that it stays short.
void BM_PushOperate(benchmark::State& state) {
    ZuOperateMgr mgr(nullptr);
    mgr.retain(); // lives on the stack; never let a release free it
    mgr.init(false);
    int pushed = 0;
    for (auto _ : state) {
        auto* op = new NoOp();
        mgr.pushOperate(op);
        op->release();
        if (++pushed == 1024) {
            state.PauseTiming();
            mgr.update(0.0f);
            pushed = 0;
            state.ResumeTiming();
        }
    }
    mgr.destroy();
}
BENCHMARK(BM_PushOperate)->Repetitions(5)->ReportAggregatesOnly(true);

// deep_update over a tree of 1,000 plain nodes: a root with 10 branches of
// 10 groups of 9 leaves (1 + 10 + 100 + 889 = 1000 nodes), each with a
// transform that changes every frame.
void BM_DeepUpdate1000(benchmark::State& state) {
    auto* app = new ZuAppMain();
    app->init();
    app->initZuBase();
    std::vector<ZuNode*> all;
    auto make = [&](ZuNode* parent, int z) {
        auto* node = new ZuNode(app);
        node->setZOrder(z);
        if (parent) parent->addChild(node);
        all.push_back(node);
        return node;
    };
    ZuNode* root = make(nullptr, 0);
    int remaining = 999;
    for (int b = 0; b < 10 && remaining > 0; ++b) {
        ZuNode* branch = make(root, 10 - b);
        --remaining;
        for (int g = 0; g < 10 && remaining > 0; ++g) {
            ZuNode* group = make(branch, g % 3);
            --remaining;
            for (int l = 0; l < 9 && remaining > 0; ++l, --remaining) make(group, l % 4);
        }
    }
    float t = 0.0f;
    for (auto _ : state) {
        t += 1.0f;
        root->setPositionX(t, 0.0f, 0.0f);
        root->deep_update(16.0f);
    }
    state.counters["nodes"] = static_cast<double>(all.size());
    for (ZuNode* node : all) node->release();
    app->setState("bench", ZU_ENG_STATE_STOPPING);
    app->destroyZuBase();
    app->destroy();
    app->release();
}
BENCHMARK(BM_DeepUpdate1000)->Unit(benchmark::kMicrosecond)->Repetitions(5)->ReportAggregatesOnly(true);

} // namespace
