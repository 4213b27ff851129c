#pragma once

#include <cstdint>
#include <string>
#include <vector>

// Turns top-down RGBA frames into the byte layouts a phone camera hands to
// the engine. YUV is BT.601 video range with chroma from the 2x2 block
// average, the way camera pipelines subsample; all on the CPU so the host
// feeds the engine exactly what a device would.
class CameraFrameConverter {
public:
    // Order matches the host codes of ZuAppNative::createBGNode.
    enum Format { NV21 = 0, NV12 = 1, YV12 = 2, I420 = 3, RGBA = 4, BGRA = 5 };

    // "nv21", "nv12", "yv12", "i420", "rgba", "bgra" (any case); false otherwise.
    static bool parseFormat(const std::string& name, Format* format);
    static const char* formatName(Format format);
    static bool isYuv(Format format) { return format <= I420; }

    // Bytes of one frame, or 0 when the size cannot hold that format
    // (YUV 4:2:0 needs even sides) or would not fit an int.
    static int frameSize(Format format, int width, int height);

    // Converts width*height RGBA pixels into out (resized to frameSize).
    // False, with out cleared, for a bad size or a short input.
    static bool convert(const uint8_t* rgba, size_t rgbaBytes, int width, int height, Format format,
                        std::vector<uint8_t>& out);

    // The BT.601 video-range formulas, rounded and clamped to a byte.
    static uint8_t lumaOf(float r, float g, float b);
    static uint8_t blueChromaOf(float r, float g, float b);
    static uint8_t redChromaOf(float r, float g, float b);

private:
    static void convertYuv(const uint8_t* rgba, int width, int height, Format format, uint8_t* out);
};
