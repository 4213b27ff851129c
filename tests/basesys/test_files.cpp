#include "basesys/DataChunk.h"
#include "basesys/ZuAsvLoader.h"
#include "basesys/ZuFileMgr.h"
#include "platform/ZuAssetManager.h"
#include "support/LogCapture.h"
#include "support/TempDir.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cstring>
#include <string>
#include <thread>
#include <vector>

namespace {

const std::string kData = std::string(QZ_SOURCE_DIR) + "/tests/basesys/data/";
const std::string kPathA = kData + "paths/a/";
const std::string kPathB = kData + "paths/b/";
const std::string kAssets = kData + "assets/";

std::string chunkText(const DataChunk& chunk) {
    return chunk.buffer ? std::string(chunk.buffer, static_cast<size_t>(chunk.size)) : std::string();
}

// A started file manager over the two test search paths, released at the end.
class FileMgrTest : public ::testing::Test {
protected:
    void SetUp() override {
        files = new ZuFileMgr(nullptr);
        files->init();
        files->addRespath(kPathA.c_str());
        files->addRespath(kPathB.c_str());
    }
    void TearDown() override {
        files->destroy();
        files->release();
        if (assets) AAssetManager_destroy(assets);
    }
    void useAssets() {
        assets = AAssetManager_createFromDirectory(kAssets.c_str());
        ASSERT_NE(assets, nullptr);
        files->setAssetsManager(assets);
    }

    ZuFileMgr* files = nullptr;
    AAssetManager* assets = nullptr;
};

} // namespace

// --- Search paths --------------------------------------------------------------

TEST_F(FileMgrTest, SearchPathsAreKeptOnceInOrder) {
    EXPECT_EQ(files->getSearchPathNum(), 2u);
    files->addRespath(kPathA.c_str());
    files->addRespath(kPathB.c_str());
    EXPECT_EQ(files->getSearchPathNum(), 2u);
    files->addRespath(nullptr);
    EXPECT_EQ(files->getSearchPathNum(), 2u);

    // The first registered path wins for a name found under both.
    EXPECT_STREQ(files->getFileFullName("common.txt").c_str(), (kPathA + "common.txt").c_str());

    files->delRespath(kPathA.c_str());
    EXPECT_EQ(files->getSearchPathNum(), 1u);
    EXPECT_STREQ(files->getFileFullName("common.txt").c_str(), (kPathB + "common.txt").c_str());
    files->delRespath("not registered/");
    EXPECT_EQ(files->getSearchPathNum(), 1u);

    files->destroy();
    EXPECT_EQ(files->getSearchPathNum(), 0u);
}

TEST_F(FileMgrTest, FullNameIsTheFirstPathHoldingARegularFile) {
    EXPECT_STREQ(files->getFileFullName("only_b.txt").c_str(), (kPathB + "only_b.txt").c_str());
    EXPECT_STREQ(files->getFileFullName("five.txt").c_str(), (kPathA + "five.txt").c_str());
    EXPECT_TRUE(files->getFileFullName("missing.txt").empty());
    EXPECT_TRUE(files->getFileFullName(nullptr).empty());
    // a/dirname is a directory, which opens on Linux but is no file.
    EXPECT_STREQ(files->getFileFullName("dirname").c_str(), (kPathB + "dirname").c_str());

    // The empty path lets absolute names through unchanged.
    EXPECT_TRUE(files->getFileFullName((kPathB + "only_b.txt").c_str()).empty());
    files->addRespath("");
    EXPECT_STREQ(files->getFileFullName((kPathB + "only_b.txt").c_str()).c_str(),
                 (kPathB + "only_b.txt").c_str());
}

TEST(FileMgr, UseBeforeInitIsRefused) {
    LogCapture log;
    ZuFileMgr* files = new ZuFileMgr(nullptr);
    files->addRespath(kPathA.c_str());
    EXPECT_EQ(log.count("before init", ZU_LOG_WARN), 1);
    EXPECT_EQ(files->getSearchPathNum(), 0u);
    EXPECT_TRUE(files->getFileFullName("five.txt").empty());
    DataChunk chunk;
    EXPECT_FALSE(files->loadFileContent(&chunk, "five.txt"));
    files->release();
}

