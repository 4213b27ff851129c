// 3D character costs: reading a 2 MB mesh file, and the processor's share of
// one animoji tick on a 5,000-vertex head (52 weighted blend shapes summed
// into the morph buffer, the head bone turned, bone matrices in world space).
// The model files are authored by tools/meshgen/gen_models.py at start-up.
#include "core/MeshSerializer.h"
#include "core/ZuOgreAnimojiNode.h"
#include "core/ZuOgrePieceModel.h"
#include "core/ZuSubMesh.h"
#include "core/VertexData.h"
#include "platform/ZuLog.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <sys/stat.h>
#include <vector>

namespace {

const std::string kDir = "/tmp/qz_bench_core_models/";

bool author(const std::string& args) {
    static bool quiet = (ZuLog::setLevel(ZU_LOG_WARN), true);
    (void)quiet;
    mkdir(kDir.c_str(), 0755);
    std::string command = "python3 " QZ_BENCH_SOURCE "/tools/meshgen/gen_models.py " + args + " >/dev/null";
    return std::system(command.c_str()) == 0;
}

void BM_ReadMesh2MB(benchmark::State& state) {
    static const bool ready = author("big " + kDir + "big.mesh 2");
    struct stat info;
    if (!ready || stat((kDir + "big.mesh").c_str(), &info) != 0) {
        state.SkipWithError("mesh not authored");
        return;
    }
    for (auto _ : state) {
        ZuOgrePieceModel model;
        bool ok = MeshSerializer::loadFile(kDir + "big.mesh", &model);
        benchmark::DoNotOptimize(ok);
    }
    state.counters["file_MB"] = static_cast<double>(info.st_size) / (1024.0 * 1024.0);
}
BENCHMARK(BM_ReadMesh2MB)->Unit(benchmark::kMillisecond)->Repetitions(9)->ReportAggregatesOnly(true);

void BM_AnimojiUpdate5000(benchmark::State& state) {
    // 62 rings of 80 segments: 63 x 81 = 5,103 vertices.
    static const bool ready = author("head " + kDir + "head 62 80");
    ZuOgrePieceModel model;
    if (!ready || !MeshSerializer::loadFile(kDir + "head/head.mesh", &model)) {
        state.SkipWithError("head not authored");
        return;
    }
    model.initAnimationState();
    const int floats = static_cast<int>(model.getSubMesh(0)->vertexData->vertexCount) * 3;
    std::vector<float> morph(static_cast<size_t>(floats));
    float weights[MORPHINDEX_COUNT];
    for (int i = 0; i < MORPHINDEX_COUNT; ++i) weights[i] = 0.5f;
    ZuMatrix4 nodeMatrix;
    nodeMatrix.makeTransform(ZuVec3(360, 640, 0), ZuVec3(200, 200, 200), ZuQuaternion());
    float angle = 0.0f;
    for (auto _ : state) {
        angle += 0.01f;
        model.Yaw("Head", angle, Bone::TS_WORLD);
        model.Pitch("Head", -angle * 0.5f, Bone::TS_WORLD);
        model.Roll("Head", angle * 0.3f, Bone::TS_WORLD);
        model.ApplySkeletonAnimation();
        int count = 0;
        const ZuMatrix4* bones = nullptr;
        model.GetWorldMatrixs(&count, &bones, nodeMatrix);
        ZuOgreAnimojiNode::sumMorphs(model, 1, weights, morph.data(), floats);
        benchmark::DoNotOptimize(morph.data());
        benchmark::DoNotOptimize(bones);
    }
    state.counters["vertices"] = floats / 3;
}
BENCHMARK(BM_AnimojiUpdate5000)->Unit(benchmark::kMicrosecond)->Repetitions(5)->ReportAggregatesOnly(true);

} // namespace
