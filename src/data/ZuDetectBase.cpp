#include "data/ZuDetectBase.h"

#include "basesys/ZuGBase.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuGlobalMgr.h"
#include "data/DETECTTYPE.h"
#include "data/ZuDataGenFace.h"
#include "data/ZuDataMgr.h"
#include "data/ZuDataSwap.h"
#include "data/ZuDetectWire.h"
#include "platform/ZuLog.h"

#include <cstring>

ZuDetectBase::ZuDetectBase(ZuAppMain* app, int pointCount) : ZuGBase(app), pointCount(pointCount) {
    swap = new ZuDataSwap();
}

ZuDetectBase::~ZuDetectBase() { qzSafeRelease(swap); }

void ZuDetectBase::setStandardIndex(const int* landmarks, int count) {
    standardIndex.clear();
    for (int i = 0; i < count; ++i) standardIndex.insert(i, landmarks[i]);
}

int ZuDetectBase::lookupStandard(int index) const {
    auto* node = standardIndex.find(index);
    return node ? node->getValue() : 0;
}

int ZuDetectBase::regionOf(int n, const Range* side0, int count0, const Range* side1, int count1) {
    for (int i = 0; i < count0; ++i)
        if (n >= side0[i].first && n <= side0[i].last) return 0;
    for (int i = 0; i < count1; ++i)
        if (n >= side1[i].first && n <= side1[i].last) return 1;
    return 2;
}

bool ZuDetectBase::copyAndParse(int detectType, const char* sceneName, const void* record, int length,
                                int (*bodyBytes)(int count)) {
    ZuDataMgr* dataMgr = ZuGBase::dataMgrOf(app);
    ZuDataGenFace* gen = dataMgr ? dataMgr->retainFaceGen(detectType) : nullptr;

    if (!record) {
        if (gen) gen->parseData(sceneName, nullptr, 0);
        qzSafeRelease(gen);
        return true;
    }

    // The record carries no length of its own: the host's length is all
    // that keeps a short or garbled record from being read past its end.
    bool accepted = false;
    const uint8_t* bytes = static_cast<const uint8_t*>(record);
    if (length < 4) {
        QZLOGW("detect record of type %d refused: %d bytes, not even a face count", detectType, length);
    } else {
        const int32_t count = ZuDetectWire::readI32(bytes);
        if (count < 0 || count > kMaxDetectFaces) {
            QZLOGW("detect record of type %d refused: %d faces (0 to %d allowed)", detectType, count,
                   kMaxDetectFaces);
        } else if (length != 4 + bodyBytes(count)) {
            QZLOGW("detect record of type %d refused: %d bytes where %d faces take %d", detectType, length, count,
                   4 + bodyBytes(count));
        } else {
            const int body = bodyBytes(count);
            swap->aplly(body);
            swap->lockData();
            if (swap->getSize() >= body) {
                if (body > 0) std::memcpy(swap->getData(), bytes + 4, static_cast<size_t>(body));
                if (gen) gen->parseData(sceneName, swap->getData(), count);
                accepted = true;
            }
            swap->unlockData();
        }
    }
    qzSafeRelease(gen);
    return accepted;
}
