#pragma once

#include <cstdint>

// An RGBA colour as four floats in 0 to 1, with the packed forms the engine
// exchanges: 0xAARRGGBB from hosts and package files, and the object id that
// the colour-pick pass writes as a pixel.
struct ZuColor {
    float r = 0.0f, g = 0.0f, b = 0.0f, a = 0.0f;

    ZuColor() = default;
    ZuColor(float r, float g, float b, float a) : r(r), g(g), b(b), a(a) {}

    void set(float nr, float ng, float nb, float na) { r = nr; g = ng; b = nb; a = na; }

    // 0xAARRGGBB to floats, each byte divided by 255.
    void setColorARGB(uint32_t argb);
    // Floats clamped to 0 to 1 and rounded to the nearest byte.
    uint32_t getColorARGB() const;

    // The id a picked pixel stands for: (a << 24) | (r << 16) | (g << 8) | b.
    static uint32_t transRgbaToID(uint8_t r, uint8_t g, uint8_t b, uint8_t a) {
        return (static_cast<uint32_t>(a) << 24) | (static_cast<uint32_t>(r) << 16) |
               (static_cast<uint32_t>(g) << 8) | static_cast<uint32_t>(b);
    }

    bool operator==(const ZuColor& o) const { return r == o.r && g == o.g && b == o.b && a == o.a; }
    bool operator!=(const ZuColor& o) const { return !(*this == o); }
};
