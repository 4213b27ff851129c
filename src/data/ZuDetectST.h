#pragma once

#include "data/ZuDetectBase.h"

// Back end ST: 106 integer landmarks per face.
class ZuDetectST : public ZuDetectBase {
public:
    explicit ZuDetectST(ZuAppMain* app);

    bool pushData(const char* sceneName, const void* record, int length) override;
    int transformIndex(int standardIndex) override;
    int getIndexRegion(int standardIndex) override;

    // Bytes behind the record's count for that many faces.
    static int bodyBytes(int count);
};
