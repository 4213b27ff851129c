#include "node/morph/ZuNewMorphData.h"

#include <algorithm>

ZuNewMorphData::ZuNewMorphData(const ZuNewMorphData& other)
    : startIndex(other.startIndex), endIndex(other.endIndex), strength(other.strength), adaptive(other.adaptive) {
    setIndices(other.indices, other.count);
}

ZuNewMorphData& ZuNewMorphData::operator=(const ZuNewMorphData& other) {
    if (this == &other) return *this;
    startIndex = other.startIndex;
    endIndex = other.endIndex;
    strength = other.strength;
    adaptive = other.adaptive;
    setIndices(other.indices, other.count);
    return *this;
}

ZuNewMorphData::~ZuNewMorphData() { delete[] indices; }

void ZuNewMorphData::setIndices(const int32_t* values, uint32_t newCount) {
    int32_t* copy = newCount && values ? new int32_t[newCount] : nullptr;
    if (copy) std::copy(values, values + newCount, copy);
    delete[] indices;
    indices = copy;
    count = copy ? newCount : 0;
}
