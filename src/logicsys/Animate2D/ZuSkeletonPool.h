#pragma once

#include "basesys/qzMap.h"
#include "basesys/qzString.h"

class SkeDataPack;
class ZuAppMain;

// Parsed skeletons shared by the stickers of one engine, keyed by scene name
// and skeleton path ("scene_path", or the path alone without a scene). A
// pack stays while anyone holds it; effect removal drops the ones only the
// pool still holds. Render thread only.
class ZuSkeletonPool {
public:
    ZuSkeletonPool() = default;
    ~ZuSkeletonPool() { clearSkeleton(); }
    ZuSkeletonPool(const ZuSkeletonPool&) = delete;
    ZuSkeletonPool& operator=(const ZuSkeletonPool&) = delete;

    // The cached pack (retained for the caller), or one read from jsonPath
    // with its atlas from atlasPath; null, with a log line, when either
    // does not load.
    SkeDataPack* getSkeleton(ZuAppMain* app, const char* scene, const char* jsonPath, const char* atlasPath,
                             float scale);
    void removeUnuseSke();
    void clearSkeleton();
    uint32_t size() const { return packs.size(); }

private:
    qz::map<qz::string, SkeDataPack*> packs;
};
