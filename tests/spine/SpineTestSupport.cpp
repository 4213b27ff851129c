#include "SpineTestSupport.h"

#include <atomic>
#include <cstdlib>
#include <cstring>

namespace spinetest {

namespace {
std::atomic<long> g_mallocs{0};
std::atomic<long> g_frees{0};

void* countingMalloc(size_t size) {
    g_mallocs++;
    return malloc(size);
}

void countingFree(void* ptr) {
    g_frees++;
    free(ptr);
}
} // namespace

std::string dataPath(const std::string& name) {
    return std::string(QZ_SOURCE_DIR) + "/tests/spine/data/" + name;
}

AllocationCounter::AllocationCounter() {
    reset();
    _setMalloc(countingMalloc);
    _setFree(countingFree);
}

AllocationCounter::~AllocationCounter() {
    _setMalloc(nullptr);
    _setFree(nullptr);
}

long AllocationCounter::mallocs() const { return g_mallocs.load(); }
long AllocationCounter::frees() const { return g_frees.load(); }

void AllocationCounter::reset() {
    g_mallocs = 0;
    g_frees = 0;
}

const char* Rig::kAtlas =
    "test.png\n"
    "size: 128,128\n"
    "format: RGBA8888\n"
    "filter: Linear,Linear\n"
    "repeat: none\n"
    "r\n"
    "  rotate: false\n"
    "  xy: 0, 0\n"
    "  size: 40, 20\n"
    "  orig: 40, 20\n"
    "  offset: 0, 0\n"
    "  index: -1\n"
    "rot\n"
    "  rotate: true\n"
    "  xy: 64, 0\n"
    "  size: 40, 20\n"
    "  orig: 40, 20\n"
    "  offset: 0, 0\n"
    "  index: -1\n";

bool Rig::load(const std::string& skeletonJson, const std::string& atlasText, float scale) {
    atlas = spAtlas_create(atlasText.c_str(), (int)atlasText.size(), "", nullptr);
    if (!atlas) return false;
    json = spSkeletonJson_create(atlas);
    json->scale = scale;
    data = spSkeletonJson_readSkeletonData(json, skeletonJson.c_str());
    if (!data) return false;
    skeleton = spSkeleton_create(data);
    spSkeleton_updateWorldTransform(skeleton);
    return true;
}

std::string Rig::error() const {
    return json && json->error ? json->error : "";
}

Rig::~Rig() {
    spSkeleton_dispose(skeleton);
    spSkeletonData_dispose(data);
    spSkeletonJson_dispose(json);
    spAtlas_dispose(atlas);
}

spBone* Rig::bone(const char* name) const {
    spBone* bone = spSkeleton_findBone(skeleton, name);
    EXPECT_NE(bone, nullptr) << name;
    return bone;
}

spSlot* Rig::slot(const char* name) const {
    spSlot* slot = spSkeleton_findSlot(skeleton, name);
    EXPECT_NE(slot, nullptr) << name;
    return slot;
}

spAnimation* Rig::animation(const char* name) const {
    spAnimation* animation = spSkeletonData_findAnimation(data, name);
    EXPECT_NE(animation, nullptr) << name;
    return animation;
}

void Rig::pose(const char* animationName, float time, bool loop) {
    spSkeleton_setToSetupPose(skeleton);
    spAnimation_apply(animation(animationName), skeleton, -1, time, loop, nullptr, nullptr);
    spSkeleton_updateWorldTransform(skeleton);
}

float bezierPercent(float cx1, float cy1, float cx2, float cy2, float percent) {
    double xs[11], ys[11];
    for (int k = 0; k <= 10; k++) {
        double t = k / 10.0, u = 1 - t;
        xs[k] = 3 * u * u * t * cx1 + 3 * u * t * t * cx2 + t * t * t;
        ys[k] = 3 * u * u * t * cy1 + 3 * u * t * t * cy2 + t * t * t;
    }
    for (int k = 1; k <= 10; k++) {
        if (xs[k] >= percent) {
            double f = (percent - xs[k - 1]) / (xs[k] - xs[k - 1]);
            return (float)(ys[k - 1] + (ys[k] - ys[k - 1]) * f);
        }
    }
    return 1;
}

void expectMatrix(const spBone* bone, float a, float b, float c, float d, float worldX, float worldY,
                  float tolerance) {
    ASSERT_NE(bone, nullptr);
    EXPECT_NEAR(bone->a, a, tolerance) << bone->data->name;
    EXPECT_NEAR(bone->b, b, tolerance) << bone->data->name;
    EXPECT_NEAR(bone->c, c, tolerance) << bone->data->name;
    EXPECT_NEAR(bone->d, d, tolerance) << bone->data->name;
    EXPECT_NEAR(bone->worldX, worldX, tolerance * 100) << bone->data->name;
    EXPECT_NEAR(bone->worldY, worldY, tolerance * 100) << bone->data->name;
}

} // namespace spinetest
