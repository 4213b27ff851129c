#pragma once

#include <cstdint>

// Reading the trackers' flat records: little-endian, unaligned fields, and
// the turn from camera pixels into engine pixels (y counted from the bottom).
class ZuDetectWire {
public:
    // The face block head shared by all back ends: roll, yaw, pitch, then the
    // rectangle left, top, right, bottom; the landmarks start behind it.
    static constexpr int kHeadBytes = 28;
    static constexpr int kPointBytes = 8;
    static constexpr int kPoint3dBytes = 12;

    // The camera of the scene the record belongs to, as floats.
    struct Frame {
        float width = 0.0f;
        float height = 0.0f;
        float rotation = 0.0f; // degrees
    };

    // The face fields converted by readHead, before each back end's angle rule.
    struct Head {
        float roll = 0.0f;
        float yaw = 0.0f;
        float pitch = 0.0f;
        int32_t left = 0;
        int32_t top = 0;
        int32_t right = 0;
        int32_t bottom = 0;
    };

    static int32_t readI32(const uint8_t* p);
    static float readF32(const uint8_t* p);

    // Only the four right angles turn; any other rotation leaves the point.
    static void rotate(float x, float y, const Frame& frame, float* outX, float* outY);

    // Converts the head of one face block: angles as sent, top and bottom
    // flipped to count from the bottom.
    static Head readHead(const uint8_t* block, const Frame& frame);

    // Marks the record valid and stores the head's fields in it.
    template <class Rec> static void storeHead(const Head& head, Rec& rec) {
        rec.valid = 1;
        rec.roll = head.roll;
        rec.yaw = head.yaw;
        rec.pitch = head.pitch;
        rec.left = head.left;
        rec.top = head.top;
        rec.right = head.right;
        rec.bottom = head.bottom;
    }

    // Reads count landmarks at points (i32 or f32 pairs) into out as rotated
    // x, y pairs.
    static void readPoints(const uint8_t* points, int count, bool floatPoints, const Frame& frame, float* out);

    // Copies count x, y, z triples as sent.
    template <class Pt3> static void read3d(const uint8_t* src, int count, Pt3* out) {
        for (int i = 0; i < count; ++i) {
            out[i].x = readF32(src + i * kPoint3dBytes);
            out[i].y = readF32(src + i * kPoint3dBytes + 4);
            out[i].z = readF32(src + i * kPoint3dBytes + 8);
        }
    }

    // Copies count x, y pairs as sent.
    template <class Pt2> static void read2d(const uint8_t* src, int count, Pt2* out) {
        for (int i = 0; i < count; ++i) {
            out[i].x = readF32(src + i * kPointBytes);
            out[i].y = readF32(src + i * kPointBytes + 4);
        }
    }
};
