#pragma once

// The face tracker back end whose records the host pushes. The values are
// also what the host passes to setDetectType.
enum DETECTTYPE {
    DETECTTYPE_NONE = 0,
    DETECTTYPE_AS = 1,   // 101 landmarks, i32 on the wire
    DETECTTYPE_ST = 2,   // 106 landmarks, i32 on the wire
    DETECTTYPE_FP = 3,   // 106 landmarks, f32 on the wire
    DETECTTYPE_SELF = 4, // 70 landmarks, f32 on the wire
};

// Every back end reports at most this many faces per frame; person ids are 1 to 4.
constexpr int kMaxDetectFaces = 4;
