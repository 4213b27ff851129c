#include "logicsys/Animate2D/SkeDataPack.h"

#include "spine/spAtlas.h"
#include "spine/spSkeletonData.h"

SkeDataPack::~SkeDataPack() {
    if (data) spSkeletonData_dispose(data);
    if (atlas) spAtlas_dispose(atlas);
    data = nullptr;
    atlas = nullptr;
}
