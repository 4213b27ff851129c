// The services the engine supplies to the runtime: file reading and the
// allocation hooks; with an engine, the atlas pages' textures.
#include "SpineTestSupport.h"

#include "basesys/ZuAppMain.h"
#include "basesys/ZuGlobalMgr.h"
#include "render/texture/ZuTexMgr.h"
#include "render/texture/ZuTexture.h"
#include "support/LogCapture.h"
#include "support/TempDir.h"

#include <cstdlib>
#include <cstring>
#include <string>

using namespace spinetest;

TEST(SpineHooks, ReadFileGivesTheBytesAndATerminator) {
    TempDir dir;
    std::string content("ab\0cd", 5);
    std::string path = dir.write("f.bin", content);
    int length = -1;
    char* data = _spUtil_readFile(nullptr, path.c_str(), &length);
    ASSERT_NE(data, nullptr);
    EXPECT_EQ(length, 5);
    EXPECT_EQ(std::string(data, 5), content);
    EXPECT_EQ(data[5], 0);
    _free(data);

    LogCapture log;
    length = 9;
    EXPECT_EQ(_spUtil_readFile(nullptr, (dir.path() + "missing").c_str(), &length), nullptr);
    EXPECT_EQ(length, 0);
    EXPECT_EQ(log.count("missing", ZU_LOG_WARN), 1);
    EXPECT_EQ(_spUtil_readFile(nullptr, nullptr, &length), nullptr);
    // A directory is not a file.
    EXPECT_EQ(_spUtil_readFile(nullptr, dir.path().c_str(), &length), nullptr);
}

TEST(SpineHooks, WithAnEngineFilesResolveThroughItsSearchPaths) {
    TempDir dir;
    dir.write("pack/hero.atlas",
              "hero.png\nsize: 8,8\nformat: RGBA8888\nfilter: Linear,Linear\nrepeat: none\n"
              "r\n  rotate: false\n  xy: 0, 0\n  size: 8, 8\n  orig: 8, 8\n  offset: 0, 0\n  index: -1\n");
    dir.write("pack/hero.json", R"({"bones": [{"name": "root"}], "slots": [{"name": "s", "bone": "root", "attachment": "r"}],
                                   "skins": {"default": {"s": {"r": {}}}}})");
    ZuAppMain* app = new ZuAppMain();
    app->init();
    app->addRespath(dir.path().c_str());
    app->initZuBase();

    // Relative names only exist under the engine's search path.
    int length = 0;
    char* data = _spUtil_readFile(app, "pack/hero.json", &length);
    ASSERT_NE(data, nullptr);
    EXPECT_GT(length, 10);
    EXPECT_EQ(data[length], 0);
    _free(data);

    // The atlas passes the engine on to the skeleton reader.
    spAtlas* atlas = spAtlas_createFromFile("pack/hero.atlas", app);
    ASSERT_NE(atlas, nullptr);
    EXPECT_EQ(atlas->rendererObject, app);
    // The page image comes from the engine's texture cache, held by the page
    // as well as by the cache, and let go when the atlas goes.
    ZuTexMgr* texMgr = app->getGlobalMgr()->getTexMgr();
    ZuTexture* page = static_cast<ZuTexture*>(atlas->pages->rendererObject);
    ASSERT_NE(page, nullptr);
    EXPECT_EQ(texMgr->getTexture("pack/hero.png", false), page);
    EXPECT_GE(page->count(), 2u);
    spSkeletonJson* json = spSkeletonJson_create(atlas);
    spSkeletonData* skeleton = spSkeletonJson_readSkeletonDataFile(json, "pack/hero.json");
    EXPECT_NE(skeleton, nullptr) << (json->error ? json->error : "");
    spSkeletonData_dispose(skeleton);
    spSkeletonJson_dispose(json);
    uint32_t held = page->count();
    page->retain();
    spAtlas_dispose(atlas);
    EXPECT_EQ(page->count(), held);  // the page's reference went, this test's came
    page->release();

    LogCapture quiet;
    EXPECT_EQ(_spUtil_readFile(app, "pack/none.json", &length), nullptr);
    EXPECT_EQ(_spUtil_readFile(nullptr, "pack/hero.json", &length), nullptr);  // not from the working directory
    app->setState("test", ZU_ENG_STATE_STOPPING);
    app->destroyZuBase();
    app->destroy();
    app->release();
}

namespace {
int g_debugCalls = 0;
bool g_sawFile = false;

void* debugMalloc(size_t size, const char* file, int line) {
    g_debugCalls++;
    if (file && strstr(file, "spSkin") && line > 0) g_sawFile = true;
    return malloc(size);
}
} // namespace

TEST(SpineHooks, DebugMallocSeesCallSites) {
    _setDebugMalloc(debugMalloc);
    spSkin* skin = spSkin_create("s");
    spSkin_dispose(skin);
    _setDebugMalloc(nullptr);
    EXPECT_GE(g_debugCalls, 2);  // the skin and its name
    EXPECT_TRUE(g_sawFile);
}

TEST(SpineHooks, CallocClearsAndRefusesOverflow) {
    AllocationCounter counter;
    int* block = (int*)_calloc(16, sizeof(int), __FILE__, __LINE__);
    ASSERT_NE(block, nullptr);
    for (int i = 0; i < 16; i++) EXPECT_EQ(block[i], 0);
    _free(block);
    _free(nullptr);  // ignored
    EXPECT_EQ(_calloc((size_t)-1 / 2, 4, __FILE__, __LINE__), nullptr);
    EXPECT_EQ(_malloc((size_t)1 << 40, __FILE__, __LINE__), nullptr);
    EXPECT_EQ(counter.mallocs(), 1);
    EXPECT_EQ(counter.frees(), 1);
}
