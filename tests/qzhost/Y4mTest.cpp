#include "HostEngine.h"
#include "CameraFrameConverter.h"
#include "Y4mReader.h"
#include "Y4mWriter.h"
#include "support/TempDir.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

namespace {

// A stream in memory, handed to the reader as a FILE.
FILE* streamOf(const std::string& bytes) {
    FILE* file = tmpfile();
    fwrite(bytes.data(), 1, bytes.size(), file);
    rewind(file);
    return file;
}

std::string frameBytes(int width, int height, uint8_t seed) {
    std::string bytes(static_cast<size_t>(width) * height * 3 / 2, '\0');
    for (size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<char>(seed + i * 3);
    return bytes;
}

} // namespace

// A well-formed stream gives its size, rate and frames, then a clean end.
TEST(Y4m, ReadsHeaderAndFramesToACleanEnd) {
    std::string stream = "YUV4MPEG2 W4 H2 F30000:1001 Ip A1:1 C420jpeg XYSCSS=420JPEG\n";
    stream += "FRAME\n" + frameBytes(4, 2, 1) + "FRAME Ixyz\n" + frameBytes(4, 2, 9);
    Y4mReader reader;
    ASSERT_TRUE(reader.open(streamOf(stream))) << reader.error();
    EXPECT_EQ(reader.width(), 4);
    EXPECT_EQ(reader.height(), 2);
    EXPECT_EQ(reader.fps(), 30);
    std::vector<uint8_t> frame;
    ASSERT_TRUE(reader.next(frame));
    EXPECT_EQ(std::string(frame.begin(), frame.end()), frameBytes(4, 2, 1));
    ASSERT_TRUE(reader.next(frame));
    EXPECT_EQ(frame[0], 9);
    EXPECT_FALSE(reader.next(frame));
    EXPECT_TRUE(reader.ended());
}

// Bad input is refused with a message that says what is wrong; a truncated
// frame is not handed out, and the frames before it were.
TEST(Y4m, RefusesBadHeadersAndTruncatedFrames) {
    struct Case {
        std::string header;
        std::string says;
    } cases[] = {
        {"P6 4 2 255\n", "not a YUV4MPEG2 stream"},
        {"YUV4MPEG2 H2 C420\n", "no usable size"},
        {"YUV4MPEG2 W3 H2\n", "even sides"},
        {"YUV4MPEG2 W4 H2 C422\n", "only 4:2:0"},
        {"YUV4MPEG2 W4 H2 It\n", "interlaced"},
    };
    for (const Case& c : cases) {
        Y4mReader reader;
        EXPECT_FALSE(reader.open(streamOf(c.header))) << c.header;
        EXPECT_NE(reader.error().find(c.says), std::string::npos) << reader.error();
    }
    std::string stream = "YUV4MPEG2 W4 H2\nFRAME\n" + frameBytes(4, 2, 1) + "FRAME\n" + frameBytes(4, 2, 2).substr(0, 5);
    Y4mReader reader;
    ASSERT_TRUE(reader.open(streamOf(stream)));
    std::vector<uint8_t> frame;
    EXPECT_TRUE(reader.next(frame));
    EXPECT_FALSE(reader.next(frame));
    EXPECT_FALSE(reader.ended());
    EXPECT_NE(reader.error().find("frame 2 is truncated: 5 of 12 bytes"), std::string::npos) << reader.error();
    EXPECT_EQ(reader.framesRead(), 1);

    Y4mReader garbage;
    ASSERT_TRUE(garbage.open(streamOf("YUV4MPEG2 W4 H2\nFRAMX\n" + frameBytes(4, 2, 1))));
    EXPECT_FALSE(garbage.next(frame));
    EXPECT_NE(garbage.error().find("expected a FRAME line"), std::string::npos);
}

// What the writer makes, the reader reads back, each plane turned upright;
// a path that cannot be written is refused.
TEST(Y4m, WriterOutputReadsBackUpright) {
    TempDir dir;
    const std::string path = dir.path() + "/out.y4m";
    const int w = 4, h = 4;
    std::vector<uint8_t> bottomUp(w * h * 3 / 2);
    for (size_t i = 0; i < bottomUp.size(); ++i) bottomUp[i] = static_cast<uint8_t>(i);
    {
        Y4mWriter writer;
        ASSERT_TRUE(writer.open(path, w, h, 25));
        ASSERT_TRUE(writer.write(bottomUp));
        ASSERT_TRUE(writer.write(bottomUp));
        EXPECT_TRUE(writer.close());
    }
    Y4mReader reader;
    ASSERT_TRUE(reader.open(path)) << reader.error();
    EXPECT_EQ(reader.fps(), 25);
    std::vector<uint8_t> frame;
    ASSERT_TRUE(reader.next(frame));
    EXPECT_EQ(frame[0], bottomUp[(h - 1) * w]) << "the top Y row is the last one delivered";
    EXPECT_EQ(frame[w * h], bottomUp[w * h + 2]) << "U rows flip within their plane";
    EXPECT_EQ(frame[w * h + 4], bottomUp[w * h + 4 + 2]) << "V rows flip within their plane";
    ASSERT_TRUE(reader.next(frame));
    EXPECT_FALSE(reader.next(frame));
    EXPECT_TRUE(reader.ended());

    Y4mWriter refused;
    EXPECT_FALSE(refused.open(dir.path() + "/no/such/folder/out.y4m", w, h, 25));
}

// The same I420 frames through the engine driven by qzhost and through the
// engine on its own thread come out the same.
TEST(HostEngineThreaded, GivesTheSameFramesAsTheHostDrivenEngine) {
    const int side = 32;
    std::vector<std::vector<uint8_t>> frames;
    for (int i = 0; i < 3; ++i) {
        std::vector<uint8_t> rgba(side * side * 4), camera;
        for (size_t p = 0; p < rgba.size(); ++p) rgba[p] = static_cast<uint8_t>((p % 4 == 3) ? 255 : p * (i + 1));
        ASSERT_TRUE(CameraFrameConverter::convert(rgba.data(), rgba.size(), side, side, CameraFrameConverter::I420, camera));
        frames.push_back(camera);
    }
    std::vector<std::vector<uint8_t>> outputs[2];
    for (int threaded = 0; threaded < 2; ++threaded) {
        HostEngine engine;
        ASSERT_TRUE(engine.start(QZ_SOURCE_DIR "/assets/", threaded == 1));
        engine.setupScene(side, side, CameraFrameConverter::I420, 4);
        for (const std::vector<uint8_t>& frame : frames) {
            engine.pushFrame(frame);
            engine.renderFrame();
            std::vector<uint8_t> out(frame.size());
            ASSERT_TRUE(engine.fetch(out));
            outputs[threaded].push_back(out);
        }
        engine.stop();
    }
    for (size_t i = 0; i < frames.size(); ++i) {
        int worst = 0;
        for (size_t b = 0; b < outputs[0][i].size(); ++b)
            worst = std::max(worst, std::abs(int(outputs[0][i][b]) - int(outputs[1][i][b])));
        EXPECT_LE(worst, 1) << "frame " << i;
    }
}
