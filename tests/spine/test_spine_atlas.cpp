// The atlas reader and the page texture hooks.
#include "SpineTestSupport.h"

#include "support/LogCapture.h"

#include <string>
#include <vector>

using namespace spinetest;

namespace {

const char* kTwoPages =
    "one.png\n"
    "format: RGBA4444\n"
    "filter: MipMapLinearLinear,Nearest\n"
    "repeat: xy\n"
    "plain\n"
    "  rotate: false\n"
    "  xy: 2, 4\n"
    "  size: 30, 20\n"
    "  orig: 34, 26\n"
    "  offset: 1, 3\n"
    "  index: 7\n"
    "\r\n"
    "two.png\n"
    "\tsize: 64, 32 \r\n"
    "format: RGB\n"
    "filter: MipMap, Linear\n"
    "repeat: x\n"
    "nine\n"
    "  rotate: true\n"
    "  xy: 8, 0\n"
    "  size: 10, 20\n"
    "  split: 1, 2, 3, 4\n"
    "  pad: 5, 6, 7, 8\n"
    "  orig: 10, 20\n"
    "  offset: 0, 0\n"
    "  index: -1\n"
    "plain\n"
    "  rotate: false\n"
    "  xy: 0, 0\n"
    "  size: 4, 4\n"
    "  split: 1, 1, 1, 1\n"
    "  orig: 4, 4\n"
    "  offset: 0, 0\n"
    "  index: 2";  // no final newline

struct TextureLog {
    int created = 0;
    int disposed = 0;
    std::vector<std::string> paths;
    void* application = nullptr;
};
TextureLog* g_textures = nullptr;
int g_token = 0;

void fakeCreate(void* application, spAtlasPage* page, const char* path) {
    g_textures->created++;
    g_textures->paths.push_back(path);
    g_textures->application = application;
    page->rendererObject = &g_token;
    // A real texture knows its size; the fake sets one when the atlas has none.
    if (page->width == 0) {
        page->width = 100;
        page->height = 50;
    }
}

void fakeDispose(spAtlasPage* page) {
    EXPECT_EQ(page->rendererObject, &g_token);
    g_textures->disposed++;
}

class AtlasTextures : public ::testing::Test {
protected:
    void SetUp() override {
        g_textures = &log;
        ZuSpineHooks_setTextureFuncs(fakeCreate, fakeDispose);
    }
    void TearDown() override {
        ZuSpineHooks_setTextureFuncs(nullptr, nullptr);
        g_textures = nullptr;
    }
    TextureLog log;
};

} // namespace

TEST_F(AtlasTextures, ReadsPagesAndRegions) {
    int app = 0;
    spAtlas* atlas = spAtlas_create(kTwoPages, (int)strlen(kTwoPages), "pack/dir/", &app);
    ASSERT_NE(atlas, nullptr);
    EXPECT_EQ(log.created, 2);
    EXPECT_EQ(log.paths, std::vector<std::string>({"pack/dir/one.png", "pack/dir/two.png"}));
    EXPECT_EQ(log.application, &app);

    spAtlasPage* one = atlas->pages;
    ASSERT_NE(one, nullptr);
    EXPECT_STREQ(one->name, "one.png");
    EXPECT_EQ(one->format, SP_ATLAS_RGBA4444);
    EXPECT_EQ(one->minFilter, SP_ATLAS_MIPMAP_LINEAR_LINEAR);
    EXPECT_EQ(one->magFilter, SP_ATLAS_NEAREST);
    EXPECT_EQ(one->uWrap, SP_ATLAS_REPEAT);
    EXPECT_EQ(one->vWrap, SP_ATLAS_REPEAT);
    EXPECT_EQ(one->width, 100);  // from the texture: no size line
    EXPECT_EQ(one->rendererObject, &g_token);

    spAtlasPage* two = one->next;
    ASSERT_NE(two, nullptr);
    EXPECT_EQ(two->width, 64);
    EXPECT_EQ(two->height, 32);
    // A shortened token matches the last entry it starts: "RGB" is RGBA8888.
    EXPECT_EQ(two->format, SP_ATLAS_RGBA8888);
    EXPECT_EQ(two->minFilter, SP_ATLAS_MIPMAP_LINEAR_LINEAR);
    EXPECT_EQ(two->magFilter, SP_ATLAS_LINEAR);
    EXPECT_EQ(two->uWrap, SP_ATLAS_REPEAT);
    EXPECT_EQ(two->vWrap, SP_ATLAS_CLAMPTOEDGE);

    // The first region of a name wins.
    spAtlasRegion* plain = spAtlas_findRegion(atlas, "plain");
    ASSERT_NE(plain, nullptr);
    EXPECT_EQ(plain->page, one);
    EXPECT_EQ(plain->x, 2);
    EXPECT_EQ(plain->originalHeight, 26);
    EXPECT_EQ(plain->offsetY, 3);
    EXPECT_EQ(plain->index, 7);
    EXPECT_FLOAT_EQ(plain->u, 2 / 100.0f);
    EXPECT_FLOAT_EQ(plain->v, 4 / 50.0f);
    EXPECT_FLOAT_EQ(plain->u2, 32 / 100.0f);
    EXPECT_FLOAT_EQ(plain->v2, 24 / 50.0f);

    spAtlasRegion* nine = spAtlas_findRegion(atlas, "nine");
    ASSERT_NE(nine, nullptr);
    EXPECT_TRUE(nine->rotate);
    // Turned: the packed rectangle is height x width.
    EXPECT_FLOAT_EQ(nine->u2, (8 + 20) / 64.0f);
    EXPECT_FLOAT_EQ(nine->v2, (0 + 10) / 32.0f);
    ASSERT_NE(nine->splits, nullptr);
    ASSERT_NE(nine->pads, nullptr);
    EXPECT_EQ(nine->splits[3], 4);
    EXPECT_EQ(nine->pads[0], 5);
    spAtlasRegion* last = nine->next;
    ASSERT_NE(last, nullptr);
    EXPECT_NE(last->splits, nullptr);
    EXPECT_EQ(last->pads, nullptr);
    EXPECT_EQ(last->index, 2);
    EXPECT_EQ(spAtlas_findRegion(atlas, "absent"), nullptr);

    spAtlas_dispose(atlas);
    EXPECT_EQ(log.disposed, 2);
}

