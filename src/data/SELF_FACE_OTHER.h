#pragma once

#include "data/SELF_3D_PT.h"
#include "data/SELF_PT.h"

#include <cstdint>

// What a Self record carries behind its landmarks. Nothing in the engine
// interprets it; it is kept so that consumers can be added later.
struct SELF_FACE_OTHER {
    SELF_3D_PT firstPoints[68]; // the wire sends 70; the last two are dropped
    SELF_3D_PT secondPoints[28];
    SELF_3D_PT thirdPoints[28];
    SELF_3D_PT fourthPoints[6];
    SELF_3D_PT fifthPoints[6];
    uint8_t trailingWord[4] = {};
    SELF_PT firstPairs[4];
    SELF_PT secondPairs[4]; // sent before the first pairs on the wire
};
