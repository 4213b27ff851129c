#include "logicsys/Animate2D/ZuSkeletonPool.h"

#include "logicsys/Animate2D/SkeDataPack.h"
#include "platform/ZuLog.h"
#include "spine/spAtlas.h"
#include "spine/spSkeletonData.h"
#include "spine/spSkeletonJson.h"

SkeDataPack* ZuSkeletonPool::getSkeleton(ZuAppMain* app, const char* scene, const char* jsonPath,
                                         const char* atlasPath, float scale) {
    if (!jsonPath || !atlasPath) return nullptr;
    qz::string key = scene && scene[0] ? qz::string(scene) + "_" + jsonPath : qz::string(jsonPath);
    if (auto* hit = packs.find(key)) {
        hit->getValue()->retain();
        return hit->getValue();
    }
    spAtlas* atlas = spAtlas_createFromFile(atlasPath, app);
    if (!atlas) {
        QZLOGW("Spine: atlas %s does not load; no sticker", atlasPath);
        return nullptr;
    }
    spSkeletonJson* reader = spSkeletonJson_create(atlas);
    reader->scale = scale;
    reader->application = app;
    spSkeletonData* data = spSkeletonJson_readSkeletonDataFile(reader, jsonPath);
    if (!data)
        QZLOGW("Spine: skeleton %s does not load (%s); no sticker", jsonPath,
               reader->error ? reader->error : "unreadable");
    spSkeletonJson_dispose(reader);
    if (!data) {
        spAtlas_dispose(atlas);
        return nullptr;
    }
    SkeDataPack* pack = new SkeDataPack(data, atlas);
    packs.insert(key, pack); // the pool's reference
    pack->retain();          // the caller's
    return pack;
}

void ZuSkeletonPool::removeUnuseSke() {
    bool removed = true;
    while (removed) {
        removed = false;
        for (auto it = packs.getIterator(); !it.atEnd(); ++it) {
            SkeDataPack* pack = it->getValue();
            if (pack->count() < 2) {
                qz::string key = it->getKey();
                packs.remove(key);
                pack->release();
                removed = true;
                break;
            }
        }
    }
}

void ZuSkeletonPool::clearSkeleton() {
    for (auto it = packs.getIterator(); !it.atEnd(); ++it) it->getValue()->release();
    packs.clear();
}
