#include "data/ZuDataGenST.h"

ZuDataGenST::ZuDataGenST(ZuAppMain* app) : ZuDataGenFace(app, 3) {}

PERSON_FP_DATA* ZuDataGenST::getData(int id) {
    return id >= 1 && id <= kMaxDetectFaces ? &records[id - 1] : nullptr;
}

void ZuDataGenST::parseData(const char* sceneName, const void* data, int count) {
    setChanged(true);
    ZuLockGuard guard(genLock);
    for (PERSON_FP_DATA& record : records) record.valid = 0;
    if (!data || count <= 0) return;
    if (count > kMaxDetectFaces) count = kMaxDetectFaces;

    const ZuDetectWire::Frame frame = cameraFrame(sceneName, false);
    const uint8_t* bytes = static_cast<const uint8_t*>(data);
    for (int i = 0; i < count; ++i) {
        PERSON_FP_DATA& record = records[i];
        const uint8_t* block = bytes + i * kBlockBytes;
        ZuDetectWire::storeHead(ZuDetectWire::readHead(block, frame), record);
        // This tracker measures roll against the sensor and turns yaw and pitch the other way.
        record.roll += frame.rotation;
        record.yaw = -record.yaw;
        record.pitch = -record.pitch;
        ZuDetectWire::readPoints(block + ZuDetectWire::kHeadBytes, PERSON_FP_DATA::kPointCount, false, frame,
                                 record.facePoints);
    }
}
