// Skeletal runtime: a frame's pose update, and reading a large skeleton file.
#include "spine/spRuntime.h"

#include <benchmark/benchmark.h>

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

namespace {

std::atomic<long> g_heapCalls{0};

void* countingMalloc(size_t size) {
    g_heapCalls++;
    return malloc(size);
}

void countingFree(void* ptr) {
    g_heapCalls++;
    free(ptr);
}

const char* kAtlas =
    "bench.png\nsize: 256,256\nformat: RGBA8888\nfilter: Linear,Linear\nrepeat: none\n"
    "part\n  rotate: false\n  xy: 0, 0\n  size: 32, 32\n  orig: 32, 32\n  offset: 0, 0\n  index: -1\n";

// A skeleton of `boneCount` bones (a tree three children wide), one region
// slot per bone, two two-bone IK chains, and `animationCount` animations
// keying rotate, translate and scale of every bone with `keys` keys over a
// second, with linear, stepped and Bezier curves.
std::string makeSkeleton(int boneCount, int animationCount, int keys) {
    std::string text = "{\"skeleton\": {\"hash\": \"bench\", \"spine\": \"1.0\"},\n\"bones\": [\n{\"name\": \"b0\"}";
    char line[256];
    for (int i = 1; i < boneCount; i++) {
        snprintf(line, sizeof(line),
                 ",\n{\"name\": \"b%d\", \"parent\": \"b%d\", \"length\": 20, \"x\": 20, \"rotation\": %d}", i,
                 (i - 1) / 3, (i * 37) % 90 - 45);
        text += line;
    }
    text += "],\n\"slots\": [\n";
    for (int i = 0; i < boneCount; i++) {
        snprintf(line, sizeof(line), "%s{\"name\": \"s%d\", \"bone\": \"b%d\", \"attachment\": \"part\"}",
                 i ? ",\n" : "", i, i);
        text += line;
    }
    text += "],\n\"ik\": [{\"name\": \"ik1\", \"bones\": [\"b1\", \"b4\"], \"target\": \"b2\"},"
            " {\"name\": \"ik2\", \"bones\": [\"b3\", \"b10\"], \"target\": \"b5\", \"bendPositive\": false}],\n";
    text += "\"skins\": {\"default\": {\n";
    for (int i = 0; i < boneCount; i++) {
        snprintf(line, sizeof(line), "%s\"s%d\": {\"part\": {\"width\": 32, \"height\": 32, \"x\": 10}}",
                 i ? ",\n" : "", i);
        text += line;
    }
    text += "}},\n\"animations\": {\n";
    static const char* curves[] = {"", ", \"curve\": \"stepped\"", ", \"curve\": [0.25, 0, 0.75, 1]"};
    for (int a = 0; a < animationCount; a++) {
        snprintf(line, sizeof(line), "%s\"anim%d\": {\"bones\": {\n", a ? ",\n" : "", a);
        text += line;
        for (int b = 0; b < boneCount; b++) {
            snprintf(line, sizeof(line), "%s\"b%d\": {", b ? ",\n" : "", b);
            text += line;
            const char* kinds[] = {"rotate", "translate", "scale"};
            for (int k = 0; k < 3; k++) {
                snprintf(line, sizeof(line), "%s\"%s\": [", k ? ", " : "", kinds[k]);
                text += line;
                for (int f = 0; f < keys; f++) {
                    float time = (float)f / (keys - 1);
                    const char* curve = curves[(a + b + f) % 3];
                    if (k == 0)
                        snprintf(line, sizeof(line), "%s{\"time\": %.3f, \"angle\": %d%s}", f ? ", " : "", time,
                                 ((a + 1) * (b + 3) * (f + 1)) % 60 - 30, curve);
                    else if (k == 1)
                        snprintf(line, sizeof(line), "%s{\"time\": %.3f, \"x\": %d, \"y\": %d%s}", f ? ", " : "",
                                 time, (a + b + f) % 7 - 3, (a * b + f) % 5 - 2, curve);
                    else
                        snprintf(line, sizeof(line), "%s{\"time\": %.3f, \"x\": %.2f, \"y\": %.2f%s}",
                                 f ? ", " : "", time, 1 + ((a + f) % 5) * 0.05, 1 - ((b + f) % 4) * 0.05, curve);
                    text += line;
                }
                text += "]";
            }
            text += "}";
        }
        text += "}}";
    }
    text += "\n}}\n";
    return text;
}

struct Loaded {
    spAtlas* atlas;
    spSkeletonJson* json;
    spSkeletonData* data;

