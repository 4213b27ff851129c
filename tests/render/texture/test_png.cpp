#include "render/texture/ZuPngLoader.h"
#include "render/texture/ZuPngWriter.h"
#include "render/texture/ZuTexMgr.h"
#include "render/texture/ZuTexture.h"
#include "support/GLTest.h"
#include "support/LogCapture.h"
#include "support/TempDir.h"
#include "render/test_texture_support.h"

#include <GLES3/gl3.h>
#include <cstdlib>

using namespace texsupport;

namespace {

bool decodeFile(ZuPngLoader& loader, const std::string& name, std::vector<uint8_t>& out) {
    std::vector<uint8_t> bytes = readFile(dataDir() + name + ".png");
    unsigned char* pixels = nullptr;
    if (!loader._readPngFromStream(bytes.data(), static_cast<int>(bytes.size()), name.c_str(), &pixels))
        return false;
    out.assign(pixels, pixels + loader.getDataSize());
    std::free(pixels);
    return true;
}

} // namespace

// Every colour type and depth arrives as the 8-bit RGB or premultiplied RGBA
// that the generator script computed from the PNG rules.
TEST(PngLoader, EveryColourTypeAndDepthDecodesToTheExpectedBytes) {
    ZuPngLoader loader(nullptr);
    for (const std::string& name : goodImages()) {
        SCOPED_TRACE(name);
        Expected e = readExpected(name);
        ASSERT_GT(e.channels, 0);
        std::vector<uint8_t> got;
        ASSERT_TRUE(decodeFile(loader, name, got));
        EXPECT_EQ(loader.getWidth(), e.width);
        EXPECT_EQ(loader.getHeight(), e.height);
        EXPECT_EQ(loader.getDataSize(), e.width * e.height * e.channels);
        EXPECT_EQ(loader.getGlFormat(), e.channels == 4 ? GL_RGBA : GL_RGB);
        EXPECT_EQ(got, e.bytes);
    }
}

TEST(PngLoader, GreyBecomesRgbAndTransparentPixelsLoseTheirColour) {
    ZuPngLoader loader(nullptr);
    std::vector<uint8_t> got;
    ASSERT_TRUE(decodeFile(loader, "grey8", got));
    EXPECT_EQ(loader.getGlFormat(), GL_RGB);
    EXPECT_EQ(loader.getColorType(), 0);
    ASSERT_TRUE(decodeFile(loader, "rgba8", got));
    // Pixel (0, 0) of rgba8 has alpha 0 and colour (3, 9, 0): premultiplied to zero.
    EXPECT_EQ(got[0], 0);
    EXPECT_EQ(got[1], 0);
    EXPECT_EQ(got[3], 0);
}

TEST(PngLoader, BrokenFilesAreRefusedWithALogLineAndLeaveThePointerAlone) {
    ZuPngLoader loader(nullptr);
    for (const std::string& name : brokenImages()) {
        SCOPED_TRACE(name);
        LogCapture log;
        std::vector<uint8_t> bytes = readFile(dataDir() + name + ".png");
        unsigned char sentinel = 0;
        unsigned char* pixels = &sentinel;
        EXPECT_FALSE(loader._readPngFromStream(bytes.empty() ? nullptr : bytes.data(),
                                               static_cast<int>(bytes.size()), name.c_str(), &pixels));
        EXPECT_EQ(pixels, &sentinel);
        EXPECT_GE(log.count("png '" + name + "'", ZU_LOG_WARN), 1);
    }
    // A read past the end names the callback.
    LogCapture log;
    std::vector<uint8_t> bytes = readFile(dataDir() + "truncated.png");
    unsigned char* pixels = nullptr;
    EXPECT_FALSE(loader._readPngFromStream(bytes.data(), static_cast<int>(bytes.size()), "t", &pixels));
    EXPECT_EQ(log.count("pngReaderCallback failed", ZU_LOG_ERROR), 1);
}

TEST(PngLoader, LoadDataReadsThroughTheFileManager) {
    Engine engine;
    ZuPngLoader loader(engine.app);
    unsigned char* pixels = nullptr;
    ASSERT_TRUE(loader.loadData("quadrants.png", &pixels));
    Expected e = readExpected("quadrants");
    EXPECT_EQ(std::vector<uint8_t>(pixels, pixels + loader.getDataSize()), e.bytes);
    std::free(pixels);
    EXPECT_EQ(loader.load("rgb8.png"), 1);

    LogCapture log;
    unsigned char sentinel = 0;
    pixels = &sentinel;
    EXPECT_FALSE(loader.loadData("no_such_image.png", &pixels));
    EXPECT_EQ(pixels, &sentinel);
    EXPECT_EQ(log.count("no_such_image.png", ZU_LOG_WARN), 1);
    EXPECT_EQ(loader.load("truncated.png"), 0);
}

class PngLoaderGL : public GLTest {};

TEST_F(PngLoaderGL, LoadTextureEntersTheCacheOnceAndUploads) {
    Engine engine;
    ZuTexMgr mgr(engine.app);
    ZuPngLoader loader(engine.app);
    ZuTexture* texture = loader.loadTexture(&mgr, "rgb8.png");
    ASSERT_NE(texture, nullptr);
    EXPECT_EQ(texture->getwidth(), 5);
    EXPECT_TRUE(texture->getbLoad());
    EXPECT_GT(texture->getid(), 0);
    EXPECT_EQ(loader.loadTexture(&mgr, "rgb8.png"), nullptr) << "the name is taken";
    mgr.destroy();
}

TEST(PngWriter, WrittenFilesDecodeToTheSamePremultipliedPixels) {
    TempDir dir;
    const int w = 7, h = 3;
    std::vector<uint8_t> rgba(w * h * 4);
    for (size_t i = 0; i < rgba.size(); ++i) rgba[i] = static_cast<uint8_t>(i * 37 + 11);
    ZuPngWriter writer(nullptr);
    std::string path = dir.path() + "out.png";
    ASSERT_EQ(writer.write(path.c_str(), w, h, rgba.data()), 1);

    ZuPngLoader loader(nullptr);
    std::vector<uint8_t> bytes = readFile(path);
    unsigned char* pixels = nullptr;
    ASSERT_TRUE(loader._readPngFromStream(bytes.data(), static_cast<int>(bytes.size()), "out", &pixels));
    ASSERT_EQ(loader.getDataSize(), w * h * 4);
    for (int i = 0; i < w * h; ++i) {
        int a = rgba[i * 4 + 3];
        for (int c = 0; c < 3; ++c) EXPECT_EQ(pixels[i * 4 + c], rgba[i * 4 + c] * (a + 1) >> 8);
        EXPECT_EQ(pixels[i * 4 + 3], a);
    }
    std::free(pixels);

    LogCapture log;
    EXPECT_EQ(writer.write((dir.path() + "no/such/dir/x.png").c_str(), w, h, rgba.data()), 0);
    EXPECT_EQ(writer.write(path.c_str(), 0, h, rgba.data()), 0);
    EXPECT_GE(log.count("png writer", ZU_LOG_ERROR), 2);
}
