#pragma once

#include "data/DETECTTYPE.h"
#include "data/PERSON_AS_DATA.h"
#include "data/ZuDataGenFace.h"

// The latest faces of the AS back end, one slot per person.
class ZuDataGenAS : public ZuDataGenFace {
public:
    // The common face block, and what each face adds in the record's second part.
    static constexpr int kBlockBytes = ZuDetectWire::kHeadBytes + PERSON_AS_DATA::kPointCount * ZuDetectWire::kPointBytes;
    static constexpr int kExtraBytes = 1428;

    explicit ZuDataGenAS(ZuAppMain* app);

    void parseData(const char* sceneName, const void* data, int count) override;
    // Person id 1 to 4; anything else gives null.
    PERSON_AS_DATA* getData(int id);

private:
    PERSON_AS_DATA records[kMaxDetectFaces];
};
