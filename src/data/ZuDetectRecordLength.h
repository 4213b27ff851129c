#pragma once

#include "data/DETECTTYPE.h"

// The exact length of a face record of a tracker back end, computed from
// the face count at its head, for surfaces whose hosts pass no length.
class ZuDetectRecordLength {
public:
    // 0 for a null record (no face); -1 for an unknown back end or a count
    // outside 0 to the most faces a record holds.
    static int of(DETECTTYPE type, const void* record);
};