TEST_F(AtlasTextures, EveryTruncationEitherParsesOrFailsWithoutLeaks) {
    LogCapture quiet;
    std::string text = kTwoPages;
    for (size_t length = 0; length <= text.size(); length++) {
        AllocationCounter counter;
        log = TextureLog();
        std::vector<char> prefix(text.begin(), text.begin() + length);
        spAtlas* atlas = spAtlas_create(prefix.data(), (int)length, "", nullptr);
        spAtlas_dispose(atlas);
        EXPECT_EQ(counter.live(), 0) << length;
        EXPECT_EQ(log.created, log.disposed) << length;
    }
}

TEST(SpineAtlas, RefusesMissingOrMalformedLines) {
    const char* cases[] = {
        "p.png\n",                                                      // no format line
        "p.png\nformat RGBA8888\nfilter: Linear,Linear\nrepeat: none\n",  // no ':'
        "p.png\nformat: RGBA8888\nfilter: Linear\nrepeat: none\n",        // one filter
        "p.png\nformat: RGBA8888\nfilter: Linear,Linear\n",               // no repeat
        "p.png\nformat: RGBA8888\nfilter: Linear,Linear\nrepeat: none\nr\n  rotate: false\n  xy: 1\n",
        "p.png\nformat: RGBA8888\nfilter: Linear,Linear\nrepeat: none\nr\n  rotate: false\n  xy: 1, 2\n"
        "  size: 3, 4\n  orig: 3\n  offset: 0, 0\n  index: -1\n",
        "p.png\nformat: RGBA8888\nfilter: Linear,Linear\nrepeat: none\nr\n  rotate: false\n  xy: 1, 2\n"
        "  size: 3, 4\n  orig: 3, 4\n  offset: 0, 0\n",
    };
    for (const char* text : cases) {
        LogCapture log;
        AllocationCounter counter;
        EXPECT_EQ(spAtlas_create(text, (int)strlen(text), "", nullptr), nullptr) << text;
        EXPECT_EQ(counter.live(), 0) << text;
        EXPECT_EQ(log.count("Atlas:", ZU_LOG_ERROR), 1) << text;
    }
}

TEST(SpineAtlas, ReadsTheTestFileWithItsDirectory) {
    spAtlas* atlas = spAtlas_createFromFile(dataPath("full.atlas").c_str(), nullptr);
    ASSERT_NE(atlas, nullptr);
    EXPECT_EQ(atlas->pages->next, nullptr);  // one page
    EXPECT_EQ(atlas->pages->width, 256);
    EXPECT_EQ(atlas->pages->rendererObject, nullptr);  // no texture manager here
    spAtlasRegion* cape = spAtlas_findRegion(atlas, "cape");
    ASSERT_NE(cape, nullptr);
    EXPECT_NE(cape->pads, nullptr);
    spAtlas_dispose(atlas);
}
