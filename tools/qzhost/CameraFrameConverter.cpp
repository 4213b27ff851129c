#include "CameraFrameConverter.h"

#include <algorithm>
#include <cctype>
#include <climits>
#include <cmath>
#include <cstring>

namespace {

uint8_t toByte(float value) {
    return static_cast<uint8_t>(std::min(255.0f, std::max(0.0f, std::round(value))));
}

const char* const kNames[] = {"nv21", "nv12", "yv12", "i420", "rgba", "bgra"};

} // namespace

bool CameraFrameConverter::parseFormat(const std::string& name, Format* format) {
    std::string lower = name;
    for (char& c : lower) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    for (int i = 0; i < 6; ++i) {
        if (lower == kNames[i]) {
            *format = static_cast<Format>(i);
            return true;
        }
    }
    return false;
}

const char* CameraFrameConverter::formatName(Format format) {
    return format >= NV21 && format <= BGRA ? kNames[format] : "?";
}

int CameraFrameConverter::frameSize(Format format, int width, int height) {
    if (width <= 0 || height <= 0) return 0;
    long long pixels = static_cast<long long>(width) * height;
    long long bytes;
    if (isYuv(format)) {
        if (width % 2 || height % 2) return 0;
        bytes = pixels * 3 / 2;
    } else {
        bytes = pixels * 4;
    }
    return bytes > INT_MAX ? 0 : static_cast<int>(bytes);
}

uint8_t CameraFrameConverter::lumaOf(float r, float g, float b) {
    return toByte(0.256816f * r + 0.504154f * g + 0.0979137f * b + 16.0f);
}

uint8_t CameraFrameConverter::blueChromaOf(float r, float g, float b) {
    return toByte(-0.148246f * r - 0.29102f * g + 0.439266f * b + 128.0f);
}

uint8_t CameraFrameConverter::redChromaOf(float r, float g, float b) {
    return toByte(0.439271f * r - 0.367833f * g - 0.071438f * b + 128.0f);
}

bool CameraFrameConverter::convert(const uint8_t* rgba, size_t rgbaBytes, int width, int height, Format format,
                                   std::vector<uint8_t>& out) {
    out.clear();
    int size = frameSize(format, width, height);
    if (size == 0 || !rgba || rgbaBytes < static_cast<size_t>(width) * height * 4) return false;
    out.resize(size);
    if (isYuv(format)) {
        convertYuv(rgba, width, height, format, out.data());
    } else if (format == RGBA) {
        memcpy(out.data(), rgba, size);
    } else {
        for (int i = 0; i < size; i += 4) {
            out[i] = rgba[i + 2];
            out[i + 1] = rgba[i + 1];
            out[i + 2] = rgba[i];
            out[i + 3] = rgba[i + 3];
        }
    }
    return true;
}

void CameraFrameConverter::convertYuv(const uint8_t* rgba, int width, int height, Format format, uint8_t* out) {
    const size_t lumaBytes = static_cast<size_t>(width) * height;
    const size_t chromaBytes = lumaBytes / 4;
    const int chromaWidth = width / 2;
    uint8_t* luma = out;
    uint8_t* chroma = out + lumaBytes;

    for (size_t i = 0; i < lumaBytes; ++i) {
        const uint8_t* p = rgba + i * 4;
        luma[i] = lumaOf(p[0], p[1], p[2]);
    }

    for (int cy = 0; cy < height / 2; ++cy) {
        for (int cx = 0; cx < chromaWidth; ++cx) {
            // Average the RGB of the 2x2 block first, then convert once.
            float r = 0, g = 0, b = 0;
            for (int dy = 0; dy < 2; ++dy) {
                const uint8_t* row = rgba + (static_cast<size_t>(cy * 2 + dy) * width + cx * 2) * 4;
                r += row[0] + row[4];
                g += row[1] + row[5];
                b += row[2] + row[6];
            }
            r *= 0.25f;
            g *= 0.25f;
            b *= 0.25f;
            uint8_t u = blueChromaOf(r, g, b);
            uint8_t v = redChromaOf(r, g, b);
            size_t index = static_cast<size_t>(cy) * chromaWidth + cx;
            switch (format) {
            case NV21:
                chroma[index * 2] = v;
                chroma[index * 2 + 1] = u;
                break;
            case NV12:
                chroma[index * 2] = u;
                chroma[index * 2 + 1] = v;
                break;
            case YV12:
                chroma[index] = v;
                chroma[chromaBytes + index] = u;
                break;
            default: // I420
                chroma[index] = u;
                chroma[chromaBytes + index] = v;
                break;
            }
        }
    }
}