// --- Reading files ---------------------------------------------------------------

TEST_F(FileMgrTest, BinaryReadGivesTheExactBytes) {
    DataChunk chunk;
    ASSERT_TRUE(files->loadFileContent(&chunk, "binary.bin"));
    const char expected[] = {0x00, 0x01, 0x02, '\xff', '\xfe', '\r', '\n', 0x00};
    ASSERT_EQ(chunk.size, 8);
    EXPECT_EQ(memcmp(chunk.buffer, expected, 8), 0);

    // Reusing the chunk frees what it held (ASan reports a leak otherwise).
    ASSERT_TRUE(files->loadFileContent(&chunk, "five.txt"));
    EXPECT_EQ(chunkText(chunk), "hello");
}

TEST_F(FileMgrTest, TextReadAddsOneTerminatingByte) {
    DataChunk chunk;
    ASSERT_TRUE(files->loadFileContentStr(&chunk, "five.txt"));
    ASSERT_EQ(chunk.size, 6);
    EXPECT_EQ(chunk.buffer[5], 0);
    EXPECT_STREQ(chunk.buffer, "hello");
}

TEST_F(FileMgrTest, EmptyFilesAreFoundAndHoldNothing) {
    DataChunk binary;
    ASSERT_TRUE(files->loadFileContent(&binary, "empty.txt"));
    EXPECT_EQ(binary.size, 0);
    EXPECT_EQ(binary.buffer, nullptr);

    DataChunk text;
    ASSERT_TRUE(files->loadFileContentStr(&text, "empty.txt"));
    ASSERT_EQ(text.size, 1);
    EXPECT_STREQ(text.buffer, "");
}

TEST_F(FileMgrTest, MissingFilesAndBadArgumentsGiveFalse) {
    DataChunk chunk;
    EXPECT_FALSE(files->loadFileContent(nullptr, "five.txt"));
    EXPECT_FALSE(files->loadFileContent(&chunk, nullptr));
    EXPECT_FALSE(files->loadFileContent(&chunk, "missing.txt"));
    EXPECT_FALSE(files->loadFileContentStr(&chunk, "missing.txt"));
    EXPECT_EQ(chunk.buffer, nullptr);
}

// --- The asset branch -------------------------------------------------------------

TEST_F(FileMgrTest, AnAssetWinsOverFilesOfTheSameName) {
    useAssets();
    DataChunk chunk;
    ASSERT_TRUE(files->loadFileContent(&chunk, "common.txt"));
    EXPECT_EQ(chunkText(chunk), "from asset");

    ASSERT_TRUE(files->loadFileContentStr(&chunk, "common.txt"));
    ASSERT_EQ(chunk.size, 11);
    EXPECT_STREQ(chunk.buffer, "from asset");

    ASSERT_TRUE(files->loadFileContentStr(&chunk, "sub/nested.txt"));
    EXPECT_STREQ(chunk.buffer, "nested asset");

    // Names that no asset holds still come from the search paths.
    ASSERT_TRUE(files->loadFileContentStr(&chunk, "only_b.txt"));
    EXPECT_STREQ(chunk.buffer, "only in b");
}

TEST_F(FileMgrTest, AnEmptyAssetGivesTrueAndNoBuffer) {
    useAssets();
    DataChunk chunk;
    ASSERT_TRUE(files->loadFileContent(&chunk, "five.txt"));
    ASSERT_TRUE(files->loadFileContent(&chunk, "empty.bin"));
    EXPECT_EQ(chunk.size, 0);
    EXPECT_EQ(chunk.buffer, nullptr);
    ASSERT_TRUE(files->loadFileContentStr(&chunk, "empty.bin"));
    EXPECT_EQ(chunk.buffer, nullptr);
}

