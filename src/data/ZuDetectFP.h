#pragma once

#include "data/ZuDetectBase.h"

// Back end FP: 106 float landmarks per face; same landmark layout as ST.
class ZuDetectFP : public ZuDetectBase {
public:
    explicit ZuDetectFP(ZuAppMain* app);

    bool pushData(const char* sceneName, const void* record, int length) override;
    int transformIndex(int standardIndex) override;
    int getIndexRegion(int standardIndex) override;

    // Bytes behind the record's count for that many faces.
    static int bodyBytes(int count);
};
