#pragma once

#include "basesys/ZuAppMain.h"

// The engine as the integration layer drives it: direct adjusters that act
// at once on the caller's thread instead of queueing an operation.
class ZuAppMainWrap : public ZuAppMain {
public:
    // The skin-smoothing quality of beauty nodes made from now on.
    void setFaceBeautyType(int type);
    // Smooth and white of the smoothing node called nodeName, only when it is
    // exactly a ZuFaceBuffingWhiteNode; the two other floats are not used.
    void setFaceBeautifyAdjust(float smooth, float white, float, float, const char* nodeName);
};