    explicit Loaded(const std::string& text) {
        atlas = spAtlas_create(kAtlas, (int)strlen(kAtlas), "", nullptr);
        json = spSkeletonJson_create(atlas);
        data = spSkeletonJson_readSkeletonData(json, text.c_str());
        if (!data) fprintf(stderr, "bench skeleton: %s\n", json->error);
    }
    ~Loaded() {
        spSkeletonData_dispose(data);
        spSkeletonJson_dispose(json);
        spAtlas_dispose(atlas);
    }
};

// One frame: state update and apply over three tracks (track 0 in a long
// cross-fade, tracks 1 and 2 layered at partial mix) and the world
// transforms of 60 bones with two IK chains.
void BM_SpinePoseUpdate60Bones3Tracks(benchmark::State& st) {
    Loaded loaded(makeSkeleton(60, 4, 5));
    if (!loaded.data) {
        st.SkipWithError("skeleton did not load");
        return;
    }
    spSkeleton* skeleton = spSkeleton_create(loaded.data);
    spAnimationStateData* stateData = spAnimationStateData_create(loaded.data);
    spAnimationStateData_setMixByName(stateData, "anim0", "anim1", 1e6f);
    spAnimationState* state = spAnimationState_create(stateData);
    spAnimationState_setAnimationByName(state, 0, "anim0", 1);
    spAnimationState_setAnimationByName(state, 0, "anim1", 1);
    spAnimationState_setAnimationByName(state, 1, "anim2", 1)->mix = 0.5f;
    spAnimationState_setAnimationByName(state, 2, "anim3", 1)->mix = 0.3f;
    for (int i = 0; i < 120; i++) {
        spAnimationState_update(state, 1 / 60.0f);
        spAnimationState_apply(state, skeleton);
        spSkeleton_updateWorldTransform(skeleton);
    }

    g_heapCalls = 0;
    _setMalloc(countingMalloc);
    _setFree(countingFree);
    long frames = 0;
    for (auto _ : st) {
        spAnimationState_update(state, 1 / 60.0f);
        spAnimationState_apply(state, skeleton);
        spSkeleton_updateWorldTransform(skeleton);
        benchmark::DoNotOptimize(skeleton->bones[59]->worldX);
        frames++;
    }
    _setMalloc(nullptr);
    _setFree(nullptr);
    st.counters["heap_calls_per_frame"] = frames ? (double)g_heapCalls / frames : 0;
    st.counters["bones"] = skeleton->bonesCount;

    spAnimationState_dispose(state);
    spAnimationStateData_dispose(stateData);
    spSkeleton_dispose(skeleton);
}
BENCHMARK(BM_SpinePoseUpdate60Bones3Tracks)->Unit(benchmark::kMicrosecond);

// Reading (parse, build, dispose) a skeleton file of about 200 KB.
void BM_SpineReadSkeleton200KB(benchmark::State& st) {
    std::string text = makeSkeleton(60, 3, 7);
    spAtlas* atlas = spAtlas_create(kAtlas, (int)strlen(kAtlas), "", nullptr);
    spSkeletonJson* json = spSkeletonJson_create(atlas);
    for (auto _ : st) {
        spSkeletonData* data = spSkeletonJson_readSkeletonData(json, text.c_str());
        if (!data) {
            st.SkipWithError(json->error);
            break;
        }
        spSkeletonData_dispose(data);
    }
    st.counters["kilobytes"] = text.size() / 1024.0;
    spSkeletonJson_dispose(json);
    spAtlas_dispose(atlas);
}
BENCHMARK(BM_SpineReadSkeleton200KB)->Unit(benchmark::kMillisecond);

} // namespace
