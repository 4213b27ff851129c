#include "data/ZuDetectST.h"

#include "data/DETECTTYPE.h"
#include "data/ZuDataGenST.h"

namespace {
// Landmark of this back end for each standard index 0 to 40.
const int kStandardIndex[41] = {16, 1, 3, 7, 10, 13, 31, 29, 27, 23, 19, 73, 52, 104, 55, 72, 33, 65, 67, 35, 84, 93, 102, 90, 98, 87, 49, 82, 83, 46, 76, 58, 105, 61, 75, 38, 70, 42, 40, 43, 45};

const ZuDetectBase::Range kSide0[] = {{0, 15}, {33, 37}, {47, 48}, {52, 57}, {64, 67}, {72, 74}, {78, 78}, {80, 80}, {82, 82}, {84, 86}, {94, 97}, {103, 104}};
const ZuDetectBase::Range kSide1[] = {{17, 32}, {38, 42}, {50, 51}, {58, 63}, {68, 71}, {75, 77}, {79, 79}, {81, 81}, {83, 83}, {88, 92}, {99, 101}, {105, 105}};
} // namespace

ZuDetectST::ZuDetectST(ZuAppMain* app) : ZuDetectBase(app, 106) {
    setStandardIndex(kStandardIndex, 41);
}

int ZuDetectST::bodyBytes(int count) { return count * ZuDataGenST::kBlockBytes; }

bool ZuDetectST::pushData(const char* sceneName, const void* record, int length) {
    return copyAndParse(DETECTTYPE_ST, sceneName, record, length, &ZuDetectST::bodyBytes);
}

int ZuDetectST::transformIndex(int standardIndex) { return lookupStandard(standardIndex); }

int ZuDetectST::getIndexRegion(int standardIndex) {
    return regionOf(transformIndex(standardIndex), kSide0, sizeof kSide0 / sizeof kSide0[0], kSide1,
                    sizeof kSide1 / sizeof kSide1[0]);
}
