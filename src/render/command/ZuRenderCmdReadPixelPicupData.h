#pragma once

#include "render/command/ZuRenderCmdNor.h"

class ZuDataSwap;

// Samples twelve single pixels at points given as float pairs in one swap,
// writing their RGBA into the other; then draws.
class ZuRenderCmdReadPixelPicupData : public ZuRenderCmdNor {
public:
    static const int kPoints = 12;
    ZuRenderCmdReadPixelPicupData(ZuDataSwap* pixelSwap, ZuDataSwap* pointSwap);
    ~ZuRenderCmdReadPixelPicupData() override;
    void render() override;

private:
    ZuDataSwap* pixelSwap;
    ZuDataSwap* pointSwap;
};
