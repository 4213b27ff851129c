#pragma once

#include "basesys/qzMap.h"
#include "basesys/qzString.h"
#include "data/DETECTTYPE.h"
#include "data/PERSON_FP_DATA.h"
#include "data/ZuDataGenFace.h"

// The latest faces of the FP back end, kept apart per scene: each scene gets
// its own 4 slots on its first push. Listeners are also told at once on the
// pushing thread.
class ZuDataGenFP : public ZuDataGenFace {
public:
    static constexpr int kBlockBytes = ZuDetectWire::kHeadBytes + PERSON_FP_DATA::kPointCount * ZuDetectWire::kPointBytes;

    explicit ZuDataGenFP(ZuAppMain* app);
    ~ZuDataGenFP() override;

    void parseData(const char* sceneName, const void* data, int count) override;
    // Person id 1 to 4 of a scene; null for other ids or a scene never pushed.
    PERSON_FP_DATA* getData(const char* sceneName, int id);

private:
    // Under genLock: the scene's slots, made (zeroed) when missing.
    PERSON_FP_DATA* slotsFor(const char* sceneName);

    qz::map<qz::string, PERSON_FP_DATA*> scenes;
};
