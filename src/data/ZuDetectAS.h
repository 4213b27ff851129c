#pragma once

#include "data/ZuDetectBase.h"

// Back end AS: 101 integer landmarks per face, and a second part behind the faces
// with a repeated count and each face's pose matrices and 3D landmarks.
class ZuDetectAS : public ZuDetectBase {
public:
    explicit ZuDetectAS(ZuAppMain* app);

    bool pushData(const char* sceneName, const void* record, int length) override;
    int transformIndex(int standardIndex) override;
    int getIndexRegion(int standardIndex) override;

    // Bytes behind the record's count for that many faces.
    static int bodyBytes(int count);
};
