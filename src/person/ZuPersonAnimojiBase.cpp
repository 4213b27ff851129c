#include "person/ZuPersonAnimojiBase.h"

#include <cmath>

namespace {

float lerp(float from, float to, float t) { return from + (to - from) * t; }

// The blinks, the smiles, the grin downs, sniff and the left upper lip flicker
// with the landmarks; they follow more slowly than the rest.
bool followsSlowly(int index) {
    switch (index) {
    case Blink_R:
    case Blink_L:
    case SmileMouth_R:
    case SmileMouth_L:
    case GrinDown_L:
    case GrinDown_R:
    case Sniff:
    case UpperLip_L: return true;
    default: return false;
    }
}

} // namespace

float ZuPersonAnimojiBase::getValue(MORPHINDEX index) const {
    if (index < 0 || index >= MORPHINDEX_COUNT) return 0.0f;
    return values[index];
}

void ZuPersonAnimojiBase::update() {
    for (float& v : values) v = 0.0f;
    values[Blink_R] = m.blinkR;
    values[Blink_L] = m.blinkL;
    values[EyesLeft] = m.eyesLeft;
    values[EyesRight] = m.eyesRight;
    values[EyesUp] = m.eyesUp;
    values[EyesDown] = m.eyesDown;
    values[MouthOpen] = m.mouthOpen;
    values[SmileMouth_R] = m.smileR;
    values[SmileMouth_L] = m.smileL;
    values[MouthRollUpper] = m.rollUpper;
    values[MouthRollLower] = m.rollLower;
    values[ShrinkMouth] = m.shrinkMouth;
    values[NuZui] = m.nuZui;
    values[BrowUp_R] = m.browR;
    values[BrowUp_L] = m.browL;
    values[GrinUp_L] = values[GrinUp_R] = m.grinUp;
    values[GrinDown_L] = values[GrinDown_R] = m.grinDown;
    values[BrowsIn_L] = -m.browL;
    values[BrowsIn_R] = -m.browR;
    values[Sniff] = m.sniff;
    values[XiaNuZui] = m.xiaNuZui;
    values[CheekPuff_R] = m.cheekPuffR;
    values[CheekPuff_L] = m.cheekPuffL;
    values[EyesWide] = m.eyesWide;

    for (int i = 0; i < MORPHINDEX_COUNT; ++i) {
        float v = values[i];
        // A degenerate face (a zero distance in a ratio) must not poison the
        // smoothing for good: not a number counts as 0.
        if (std::isnan(v)) v = 0.0f;
        v = v < 0.0f ? 0.0f : (v > 100.0f ? 100.0f : v);
        values[i] = lerp(previousValues[i], v / 100.0f, followsSlowly(i) ? 0.3f : 0.6f);
        previousValues[i] = values[i];
    }
}
