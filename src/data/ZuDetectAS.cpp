#include "data/ZuDetectAS.h"

#include "data/DETECTTYPE.h"
#include "data/ZuDataGenAS.h"

namespace {
// Landmark of this back end for each standard index 0 to 40.
const int kStandardIndex[41] = {9, 0, 1, 3, 5, 7, 18, 17, 15, 13, 11, 48, 39, 95, 45, 42, 19, 26, 24, 22, 75, 84, 93, 81, 89, 78, 100, 66, 71, 99, 60, 51, 96, 57, 54, 29, 37, 34, 31, 97, 98};

const ZuDetectBase::Range kSide0[] = {{0, 8}, {19, 28}, {39, 50}, {63, 68}, {75, 77}, {85, 88}, {94, 94}};
const ZuDetectBase::Range kSide1[] = {{10, 18}, {29, 38}, {51, 62}, {69, 74}, {79, 83}, {90, 92}};
} // namespace

ZuDetectAS::ZuDetectAS(ZuAppMain* app) : ZuDetectBase(app, 101) {
    setStandardIndex(kStandardIndex, 41);
}

int ZuDetectAS::bodyBytes(int count) { return count * ZuDataGenAS::kBlockBytes + 4 + count * ZuDataGenAS::kExtraBytes; }

bool ZuDetectAS::pushData(const char* sceneName, const void* record, int length) {
    return copyAndParse(DETECTTYPE_AS, sceneName, record, length, &ZuDetectAS::bodyBytes);
}

int ZuDetectAS::transformIndex(int standardIndex) { return lookupStandard(standardIndex); }

int ZuDetectAS::getIndexRegion(int standardIndex) {
    return regionOf(transformIndex(standardIndex), kSide0, sizeof kSide0 / sizeof kSide0[0], kSide1,
                    sizeof kSide1 / sizeof kSide1[0]);
}
