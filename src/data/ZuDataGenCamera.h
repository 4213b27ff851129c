#pragma once

#include "data/ZuCameraImageFormat.h"
#include "data/ZuDataGenerate.h"

class ZuDataSwap;
class ZuDataSwapCache;

// One scene's camera source. A host thread copies each frame in once; at the
// next tick the listeners (the background node) read it under the swap's
// lock, so a push waits while planes are being copied out. Frames are not
// queued: a newer push overwrites one that was never noticed.
class ZuDataGenCamera : public ZuDataGenerate {
public:
    ZuDataGenCamera();
    ~ZuDataGenCamera() override;

    // Copies the frame (a null data keeps the old frame) and marks new data.
    void writeData(int width, int height, int format, const void* data, int size);
    // Reads frames from the host's own swap from now on; nothing is copied.
    void shaderSwapData(int width, int height, int format, ZuDataSwap* swap, int size);

    int getImageFormate() const { return imageFormate; }
    int getImageWidth() const { return imageWidth; }
    int getImageHeight() const { return imageHeight; }
    int getImageSize() const { return imageSize; }
    // The host's shared block once one was given, else the engine's copy.
    unsigned char* getImageData() const;
    ZuDataSwap* getDataSwap() const { return dataSwap; }
    ZuDataSwapCache* getSwapCache() const { return swapCache; }

protected:
    void _notice(float delta) override;

private:
    int imageFormate = CIF_NONE;
    int imageWidth = 2000;
    int imageHeight = 2000;
    int imageSize = 0;
    ZuDataSwap* dataSwap = nullptr;
    ZuDataSwap* shareSwap = nullptr;
    ZuDataSwapCache* swapCache = nullptr;
};
