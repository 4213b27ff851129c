#include "data/ZuDetectRecordLength.h"

#include "data/ZuDetectAS.h"
#include "data/ZuDetectFP.h"
#include "data/ZuDetectST.h"
#include "data/ZuDetectSelf.h"
#include "data/ZuDetectWire.h"

int ZuDetectRecordLength::of(DETECTTYPE type, const void* record) {
    if (!record) return 0;
    const int32_t count = ZuDetectWire::readI32(static_cast<const uint8_t*>(record));
    if (count < 0 || count > kMaxDetectFaces) return -1;
    switch (type) {
    case DETECTTYPE_AS: return 4 + ZuDetectAS::bodyBytes(count);
    case DETECTTYPE_ST: return 4 + ZuDetectST::bodyBytes(count);
    case DETECTTYPE_FP: return 4 + ZuDetectFP::bodyBytes(count);
    case DETECTTYPE_SELF: return 4 + ZuDetectSelf::bodyBytes(count);
    default: return -1;
    }
}
