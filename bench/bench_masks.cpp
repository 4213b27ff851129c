// Extra frame cost of the face masks, the face swap and the small-face warp
// at 720 x 1280 with four tracked faces, each measured beside the plain
// camera path in the same run: NV21 in, the scene drawn, RGBA read back
// (glFinish included). And the triangulation behind the face meshes: 400
// points, median of repeated runs.
#include "BenchScene.h"
#include "basesys/ZuRandom.h"
#include "node/mask/Zu2DFaceMaskNode.h"
#include "node/mask/ZuMaterialFace2d.h"
#include "node/mask/ZuSwapFaceNode.h"
#include "node/morph/ZuSmallFaceWarpNode.h"
#include "render/math/DelaunayTriangle.h"
#include "render/texture/ZuTexMgr.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace {

enum Work { kCameraOnly, kMasks, kSwap, kMasksAndSwap, kSmallFaces, kWorkCount };
const char* const kLabels[kWorkCount] = {"camera path alone", "+ 2D mask on 4 faces", "+ face swap (persons 1, 2)",
                                         "+ masks and swap", "+ small-face warp on 4 faces"};
const int kW = 720, kH = 1280;

std::vector<uint8_t> readFile(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return std::vector<uint8_t>((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
}

// The sample face's ST record made into four faces spread over the frame.
std::vector<uint8_t> fourFaces() {
    const std::vector<uint8_t> one = readFile(std::string(QZ_BENCH_SAMPLES) + "faces/astronaut.st.rec");
    const size_t block = 28 + 106 * 8;
    if (one.size() < 4 + block) return {};
    std::vector<uint8_t> out(4, 0);
    out[0] = 4;
    const int shifts[4][2] = {{-80, 100}, {240, 100}, {-80, 700}, {240, 700}};
    for (const auto& s : shifts) {
        std::vector<uint8_t> face(one.begin() + 4, one.begin() + 4 + block);
        for (int k = 0; k < 4 + 212; ++k) {
            const size_t at = (k < 4 ? 12 + 4 * k : 28 + 4 * (k - 4));
            int32_t v;
            std::memcpy(&v, &face[at], 4);
            const bool x = k < 4 ? (k % 2 == 0) : ((k - 4) % 2 == 0);
            v += x ? s[0] : s[1];
            std::memcpy(&face[at], &v, 4);
        }
        out.insert(out.end(), face.begin(), face.end());
    }
    return out;
}

// The bench scene with four tracked faces and the run's nodes on it.
class MaskFrame {
public:
    explicit MaskFrame(Work work)
        : scene({kW, kH, DETECTTYPE_ST, 0, false, {QZ_BENCH_ASSETS, QZ_BENCH_SAMPLES}}) {
        scene.record = fourFaces();
        scene.frame();
        scene.frame();
        if (work == kMasks || work == kMasksAndSwap) {
            ZuTexture* picture = scene.app->getGlobalMgr()->getTexMgr()->getTextureSync("packages/mask_2d/carnival.png");
            for (int person = 1; person <= 4; ++person) {
                auto* mask = dynamic_cast<Zu2DFaceMaskNode*>(add("Zu2DFaceMaskSTNode", person));
                if (!mask) continue;
                mask->initMesh(FACEMASK2D_FULL);
                auto* material = new ZuMaterialFace2d(scene.app);
                material->init();
                material->setMaskTexture(picture);
                mask->setMaterial(material);
                material->release();
                mask->setVisible(true);
                masks.push_back(mask);
            }
        }
        if (work == kSwap || work == kMasksAndSwap)
            if ((swap = dynamic_cast<ZuSwapFaceNode*>(add("ZuSwapFaceSTNode", 0)))) swap->initMesh();
        if (work == kSmallFaces)
            for (int person = 1; person <= 4; ++person)
                warps.push_back(dynamic_cast<ZuSmallFaceWarpNode*>(add("ZuSmallFaceNode", person)));
        for (int i = 0; i < 3; ++i) scene.frame();
    }
    // Every node of the run draws: all four faces tracked.
    bool drawing() const {
        for (auto* mask : masks)
            if (mask->getLiveCount() == 0) return false;
        for (auto* warp : warps)
            if (!warp || !warp->isWarping()) return false;
        return !swap || swap->isSwapping();
    }
    void frame() { scene.frame(); }

private:
    ZuNode* add(const char* type, int person) {
        const std::string name = std::string(type) + std::to_string(person);
        return scene.add(type, name.c_str(), person);
    }

    BenchScene scene;
    std::vector<Zu2DFaceMaskNode*> masks;
    std::vector<ZuSmallFaceWarpNode*> warps;
    ZuSwapFaceNode* swap = nullptr;
};

void BM_MaskFrame(benchmark::State& state) {
    const auto work = static_cast<Work>(state.range(0));
    MaskFrame frame(work);
    if (!frame.drawing()) state.SkipWithError("not every node draws");
    for (auto _ : state) frame.frame();
    state.SetLabel(kLabels[work]);
}
BENCHMARK(BM_MaskFrame)->DenseRange(kCameraOnly, kWorkCount - 1)->ArgName("work")->Unit(benchmark::kMillisecond);

// 396 random points and the 4 frame corners: the 400 the triangulator holds.
void BM_Delaunay400(benchmark::State& state) {
    ZuRandom random(11);
    std::vector<float> points;
    for (int i = 0; i < 396; ++i) points.insert(points.end(), {random.rangeFloatGrain(0, 700), random.rangeFloatGrain(0, 1004)});
    for (auto _ : state) {
        DelaunayTriangle delaunay(700, 1004);
        delaunay.setAllPoints(points.data(), 396);
        delaunay.generateTriangles();
        benchmark::DoNotOptimize(delaunay.getTriangle().size());
    }
}
BENCHMARK(BM_Delaunay400)->Unit(benchmark::kMillisecond)->Repetitions(7)->ReportAggregatesOnly(true);

} // namespace
