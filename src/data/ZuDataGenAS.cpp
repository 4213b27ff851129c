#include "data/ZuDataGenAS.h"

#include <cstring>

ZuDataGenAS::ZuDataGenAS(ZuAppMain* app) : ZuDataGenFace(app, 2) {}

PERSON_AS_DATA* ZuDataGenAS::getData(int id) {
    return id >= 1 && id <= kMaxDetectFaces ? &records[id - 1] : nullptr;
}

void ZuDataGenAS::parseData(const char* sceneName, const void* data, int count) {
    setChanged(true);
    ZuLockGuard guard(genLock);
    for (PERSON_AS_DATA& record : records) record.valid = 0;
    if (!data || count <= 0) return;
    if (count > kMaxDetectFaces) count = kMaxDetectFaces;

    const ZuDetectWire::Frame frame = cameraFrame(sceneName, false);
    const uint8_t* bytes = static_cast<const uint8_t*>(data);
    // Behind the face blocks: a repeat of the count (the head's wins), then the extras.
    const uint8_t* extras = bytes + count * kBlockBytes + 4;
    for (int i = 0; i < count; ++i) {
        PERSON_AS_DATA& record = records[i];
        const uint8_t* block = bytes + i * kBlockBytes;
        ZuDetectWire::storeHead(ZuDetectWire::readHead(block, frame), record);
        ZuDetectWire::readPoints(block + ZuDetectWire::kHeadBytes, PERSON_AS_DATA::kPointCount, false, frame,
                                 record.facePoints);

        const uint8_t* extra = extras + i * kExtraBytes;
        std::memcpy(record.eyeData, extra, sizeof record.eyeData);
        for (int k = 0; k < 16; ++k) {
            record.matM[k] = ZuDetectWire::readF32(extra + 24 + k * 4);
            record.matV[k] = ZuDetectWire::readF32(extra + 88 + k * 4);
            record.matP[k] = ZuDetectWire::readF32(extra + 152 + k * 4);
        }
        ZuDetectWire::read3d(extra + 216, PERSON_AS_DATA::kPointCount, record.face3d);
    }
}
