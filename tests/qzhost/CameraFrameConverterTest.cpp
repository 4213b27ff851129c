#include "CameraFrameConverter.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

namespace {

using Format = CameraFrameConverter::Format;

// A 4x2 frame: left 2x2 block pure red, right block half green / half blue,
// so the chroma average and the plane order can both be told apart.
std::vector<uint8_t> twoBlockFrame() {
    const uint8_t red[4] = {255, 0, 0, 255}, green[4] = {0, 255, 0, 255}, blue[4] = {0, 0, 255, 255};
    const uint8_t* layout[8] = {red, red, green, blue, red, red, blue, green};
    std::vector<uint8_t> rgba;
    for (const uint8_t* pixel : layout) rgba.insert(rgba.end(), pixel, pixel + 4);
    return rgba;
}

} // namespace

TEST(CameraFrameConverter, LumaAndChromaFollowVideoRangeBt601) {
    // Black and white hit the video-range limits; grey has neutral chroma.
    EXPECT_EQ(CameraFrameConverter::lumaOf(0, 0, 0), 16);
    EXPECT_EQ(CameraFrameConverter::lumaOf(255, 255, 255), 235);
    EXPECT_EQ(CameraFrameConverter::blueChromaOf(128, 128, 128), 128);
    EXPECT_EQ(CameraFrameConverter::redChromaOf(128, 128, 128), 128);
    EXPECT_EQ(CameraFrameConverter::lumaOf(255, 0, 0), 81);
    EXPECT_EQ(CameraFrameConverter::blueChromaOf(255, 0, 0), 90);
    EXPECT_EQ(CameraFrameConverter::redChromaOf(255, 0, 0), 240);
    EXPECT_EQ(CameraFrameConverter::blueChromaOf(0, 0, 255), 240);
}

TEST(CameraFrameConverter, PlaneOrderOfEachYuvLayout) {
    std::vector<uint8_t> rgba = twoBlockFrame();
    const uint8_t redU = CameraFrameConverter::blueChromaOf(255, 0, 0);
    const uint8_t redV = CameraFrameConverter::redChromaOf(255, 0, 0);
    // The right block averages to (0, 127.5, 127.5).
    const uint8_t mixU = CameraFrameConverter::blueChromaOf(0, 127.5f, 127.5f);
    const uint8_t mixV = CameraFrameConverter::redChromaOf(0, 127.5f, 127.5f);
    const uint8_t redY = CameraFrameConverter::lumaOf(255, 0, 0);

    struct Case {
        Format format;
        std::vector<uint8_t> chroma;
    } cases[] = {
        {Format::NV21, {redV, redU, mixV, mixU}},
        {Format::NV12, {redU, redV, mixU, mixV}},
        {Format::YV12, {redV, mixV, redU, mixU}},
        {Format::I420, {redU, mixU, redV, mixV}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(CameraFrameConverter::formatName(c.format));
        std::vector<uint8_t> out;
        ASSERT_TRUE(CameraFrameConverter::convert(rgba.data(), rgba.size(), 4, 2, c.format, out));
        ASSERT_EQ(out.size(), 12u);
        EXPECT_EQ(out[0], redY);
        EXPECT_EQ(out[4], redY);
        EXPECT_EQ(out[2], CameraFrameConverter::lumaOf(0, 255, 0));
        EXPECT_EQ(out[3], CameraFrameConverter::lumaOf(0, 0, 255));
        EXPECT_EQ(std::vector<uint8_t>(out.begin() + 8, out.end()), c.chroma);
    }
}

TEST(CameraFrameConverter, PackedLayoutsKeepOrSwapChannels) {
    std::vector<uint8_t> rgba = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16};
    std::vector<uint8_t> out;
    ASSERT_TRUE(CameraFrameConverter::convert(rgba.data(), rgba.size(), 2, 2, Format::RGBA, out));
    EXPECT_EQ(out, rgba);
    ASSERT_TRUE(CameraFrameConverter::convert(rgba.data(), rgba.size(), 2, 2, Format::BGRA, out));
    EXPECT_EQ(out, (std::vector<uint8_t>{3, 2, 1, 4, 7, 6, 5, 8, 11, 10, 9, 12, 15, 14, 13, 16}));
}

TEST(CameraFrameConverter, RefusesSizesItCannotHold) {
    std::vector<uint8_t> rgba(3 * 2 * 4, 0), out{1, 2, 3};
    // Odd sides have no whole 2x2 chroma block.
    EXPECT_FALSE(CameraFrameConverter::convert(rgba.data(), rgba.size(), 3, 2, Format::NV21, out));
    EXPECT_TRUE(out.empty());
    // Packed layouts take any size.
    EXPECT_TRUE(CameraFrameConverter::convert(rgba.data(), rgba.size(), 3, 2, Format::RGBA, out));
    // Too few input bytes for the size claimed.
    EXPECT_FALSE(CameraFrameConverter::convert(rgba.data(), rgba.size() - 1, 3, 2, Format::BGRA, out));
    EXPECT_FALSE(CameraFrameConverter::convert(nullptr, 0, 2, 2, Format::I420, out));
    EXPECT_EQ(CameraFrameConverter::frameSize(Format::NV12, 0, 2), 0);
    EXPECT_EQ(CameraFrameConverter::frameSize(Format::RGBA, 65536, 65536), 0);
    EXPECT_EQ(CameraFrameConverter::frameSize(Format::YV12, 640, 480), 460800);
}

TEST(CameraFrameConverter, ParsesFormatNamesInAnyCase) {
    Format format = Format::RGBA;
    EXPECT_TRUE(CameraFrameConverter::parseFormat("I420", &format));
    EXPECT_EQ(format, Format::I420);
    EXPECT_TRUE(CameraFrameConverter::parseFormat("nv21", &format));
    EXPECT_EQ(format, Format::NV21);
    EXPECT_FALSE(CameraFrameConverter::parseFormat("yuyv", &format));
    EXPECT_FALSE(CameraFrameConverter::parseFormat("", &format));
    EXPECT_EQ(format, Format::NV21);
}
