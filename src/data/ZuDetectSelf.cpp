#include "data/ZuDetectSelf.h"

#include "data/DETECTTYPE.h"
#include "data/ZuDataGenSelf.h"

namespace {
// Landmark of this back end for each standard index 0 to 40.
const int kStandardIndex[41] = {8, 0, 1, 3, 4, 6, 16, 15, 13, 12, 10, 41, 36, 68, 39, 37, 17, 20, 21, 20, 48, 57, 66, 54, 62, 51, 33, 31, 35, 30, 46, 42, 69, 45, 44, 22, 23, 26, 23, 27, 29};

const ZuDetectBase::Range kSide0[] = {{0, 7}, {17, 21}, {31, 32}, {36, 41}, {48, 50}, {58, 61}, {67, 67}};
const ZuDetectBase::Range kSide1[] = {{9, 16}, {22, 26}, {34, 35}, {42, 47}, {52, 56}, {63, 65}};
} // namespace

ZuDetectSelf::ZuDetectSelf(ZuAppMain* app) : ZuDetectBase(app, 70) {
    setStandardIndex(kStandardIndex, 41);
}

int ZuDetectSelf::bodyBytes(int count) { return count * ZuDataGenSelf::kBlockBytes; }

bool ZuDetectSelf::pushData(const char* sceneName, const void* record, int length) {
    return copyAndParse(DETECTTYPE_SELF, sceneName, record, length, &ZuDetectSelf::bodyBytes);
}

int ZuDetectSelf::transformIndex(int standardIndex) { return lookupStandard(standardIndex); }

int ZuDetectSelf::getIndexRegion(int standardIndex) {
    return regionOf(transformIndex(standardIndex), kSide0, sizeof kSide0 / sizeof kSide0[0], kSide1,
                    sizeof kSide1 / sizeof kSide1[0]);
}
