#include "FrameSource.h"
#include "OutputWriter.h"
#include "support/TempDir.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <fstream>
#include <vector>

TEST(FrameSource, FolderFramesSortByTheNumberInTheName) {
    TempDir dir;
    for (const char* name : {"shot_10.png", "shot_2.png", "shot_1.png", "cover.png", "notes_3.txt"})
        dir.write(name, "x");
    std::vector<std::string> frames = FrameSource::numberedFrames(dir.path());
    ASSERT_EQ(frames.size(), 3u);
    EXPECT_EQ(frames[0], dir.path() + "shot_1.png");
    EXPECT_EQ(frames[1], dir.path() + "shot_2.png");
    EXPECT_EQ(frames[2], dir.path() + "shot_10.png");
}

TEST(FrameSource, RefusesBadInputs) {
    TempDir dir;
    FrameSource notPng;
    EXPECT_FALSE(notPng.openImage(dir.write("fake.png", "not a png")));
    FrameSource emptyFolder;
    EXPECT_FALSE(emptyFolder.openImage(dir.path()));
    // Less than one 4x4 NV21 frame (24 bytes).
    FrameSource shortRaw;
    EXPECT_FALSE(shortRaw.openRaw(dir.write("short.nv21", std::string(23, '\0')), 4, 4,
                                  CameraFrameConverter::NV21));
}

TEST(FrameSource, RawFileGivesWholeFramesInOrder) {
    TempDir dir;
    std::string bytes;
    for (char frame = 0; frame < 2; ++frame) bytes += std::string(24, static_cast<char>('a' + frame));
    bytes += "tail"; // a partial third frame is dropped
    FrameSource source;
    ASSERT_TRUE(source.openRaw(dir.write("clip.nv21", bytes), 4, 4, CameraFrameConverter::NV21));
    EXPECT_EQ(source.frameCount(), 2);
    std::vector<uint8_t> frame;
    ASSERT_TRUE(source.next(frame));
    EXPECT_EQ(frame, std::vector<uint8_t>(24, 'a'));
    ASSERT_TRUE(source.next(frame));
    EXPECT_EQ(frame, std::vector<uint8_t>(24, 'b'));
    EXPECT_FALSE(source.next(frame));
}

TEST(OutputWriter, PngFramesComeOutUprightAndDecodeBack) {
    // Two rows, bottom row first as the engine delivers: bottom blue, top red.
    std::vector<uint8_t> bgraBottomUp = {255, 0, 0, 255, 255, 0, 0, 255, 0, 0, 255, 255, 0, 0, 255, 255};
    std::vector<uint8_t> upright;
    OutputWriter::uprightRgba(bgraBottomUp.data(), 2, 2, true, upright);
    EXPECT_EQ(upright, (std::vector<uint8_t>{255, 0, 0, 255, 255, 0, 0, 255, 0, 0, 255, 255, 0, 0, 255, 255}));

    TempDir dir;
    OutputWriter writer;
    ASSERT_TRUE(writer.open(dir.path(), dir.path() + "all.raw", 2, 2, 5));
    ASSERT_EQ(writer.frameBytes(), 16u);
    ASSERT_TRUE(writer.write(1, bgraBottomUp));
    EXPECT_FALSE(writer.write(2, std::vector<uint8_t>(15))); // short frame refused
    ASSERT_TRUE(writer.close());
    ASSERT_EQ(writer.written().size(), 2u);
    EXPECT_EQ(writer.written()[0], dir.path() + "frame_0001.png");

    FrameSource back;
    ASSERT_TRUE(back.openImage(writer.written()[0]));
    std::vector<uint8_t> decoded;
    ASSERT_TRUE(back.next(decoded));
    EXPECT_EQ(decoded, upright);
    std::ifstream raw(dir.path() + "all.raw", std::ios::binary);
    std::vector<uint8_t> rawBytes((std::istreambuf_iterator<char>(raw)), std::istreambuf_iterator<char>());
    EXPECT_EQ(rawBytes, bgraBottomUp); // raw output keeps the engine's bytes
}

TEST(OutputWriter, YuvFramesAreWrittenRaw) {
    TempDir dir;
    OutputWriter writer;
    ASSERT_TRUE(writer.open(dir.path(), "", 4, 2, 2));
    EXPECT_EQ(writer.frameBytes(), 12u);
    ASSERT_TRUE(writer.write(7, std::vector<uint8_t>(12, 9)));
    ASSERT_EQ(writer.written().size(), 1u);
    EXPECT_EQ(writer.written()[0], dir.path() + "frame_0007.yuv");
    EXPECT_FALSE(writer.open("", dir.path() + "missing/dir/out.raw", 4, 2, 2));
}

TEST(OutputWriter, ComparisonPutsTheInputLeftOfTheFrame) {
    // 2x2 pictures: the input's top row red, bottom row green; the engine's
    // frame (bottom row first) blue at the bottom, white on top.
    const std::vector<uint8_t> red = {255, 0, 0, 255}, green = {0, 255, 0, 255};
    const std::vector<uint8_t> blue = {0, 0, 255, 255}, white = {255, 255, 255, 255};
    auto picture = [](const std::vector<std::vector<uint8_t>>& pixels) {
        std::vector<uint8_t> out;
        for (const auto& p : pixels) out.insert(out.end(), p.begin(), p.end());
        return out;
    };
    const std::vector<uint8_t> input = picture({red, red, green, green});
    const std::vector<uint8_t> frame = picture({blue, blue, white, white});
    TempDir dir;
    OutputWriter writer;
    ASSERT_TRUE(writer.open(dir.path(), "", 2, 2, 1));
    ASSERT_TRUE(writer.write(3, frame));
    ASSERT_TRUE(writer.writeComparison(3, input));
    ASSERT_EQ(writer.written().back(), dir.path() + "compare_0003.png");
    FrameSource back;
    ASSERT_TRUE(back.openImage(writer.written().back()));
    EXPECT_EQ(back.width(), 4);
    std::vector<uint8_t> decoded;
    ASSERT_TRUE(back.next(decoded));
    EXPECT_EQ(decoded, picture({red, red, white, white, green, green, blue, blue}));
    // A short input is no comparison, and no failure either.
    EXPECT_TRUE(writer.writeComparison(4, std::vector<uint8_t>(3)));
    EXPECT_EQ(writer.written().size(), 2u);
}
