#include "data/ZuDataGenCamera.h"

#include "data/ZuDataSwap.h"
#include "data/ZuDataSwapCache.h"

ZuDataGenCamera::ZuDataGenCamera() : dataSwap(new ZuDataSwap()), swapCache(new ZuDataSwapCache()) {}

ZuDataGenCamera::~ZuDataGenCamera() {
    swapCache->destroy();
    qzSafeRelease(swapCache);
    qzSafeRelease(dataSwap);
}

void ZuDataGenCamera::writeData(int width, int height, int format, const void* data, int size) {
    if (data && size > 0) {
        dataSwap->aplly(size);
        int copied = size;
        dataSwap->writeData(data, &copied);
        imageWidth = width;
        imageHeight = height;
        imageFormate = format;
        imageSize = size;
    }
    setChanged(true);
}

void ZuDataGenCamera::shaderSwapData(int width, int height, int format, ZuDataSwap* swap, int size) {
    imageWidth = width;
    imageHeight = height;
    imageFormate = format;
    imageSize = size;
    shareSwap = swap;
    setChanged(true);
}

unsigned char* ZuDataGenCamera::getImageData() const {
    return shareSwap ? shareSwap->getData() : dataSwap->getData();
}

void ZuDataGenCamera::_notice(float delta) {
    dataSwap->lockData();
    ZuDataGenerate::_notice(delta);
    dataSwap->unlockData();
}
