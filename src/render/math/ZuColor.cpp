#include "render/math/ZuColor.h"

namespace {

uint32_t toByte(float v) {
    if (!(v > 0.0f)) return 0; // NaN and negatives
    if (v >= 1.0f) return 255;
    return static_cast<uint32_t>(v * 255.0f + 0.5f);
}

} // namespace

void ZuColor::setColorARGB(uint32_t argb) {
    a = static_cast<float>((argb >> 24) & 0xFF) / 255.0f;
    r = static_cast<float>((argb >> 16) & 0xFF) / 255.0f;
    g = static_cast<float>((argb >> 8) & 0xFF) / 255.0f;
    b = static_cast<float>(argb & 0xFF) / 255.0f;
}

uint32_t ZuColor::getColorARGB() const {
    return (toByte(a) << 24) | (toByte(r) << 16) | (toByte(g) << 8) | toByte(b);
}
