#include "node/filter/ZuBeauFilterTable.h"

#include <cstring>

namespace {

const ZuBeauFilterTable::Look kLooks[ZUBEAUFILTER_COUNT] = {
    {"origin", "originFilter", {"origin_0721.png"}},
    {"origin02", "originFilter02", {"origin_20170824.png"}},
    {"valencia", "valenciaFilter", {"valencia_ma.png", "valencia_gr.png"}},
    {"valencia01", "valenciaFilter", {"valencia_ma_01.png", "valencia_gr_01.png"}},
    {"nashville", "nashvilleFilter", {"nashville_ma.png"}},
    {"walden", "waldenFilter", {"walden_ma.png", "vignette_ma.png"}},
    {"walden01", "waldenFilter", {"walden_ma_01.png", "vignette_ma_01.png"}},
    {"brannan", "brannanFilter",
     {"brannan_pr.png", "brannan_bl.png", "brannan_co.png", "brannan_lu.png", "brannan_sc.png"}},
    {"inkwell", "inkwellFilter", {"inkwell_ma.png"}},
    {"inkwell01", "inkwellFilter", {"inkwell_ma_01.png"}},
    {"inkwell02", "inkwell02Filter", {"inkwell_ma_01.png"}},
    {"inkwell03", "inkwell03Filter", {"inkwell_ma.png"}},
    {"pink", "pinkFilter", {"pink.png"}},
    {"pink01", "pink01Filter", {"pink_20170620.png"}},
    {"guass", "guassFilter", {"guass.png"}},
    {"guass01", "guassFilter", {"grass_0901.png"}},
    {"grass", "grassFilter", {"grass_20170621.png"}},
    {"beach", "beachFilter", {"beach_0701.png"}},
    {"beach01", "beach01Filter", {"beach_20170520.png"}},
    {"new3", "new3Filter", {}},
    {"sweety", "sweetyFilter", {"sweety_0819.png"}},
    {"sweety01", "sweetyFilter", {"sweety_0830.png"}},
    {"sweety02", "sweety02Filter", {"sweety_20170620.png"}},
    {"nature", "sweetyFilter", {"nature_0819.png"}},
    {"nature01", "sweetyFilter", {"nature_0830.png"}},
    {"nature02", "sweety02Filter", {"nature_20170824.png"}},
    {"clean", "sweetyFilter", {"clean_0819.png"}},
    {"clean01", "sweetyFilter", {"clean_0826.png"}},
    {"clean02", "sweetyFilter", {"clean_0830.png"}},
    {"fresh", "sweetyFilter", {"fresh_0901.png"}},
    {"fresh01", "sweety02Filter", {"fresh_20170620.png"}},
    {"coral", "sweetyFilter", {"coral_0901.png"}},
    {"coral01", "sweety02Filter", {"coral_20170620.png"}},
    {"sunset", "sweety02Filter", {"sunset_20170620.png"}},
    {"vivid", "sweety02Filter", {"vivid_20170620.png"}},
    {"lolita", "sweety02Filter", {"lolita_20170620.png"}},
    {"rosy", "sweety02Filter", {"rosy_20170804.png"}},
    {"urban", "sweety02Filter", {"urban_20170520.png"}},
    {"vintage", "sweety02Filter", {"vintage_20170520.png"}},
    {"kisskiss", "sweety02Filter", {"kisskiss_20170620.png"}},
    {"snow", "sweety02Filter", {"snow_20170704.png"}},
    {"glossy", "sweety02Filter", {"glossy_20170620.png"}},
};

} // namespace

const ZuBeauFilterTable::Look* ZuBeauFilterTable::lookOf(int type) {
    return type >= 0 && type < ZUBEAUFILTER_COUNT ? &kLooks[type] : nullptr;
}

int ZuBeauFilterTable::typeOf(const char* subType) {
    if (!subType) return -1;
    for (int i = 0; i < ZUBEAUFILTER_COUNT; ++i)
        if (std::strcmp(kLooks[i].subType, subType) == 0) return i;
    return -1;
}
