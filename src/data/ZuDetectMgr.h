#pragma once

#include "basesys/ZuGBase.h"
#include "basesys/ZuLock.h"
#include "data/DETECTTYPE.h"

class ZuDetectBase;

// Holds the detector of the current tracker back end and takes the host's
// records for it. A host thread pushes while the render thread may change
// the back end, so the detector is swapped and used under one lock.
class ZuDetectMgr : public ZuGBase {
public:
    explicit ZuDetectMgr(ZuAppMain* app);
    ~ZuDetectMgr() override;

    // Writes the type into the configuration; a new type replaces the
    // detector (none for DETECTTYPE_NONE). An unknown type is refused.
    void init(DETECTTYPE type);
    void destroy();

    // Not to be kept across a change of back end.
    ZuDetectBase* getDetect() const { return detect; }
    DETECTTYPE getDetectType() const { return type; }

    // Hands the record to the detector and announces its arrival (event 48).
    // Ignored without a detector; a refused record raises no event.
    void pushData(const char* sceneName, const void* record, int length);

private:
    DETECTTYPE type = DETECTTYPE_NONE;
    ZuDetectBase* detect = nullptr;
    ZuLock lock;
};
