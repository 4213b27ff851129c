#include "basesys/qzContainers.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <map>
#include <random>
#include <string>

namespace {

struct Child {
    int order;
    bool operator<(const Child& o) const { return order < o.order; }
    bool operator>(const Child& o) const { return order > o.order; }
};

void BM_ArrayPushBack(benchmark::State& state) {
    const int n = static_cast<int>(state.range(0));
    for (auto _ : state) {
        qz::array<int> a;
        for (int i = 0; i < n; ++i) a.push_back(i);
        benchmark::DoNotOptimize(a.pointer());
    }
    state.SetItemsProcessed(state.iterations() * n);
}
BENCHMARK(BM_ArrayPushBack)->Arg(64)->Arg(4096);

// The per-frame child sort: nothing inserted since the last frame.
void BM_SortedChildrenPerFrame(benchmark::State& state) {
    const int n = static_cast<int>(state.range(0));
    std::vector<Child> children(n);
    qz::array<Child*> a;
    for (int i = 0; i < n; ++i) {
        children[i].order = i % 7;
        a.push_back(&children[i]);
    }
    a.stable_sort_object();
    for (auto _ : state) {
        a.stable_sort_object();
        benchmark::DoNotOptimize(a.pointer());
    }
}
BENCHMARK(BM_SortedChildrenPerFrame)->Arg(64);

// Sort after one insert, the frame a node was added.
void BM_SortAfterInsert(benchmark::State& state) {
    const int n = static_cast<int>(state.range(0));
    std::vector<Child> children(n + 1);
    for (int i = 0; i <= n; ++i) children[i].order = i % 7;
    for (auto _ : state) {
        state.PauseTiming();
        qz::array<Child*> a;
        for (int i = 0; i < n; ++i) a.push_back(&children[i]);
        a.stable_sort_object();
        a.push_back(&children[n]);
        state.ResumeTiming();
        a.stable_sort_object();
        benchmark::DoNotOptimize(a.pointer());
    }
}
BENCHMARK(BM_SortAfterInsert)->Arg(64);

std::vector<std::string> names(int n) {
    std::vector<std::string> out;
    char buf[32];
    for (int i = 0; i < n; ++i) {
        std::snprintf(buf, sizeof buf, "node_%d_tex", (i * 7919) % 100003);
        out.push_back(buf);
    }
    return out;
}

void BM_QzMapStringFind(benchmark::State& state) {
    const int n = static_cast<int>(state.range(0));
    const auto keys = names(n);
    qz::map<qz::string, int> m;
    std::vector<qz::string> probes;
    for (int i = 0; i < n; ++i) {
        m.insert(keys[i].c_str(), i);
        probes.push_back(keys[i].c_str());
    }
    size_t i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(m.find(probes[i++ % probes.size()]));
    }
}
BENCHMARK(BM_QzMapStringFind)->Arg(256);

void BM_StdMapStringFind(benchmark::State& state) {
    const int n = static_cast<int>(state.range(0));
    const auto keys = names(n);
    std::map<std::string, int> m;
    for (int i = 0; i < n; ++i) m.emplace(keys[i], i);
    size_t i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(m.find(keys[i++ % keys.size()]));
    }
}
BENCHMARK(BM_StdMapStringFind)->Arg(256);

void BM_StringBuildPath(benchmark::State& state) {
    for (auto _ : state) {
        qz::string path("effects/package/");
        path += "images/";
        path += qz::string(42);
        path += ".png";
        benchmark::DoNotOptimize(path.c_str());
    }
}
BENCHMARK(BM_StringBuildPath);

}  // namespace
