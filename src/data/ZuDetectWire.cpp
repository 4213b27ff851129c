#include "data/ZuDetectWire.h"

#include <cstdint>
#include <cstring>

int32_t ZuDetectWire::readI32(const uint8_t* p) {
    // Assembled byte by byte, so neither alignment nor host byte order matter.
    const uint32_t v = static_cast<uint32_t>(p[0]) | (static_cast<uint32_t>(p[1]) << 8) |
                       (static_cast<uint32_t>(p[2]) << 16) | (static_cast<uint32_t>(p[3]) << 24);
    int32_t out;
    std::memcpy(&out, &v, sizeof out);
    return out;
}

float ZuDetectWire::readF32(const uint8_t* p) {
    const int32_t bits = readI32(p);
    float out;
    std::memcpy(&out, &bits, sizeof out);
    return out;
}

void ZuDetectWire::rotate(float x, float y, const Frame& frame, float* outX, float* outY) {
    const float w = frame.width;
    const float h = frame.height;
    if (frame.rotation == 0.0f) {
        *outX = x;
        *outY = h - y;
    } else if (frame.rotation == 90.0f) {
        *outX = y;
        *outY = x;
    } else if (frame.rotation == 180.0f) {
        *outX = w - x;
        *outY = y;
    } else if (frame.rotation == 270.0f) {
        *outX = h - y;
        *outY = w - x;
    } else {
        *outX = x;
        *outY = y;
    }
}

namespace {
// Garbage rectangles must not overflow the conversion back to i32.
int32_t truncateToI32(float v) {
    if (!(v > -2147483648.0f)) return v != v ? 0 : INT32_MIN;
    if (!(v < 2147483648.0f)) return INT32_MAX;
    return static_cast<int32_t>(v);
}
} // namespace

ZuDetectWire::Head ZuDetectWire::readHead(const uint8_t* block, const Frame& frame) {
    Head head;
    head.roll = readF32(block);
    head.yaw = readF32(block + 4);
    head.pitch = readF32(block + 8);
    head.left = readI32(block + 12);
    head.top = truncateToI32(frame.height - static_cast<float>(readI32(block + 16)));
    head.right = readI32(block + 20);
    head.bottom = truncateToI32(frame.height - static_cast<float>(readI32(block + 24)));
    return head;
}

void ZuDetectWire::readPoints(const uint8_t* points, int count, bool floatPoints, const Frame& frame, float* out) {
    for (int i = 0; i < count; ++i) {
        const uint8_t* p = points + i * kPointBytes;
        const float x = floatPoints ? readF32(p) : static_cast<float>(readI32(p));
        const float y = floatPoints ? readF32(p + 4) : static_cast<float>(readI32(p + 4));
        rotate(x, y, frame, &out[i * 2], &out[i * 2 + 1]);
    }
}
