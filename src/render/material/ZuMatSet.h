#pragma once

#include "basesys/ZuObject.h"
#include "basesys/qzMap.h"
#include "basesys/qzString.h"

class MatIndex;
class ZuMat4;

// Per-part matrices of a model by name, with a fallback for parts that have
// none of their own. Owns every entry.
class ZuMatSet : public ZuObject {
public:
    ZuMatSet() = default;
    ~ZuMatSet() override;

    // Stores a copy of matrix under name (replacing an earlier one).
    void setMat(const char* name, const ZuMat4& matrix, bool visible = true);
    void setDefault(const ZuMat4& matrix);

    // The named matrix's 16 floats, else the default's, else null.
    const float* getMatData(const char* name) const;
    // The named entry's flag; true for a name without an entry.
    bool getVisible(const char* name) const;

private:
    MatIndex* find(const char* name) const;

    qz::map<qz::string, MatIndex*> entries;
    MatIndex* defaultEntry = nullptr;
};
