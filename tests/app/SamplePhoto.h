#pragma once

#include <png.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

// The sample photo as top-down RGBA, cropped to width x height from its
// top-left corner; empty when it cannot be read.
inline std::vector<uint8_t> samplePhotoRgba(int width, int height) {
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    const std::string path = std::string(QZ_SOURCE_DIR) + "/samples/photos/astronaut.png";
    if (!png_image_begin_read_from_file(&image, path.c_str())) return {};
    image.format = PNG_FORMAT_RGBA;
    std::vector<uint8_t> full(PNG_IMAGE_SIZE(image));
    if (!png_image_finish_read(&image, nullptr, full.data(), 0, nullptr)) return {};
    if (static_cast<int>(image.width) < width || static_cast<int>(image.height) < height) return {};
    std::vector<uint8_t> out(static_cast<size_t>(width) * height * 4);
    for (int y = 0; y < height; ++y)
        std::copy_n(&full[(static_cast<size_t>(y) * image.width) * 4], static_cast<size_t>(width) * 4,
                    &out[static_cast<size_t>(y) * width * 4]);
    return out;
}

// BT.601 video-range NV21 (Y plane, then interleaved V and U at half size).
inline std::vector<uint8_t> rgbaToNv21(const std::vector<uint8_t>& rgba, int width, int height) {
    std::vector<uint8_t> out(static_cast<size_t>(width) * height * 3 / 2);
    auto at = [&](int x, int y, int c) { return float(rgba[(static_cast<size_t>(y) * width + x) * 4 + c]); };
    auto clamp = [](float v) { return static_cast<uint8_t>(std::min(255.0f, std::max(0.0f, v + 0.5f))); };
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            out[static_cast<size_t>(y) * width + x] =
                clamp(16.0f + 0.257f * at(x, y, 0) + 0.504f * at(x, y, 1) + 0.098f * at(x, y, 2));
    uint8_t* vu = &out[static_cast<size_t>(width) * height];
    for (int y = 0; y < height; y += 2)
        for (int x = 0; x < width; x += 2) {
            float r = 0, g = 0, b = 0;
            for (int k = 0; k < 4; ++k) {
                r += at(x + (k & 1), y + k / 2, 0) / 4;
                g += at(x + (k & 1), y + k / 2, 1) / 4;
                b += at(x + (k & 1), y + k / 2, 2) / 4;
            }
            uint8_t* p = &vu[(static_cast<size_t>(y / 2) * (width / 2) + x / 2) * 2];
            p[0] = clamp(128.0f + 0.439f * r - 0.368f * g - 0.071f * b);
            p[1] = clamp(128.0f - 0.148f * r - 0.291f * g + 0.439f * b);
        }
    return out;
}

// The same picture as I420: the Y plane, then all of U, then all of V.
inline std::vector<uint8_t> nv21ToI420(const std::vector<uint8_t>& nv21, int width, int height) {
    std::vector<uint8_t> out(nv21.size());
    const size_t luma = static_cast<size_t>(width) * height, quarter = luma / 4;
    std::copy_n(nv21.begin(), luma, out.begin());
    for (size_t i = 0; i < quarter; ++i) {
        out[luma + i] = nv21[luma + 2 * i + 1];
        out[luma + quarter + i] = nv21[luma + 2 * i];
    }
    return out;
}
