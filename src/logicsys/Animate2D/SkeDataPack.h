#pragma once

#include "basesys/ZuRefObject.h"

struct spAtlas;
struct spSkeletonData;

// One parsed skeleton and the atlas its attachments point into. Attachments
// keep pointers to the atlas's regions, so the two live and die together:
// a skeleton shared between stickers must never outlive its atlas.
class SkeDataPack : public ZuRefObject {
public:
    // Takes over both; either may be null.
    SkeDataPack(spSkeletonData* data, spAtlas* atlas) : data(data), atlas(atlas) {}
    ~SkeDataPack() override;

    spSkeletonData* getData() const { return data; }
    spAtlas* getAtlas() const { return atlas; }

private:
    spSkeletonData* data;
    spAtlas* atlas;
};
