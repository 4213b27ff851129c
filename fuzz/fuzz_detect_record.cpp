// Feeds arbitrary bytes as face records of each tracker back end. The first
// byte picks the back end and the camera rotation; with its top bit set the
// face count is fitted to the bytes, so that garbage also reaches the parsers
// rather than only the length checks. Nothing may be read past the record.
#include "basesys/Camera.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuGlobalMgr.h"
#include "data/ZuDataMgr.h"
#include "data/ZuDetectAS.h"
#include "data/ZuDetectFP.h"
#include "data/ZuDetectMgr.h"
#include "data/ZuDetectST.h"
#include "data/ZuDetectSelf.h"
#include "event/ZuEventMgr.h"
#include "platform/ZuLog.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <vector>

namespace {

ZuAppMain* engine() {
    static ZuAppMain* app = [] {
        ZuLog::setLevel(ZU_LOG_SILENT);
        ZuAppMain* made = new ZuAppMain();
        made->init();
        made->initZuBase();
        return made;
    }();
    return app;
}

int bodyBytes(int type, int count) {
    switch (type) {
    case DETECTTYPE_AS: return ZuDetectAS::bodyBytes(count);
    case DETECTTYPE_ST: return ZuDetectST::bodyBytes(count);
    case DETECTTYPE_FP: return ZuDetectFP::bodyBytes(count);
    default: return ZuDetectSelf::bodyBytes(count);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size < 1) return 0;
    ZuGlobalMgr* managers = engine()->getGlobalMgr();
    const int type = 1 + (data[0] & 3);
    const int angles[] = {0, 90, 180, 270, 45, 360, -90, 1};
    managers->getConfig()->getCamera("fuzz")->angle = angles[(data[0] >> 2) & 7];
    managers->getDetectMgr()->init(static_cast<DETECTTYPE>(type));
    managers->getDataMgr()->setDetectDataType(type);

    // An exact copy, so that the sanitizer sees any read past its end.
    std::vector<uint8_t> record(data + 1, data + size);
    if ((data[0] & 0x80) && record.size() >= 4) {
        int count = 0;
        while (count < 4 && 4 + static_cast<size_t>(bodyBytes(type, count + 1)) <= record.size()) ++count;
        const int32_t wire = count;
        std::memcpy(record.data(), &wire, 4);
        record.resize(4 + static_cast<size_t>(bodyBytes(type, count)));
    }
    managers->getDetectMgr()->pushData("fuzz", record.empty() ? nullptr : record.data(),
                                       static_cast<int>(record.size()));
    managers->getDataMgr()->update(0.0f);
    // Each accepted record announces itself with an event; a real engine
    // delivers them every tick, and so must this loop or they pile up.
    managers->getEventMgr()->update(0.0f);
    return 0;
}
