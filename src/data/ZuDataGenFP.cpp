#include "data/ZuDataGenFP.h"

ZuDataGenFP::ZuDataGenFP(ZuAppMain* app) : ZuDataGenFace(app, 4) {}

ZuDataGenFP::~ZuDataGenFP() {
    for (auto it = scenes.getIterator(); !it.atEnd(); ++it) delete[] it->getValue();
    scenes.clear();
}

PERSON_FP_DATA* ZuDataGenFP::slotsFor(const char* sceneName) {
    const qz::string key(sceneName ? sceneName : "");
    if (auto* node = scenes.find(key)) return node->getValue();
    PERSON_FP_DATA* slots = new PERSON_FP_DATA[kMaxDetectFaces]();
    scenes.insert(key, slots);
    return slots;
}

PERSON_FP_DATA* ZuDataGenFP::getData(const char* sceneName, int id) {
    if (id < 1 || id > kMaxDetectFaces) return nullptr;
    // No genLock here: listeners call this while _notice holds it, and the lock is not recursive.
    auto* node = scenes.find(qz::string(sceneName ? sceneName : ""));
    return node ? &node->getValue()[id - 1] : nullptr;
}

void ZuDataGenFP::parseData(const char* sceneName, const void* data, int count) {
    setChanged(true);
    {
        ZuLockGuard guard(genLock);
        PERSON_FP_DATA* slots = slotsFor(sceneName);
        for (int i = 0; i < kMaxDetectFaces; ++i) slots[i].valid = 0;
        if (!data) return;
        if (count > kMaxDetectFaces) count = kMaxDetectFaces;

        // This tracker's points are in window pixels, not camera pixels.
        const ZuDetectWire::Frame frame = cameraFrame(sceneName, true);
        const uint8_t* bytes = static_cast<const uint8_t*>(data);
        for (int i = 0; i < count; ++i) {
            PERSON_FP_DATA& record = slots[i];
            const uint8_t* block = bytes + i * kBlockBytes;
            ZuDetectWire::storeHead(ZuDetectWire::readHead(block, frame), record);
            record.roll += frame.rotation;
            record.pitch = -record.pitch;
            ZuDetectWire::readPoints(block + ZuDetectWire::kHeadBytes, PERSON_FP_DATA::kPointCount, true, frame,
                                     record.facePoints);
        }
    }
    // Told at once as well; changed stays set, so the next tick tells them again.
    ZuLockGuard listeners(m_lock);
    _notice(0.0f);
}
