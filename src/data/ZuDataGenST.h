#pragma once

#include "data/DETECTTYPE.h"
#include "data/PERSON_FP_DATA.h"
#include "data/ZuDataGenFace.h"

// The latest faces of the ST back end, one slot per person.
class ZuDataGenST : public ZuDataGenFace {
public:
    static constexpr int kBlockBytes = ZuDetectWire::kHeadBytes + PERSON_FP_DATA::kPointCount * ZuDetectWire::kPointBytes;

    explicit ZuDataGenST(ZuAppMain* app);

    void parseData(const char* sceneName, const void* data, int count) override;
    // Person id 1 to 4; anything else gives null.
    PERSON_FP_DATA* getData(int id);

private:
    PERSON_FP_DATA records[kMaxDetectFaces];
};
