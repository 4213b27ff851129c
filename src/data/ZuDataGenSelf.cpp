#include "data/ZuDataGenSelf.h"

#include <cstring>

ZuDataGenSelf::ZuDataGenSelf(ZuAppMain* app) : ZuDataGenFace(app, 5) {}

PERSON_SELF_DATA* ZuDataGenSelf::getData(int id) {
    return id >= 1 && id <= kMaxDetectFaces ? &records[id - 1] : nullptr;
}

void ZuDataGenSelf::parseData(const char* sceneName, const void* data, int count) {
    setChanged(true);
    ZuLockGuard guard(genLock);
    for (PERSON_SELF_DATA& record : records) record.valid = 0;
    if (!data || count <= 0) return;
    if (count > kMaxDetectFaces) count = kMaxDetectFaces;

    const ZuDetectWire::Frame frame = cameraFrame(sceneName, false);
    const uint8_t* bytes = static_cast<const uint8_t*>(data);
    float points[PERSON_SELF_DATA::kPointCount * 2];
    for (int i = 0; i < count; ++i) {
        PERSON_SELF_DATA& record = records[i];
        const uint8_t* block = bytes + i * kBlockBytes;
        ZuDetectWire::storeHead(ZuDetectWire::readHead(block, frame), record);
        ZuDetectWire::readPoints(block + ZuDetectWire::kHeadBytes, PERSON_SELF_DATA::kPointCount, true, frame, points);
        for (int k = 0; k < PERSON_SELF_DATA::kPointCount; ++k) {
            record.facePoints[k].x = points[k * 2];
            record.facePoints[k].y = points[k * 2 + 1];
        }

        SELF_FACE_OTHER& other = record.other;
        ZuDetectWire::read3d(block + 588, 68, other.firstPoints); // 70 sent, 68 kept
        ZuDetectWire::read3d(block + 1428, 28, other.secondPoints);
        ZuDetectWire::read3d(block + 1764, 28, other.thirdPoints);
        ZuDetectWire::read3d(block + 2100, 6, other.fourthPoints);
        ZuDetectWire::read3d(block + 2172, 6, other.fifthPoints);
        ZuDetectWire::read2d(block + 2244, 4, other.secondPairs);
        ZuDetectWire::read2d(block + 2276, 4, other.firstPairs);
        std::memcpy(other.trailingWord, block + 2308, sizeof other.trailingWord);
    }
}
