#pragma once

#include "data/DETECTTYPE.h"
#include "data/PERSON_SELF_DATA.h"
#include "data/ZuDataGenFace.h"

// The latest faces of the host-defined Self back end, one slot per person.
class ZuDataGenSelf : public ZuDataGenFace {
public:
    static constexpr int kBlockBytes = 2312;

    explicit ZuDataGenSelf(ZuAppMain* app);

    void parseData(const char* sceneName, const void* data, int count) override;
    // Person id 1 to 4; anything else gives null.
    PERSON_SELF_DATA* getData(int id);

private:
    PERSON_SELF_DATA records[kMaxDetectFaces];
};