TEST(AssetManager, OpensOnlyRegularFilesInsideThePackage) {
    EXPECT_EQ(AAssetManager_createFromDirectory((kAssets + "common.txt").c_str()), nullptr);
    EXPECT_EQ(AAssetManager_createFromDirectory(nullptr), nullptr);

    // The root given without a trailing separator works the same.
    std::string root = kAssets.substr(0, kAssets.size() - 1);
    AAssetManager* assets = AAssetManager_createFromDirectory(root.c_str());
    ASSERT_NE(assets, nullptr);

    EXPECT_EQ(AAssetManager_open(assets, "sub", AASSET_MODE_UNKNOWN), nullptr);
    EXPECT_EQ(AAssetManager_open(assets, "missing", AASSET_MODE_UNKNOWN), nullptr);
    EXPECT_EQ(AAssetManager_open(assets, "", AASSET_MODE_UNKNOWN), nullptr);
    EXPECT_EQ(AAssetManager_open(assets, nullptr, AASSET_MODE_UNKNOWN), nullptr);
    EXPECT_EQ(AAssetManager_open(nullptr, "common.txt", AASSET_MODE_UNKNOWN), nullptr);
    EXPECT_EQ(AAssetManager_open(assets, (kAssets + "common.txt").c_str(), 0), nullptr);
    EXPECT_EQ(AAssetManager_open(assets, "sub/../common.txt", 0), nullptr);
    EXPECT_EQ(AAssetManager_open(assets, "../assets/common.txt", 0), nullptr);

    // Reads come in pieces and stop at the end.
    AAsset* asset = AAssetManager_open(assets, "sub/nested.txt", AASSET_MODE_STREAMING);
    ASSERT_NE(asset, nullptr);
    EXPECT_EQ(AAsset_getLength(asset), 12);
    char part[8];
    EXPECT_EQ(AAsset_read(asset, part, 7), 7);
    EXPECT_EQ(memcmp(part, "nested ", 7), 0);
    EXPECT_EQ(AAsset_read(asset, part, 8), 5);
    EXPECT_EQ(memcmp(part, "asset", 5), 0);
    EXPECT_EQ(AAsset_read(asset, part, 8), 0);
    EXPECT_LT(AAsset_read(asset, nullptr, 8), 0);
    AAsset_close(asset);
    AAsset_close(nullptr);
    EXPECT_EQ(AAsset_getLength(nullptr), 0);

    AAssetManager_destroy(assets);
}

// --- Threads --------------------------------------------------------------------------

TEST(FileMgr, PathsChangeWhileOtherThreadsLoad) {
    TempDir dir;
    dir.write("file.txt", "shared");
    ZuFileMgr* files = new ZuFileMgr(nullptr);
    files->init();
    files->addRespath(dir.path().c_str());

    std::atomic<int> failures{0};
    std::vector<std::thread> readers;
    for (int t = 0; t < 3; ++t) {
        readers.emplace_back([&] {
            for (int i = 0; i < 300; ++i) {
                DataChunk chunk;
                if (!files->loadFileContentStr(&chunk, "file.txt") ||
                    strcmp(chunk.buffer, "shared") != 0)
                    ++failures;
            }
        });
    }
    // Other paths come and go; the one that holds the file stays.
    for (int i = 0; i < 300; ++i) {
        std::string path = "/nonexistent/" + std::to_string(i % 7) + "/";
        files->addRespath(path.c_str());
        files->delRespath(path.c_str());
    }
    for (std::thread& reader : readers) reader.join();
    EXPECT_EQ(failures.load(), 0);
    EXPECT_EQ(files->getSearchPathNum(), 1u);
    files->destroy();
    files->release();
}

// --- Loaders ------------------------------------------------------------------

TEST_F(FileMgrTest, AsvFilesAreReadButMakeNoCurves) {
    TempDir dir;
    dir.write("curve.asv", std::string("\x01\x00\x02\x00", 4));
    files->addRespath(dir.path().c_str());

    ZuAsvLoader* loader = new ZuAsvLoader(nullptr);
    EXPECT_EQ(loader->loadFrom(files, "curve.asv"), 0);
    EXPECT_EQ(loader->getCurveLines(), nullptr);
    EXPECT_EQ(loader->loadFrom(files, "missing.asv"), 0);
    EXPECT_EQ(loader->load("curve.asv"), 0); // no engine: nothing to read through
    loader->destroy();
    loader->release();
}
