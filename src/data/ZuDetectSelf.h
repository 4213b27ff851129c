#pragma once

#include "data/ZuDetectBase.h"

// Back end Self, the host's own format: 70 float landmarks and further point
// sets per face.
class ZuDetectSelf : public ZuDetectBase {
public:
    explicit ZuDetectSelf(ZuAppMain* app);

    bool pushData(const char* sceneName, const void* record, int length) override;
    int transformIndex(int standardIndex) override;
    int getIndexRegion(int standardIndex) override;

    // Bytes behind the record's count for that many faces.
    static int bodyBytes(int count);
};
