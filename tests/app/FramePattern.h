#pragma once

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <vector>

// RGBA camera frames that differ from each other: a diagonal gradient, a bar
// that moves with the index and a corner block holding the index itself.
inline std::vector<uint8_t> patternFrame(int index, int width, int height) {
    std::vector<uint8_t> rgba(static_cast<size_t>(width) * height * 4);
    const int barX = (index * 3) % width;
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            uint8_t* p = &rgba[(static_cast<size_t>(y) * width + x) * 4];
            bool bar = x >= barX && x < barX + 6;
            bool corner = x < 16 && y < 16;
            p[0] = corner ? static_cast<uint8_t>(index & 0xFF) : static_cast<uint8_t>((x * 255) / width);
            p[1] = corner ? static_cast<uint8_t>(index >> 8) * 60 : static_cast<uint8_t>((y * 255) / height);
            p[2] = bar ? 240 : 40;
            p[3] = 255;
        }
    return rgba;
}

// The largest difference of any byte; INT32_MAX when sizes differ.
inline int maxByteDifference(const std::vector<uint8_t>& a, const std::vector<uint8_t>& b) {
    if (a.size() != b.size()) return INT32_MAX;
    int worst = 0;
    for (size_t i = 0; i < a.size(); ++i) worst = std::max(worst, std::abs(int(a[i]) - int(b[i])));
    return worst;
}

// The rows in reverse order: read-back pictures come bottom row first.
inline std::vector<uint8_t> flipRows(const std::vector<uint8_t>& rgba, int width) {
    const size_t row = static_cast<size_t>(width) * 4;
    std::vector<uint8_t> flipped(rgba.size());
    const size_t rows = rgba.size() / row;
    for (size_t y = 0; y < rows; ++y)
        std::copy_n(&rgba[y * row], row, &flipped[(rows - 1 - y) * row]);
    return flipped;
}
