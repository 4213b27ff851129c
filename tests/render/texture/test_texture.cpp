#include "render/texture/ZuTexMgr.h"
#include "render/texture/ZuTexture.h"
#include "render/texture/ZuTexturePList.h"
#include "render/texture/ZuTextureSet.h"
#include "support/GLTest.h"
#include "support/LogCapture.h"
#include "support/TempDir.h"
#include "render/test_texture_support.h"

using namespace texsupport;

namespace {

class TextureTest : public GLTest {
protected:
    void SetUp() override {
        GLTest::SetUp();
        engine = new Engine();
        mgr = new ZuTexMgr(engine->app);
        mgr->init();
    }
    void TearDown() override {
        mgr->destroy();
        mgr->release();
        delete engine;
    }
    ZuAppMain* app() { return engine->app; }

    // Draws a committed texture into a framebuffer of its own size and reads it back top first.
    std::vector<uint8_t> drawAndRead(ZuTexture* texture) {
        GLuint fbo = 0, target = 0;
        int w = texture->getwidth(), h = texture->getheight();
        glGenTextures(1, &target);
        glBindTexture(GL_TEXTURE_2D, target);
        glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA, w, h, 0, GL_RGBA, GL_UNSIGNED_BYTE, nullptr);
        glGenFramebuffers(1, &fbo);
        glBindFramebuffer(GL_FRAMEBUFFER, fbo);
        glFramebufferTexture2D(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_TEXTURE_2D, target, 0);
        drawTexture(static_cast<GLuint>(texture->getid()), 0, 0, w, h);
        std::vector<uint8_t> out = readTopFirst(w, h);
        glBindFramebuffer(GL_FRAMEBUFFER, 0);
        glDeleteFramebuffers(1, &fbo);
        glDeleteTextures(1, &target);
        return out;
    }

    Engine* engine = nullptr;
    ZuTexMgr* mgr = nullptr;
};

} // namespace

// The whole road: load thread decode, event, commit at first use, draw.
TEST_F(TextureTest, EveryColourTypeLoadsOnTheLoadThreadCommitsOnFirstUseAndDraws) {
    TextureEventSpy* spy = new TextureEventSpy(app());
    app()->getGlobalMgr()->getEventMgr()->registProcer(spy);
    std::vector<ZuTexture*> textures;
    for (const std::string& name : goodImages()) {
        ZuTexture* t = mgr->getTexture((name + ".png").c_str());
        ASSERT_NE(t, nullptr);
        EXPECT_FALSE(t->getbLoad()) << "nothing is decoded on the GL thread";
        t->retain();
        textures.push_back(t);
    }
    ASSERT_TRUE(engine->pumpUntil([&] {
        for (ZuTexture* t : textures)
            if (!t->getbLoad()) return false;
        return true;
    }));
    // Pushed events are delivered by the update after the one that exchanges the pools.
    app()->getGlobalMgr()->getEventMgr()->update(0);
    app()->getGlobalMgr()->getEventMgr()->update(0);
    EXPECT_EQ(spy->uids.size(), textures.size());
    for (size_t i = 0; i < textures.size(); ++i) {
        ZuTexture* t = textures[i];
        SCOPED_TRACE(goodImages()[i]);
        EXPECT_EQ(t->getid(), -1) << "no GL texture before the first use";
        t->commit();
        ASSERT_GT(t->getid(), 0);
        EXPECT_FALSE(t->hasData()) << "the CPU copy goes after the upload";
        EXPECT_NE(std::find(spy->uids.begin(), spy->uids.end(), t->getuid()), spy->uids.end());
        EXPECT_EQ(drawAndRead(t), asRgba(readExpected(goodImages()[i])));
        t->release();
    }
    app()->getGlobalMgr()->getEventMgr()->unregistProcer(spy);
    spy->release();
}

TEST_F(TextureTest, TwoRequestsShareOneObjectAndAMissWithoutCreateStartsNothing) {
    ZuTexture* a = mgr->getTexture("rgb8.png");
    ZuTexture* b = mgr->getTexture("rgb8.png", true, true);
    EXPECT_EQ(a, b);
    EXPECT_FALSE(a->getenableMipMaps()) << "mipmaps is ignored on a hit";
    EXPECT_EQ(a->count(), 2u) << "the cache and one load operation";
    EXPECT_EQ(mgr->getTexture("grey8.png", false), nullptr);
    EXPECT_FALSE(mgr->hasTexture("grey8.png"));
    ASSERT_TRUE(engine->pumpUntil([&] { return a->count() == 1; }));
    EXPECT_TRUE(a->getbLoad());
}

TEST_F(TextureTest, BadFilesStayUnloadedWithALogLine) {
    const char* paths[] = {"missing.png", "truncated.png", "bad_crc.png", "picture.jpg", "model.asv"};
    LogCapture log;
    for (const char* path : paths) {
        ZuTexture* t = mgr->getTextureSync(path);
        ASSERT_NE(t, nullptr);
        EXPECT_FALSE(t->getbLoad()) << path;
        t->commit();
        EXPECT_EQ(t->getid(), -1) << path;
        EXPECT_GE(log.count(path, ZU_LOG_WARN), 1) << path;
    }
}

TEST_F(TextureTest, CommitFreesTheCopyOnceAndKeepsItForStreaming) {
    ZuTexture* t = mgr->getTextureSync("quadrants.png");
    ASSERT_TRUE(t->getbLoad());
    t->commit();
    int id = t->getid();
    EXPECT_FALSE(t->hasData());
    t->commit();
    EXPECT_EQ(t->getid(), id);
    EXPECT_TRUE(t->getbLoad());

    // A stream keeps its buffer and updates in place.
    ZuTexture* s = mgr->createNullTextureWithData("plane", 2, 1, GL_RGBA, GL_RGBA, nullptr);
    ASSERT_NE(s, nullptr);
    uint8_t frame1[8] = {255, 0, 0, 255, 0, 255, 0, 255};
    s->setData(frame1, 0, true);
    s->commit();
    int streamId = s->getid();
    EXPECT_TRUE(s->hasData());
    EXPECT_EQ(drawAndRead(s), std::vector<uint8_t>(frame1, frame1 + 8));
    uint8_t frame2[8] = {0, 0, 255, 255, 9, 9, 9, 255};
    s->setData(frame2, 0, true);
    s->commit();
    EXPECT_EQ(s->getid(), streamId);
    EXPECT_EQ(drawAndRead(s), std::vector<uint8_t>(frame2, frame2 + 8));
    EXPECT_EQ(mgr->createNullTextureWithData("plane", 2, 1, GL_RGBA, GL_RGBA, frame1), nullptr);
}

TEST_F(TextureTest, SizeZeroDerivesTheByteCountAndShortDataIsRefused) {
    // 3 x 2 luminance-alpha: 12 bytes; a 13th byte must not be read.
    uint8_t la[12] = {10, 255, 20, 255, 30, 255, 40, 255, 50, 255, 60, 255};
    ZuTexture* t = mgr->createNullTextureWithData("la", 3, 2, GL_LUMINANCE_ALPHA, GL_LUMINANCE_ALPHA, la);
    ASSERT_NE(t, nullptr);
    t->commit();
    std::vector<uint8_t> got = drawAndRead(t);
    ASSERT_EQ(got.size(), 24u);
    EXPECT_EQ(got[0], 10);
    EXPECT_EQ(got[20], 60);
    EXPECT_EQ(got[23], 255);

    LogCapture log;
    uint8_t few[5] = {1, 2, 3, 4, 5};
    t->setData(few, 5, false);
    t->commit();
    EXPECT_FALSE(t->getbLoad()) << "a short copy is dropped, so the draw is skipped";
    EXPECT_EQ(log.count("not uploaded", ZU_LOG_ERROR), 1);
}

TEST_F(TextureTest, OddWidthRgbRowsAreNotSkewed) {
    // 5 x 3 RGB rows are 15 bytes: with the default alignment of 4 the second row would shift.
    ZuTexture* t = mgr->getTextureSync("rgb8.png");
    t->commit();
    EXPECT_EQ(drawAndRead(t), asRgba(readExpected("rgb8")));
}

TEST_F(TextureTest, HostNamesSurviveTheirWrappers) {
    GLuint host = 0;
    glGenTextures(1, &host);
    glBindTexture(GL_TEXTURE_2D, host);
    glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA, 2, 2, 0, GL_RGBA, GL_UNSIGNED_BYTE, nullptr);
    ZuTexture* cam = mgr->bindCameraTexture("host", static_cast<int>(host), 2, 2);
    ASSERT_NE(cam, nullptr);
    EXPECT_EQ(mgr->bindCameraTexture("host", 5, 2, 2), nullptr);
    EXPECT_EQ(mgr->createCameraTexture("host"), nullptr);
    ZuTexture* inner = mgr->createInternalTextureWithTexID(static_cast<int>(host), 2, 2, GL_RGBA);
    inner->zudestroy();
    inner->release();
    mgr->removeTexture("host");
    EXPECT_TRUE(glIsTexture(host));
    glDeleteTextures(1, &host);

    ZuTexture* own = mgr->createCameraTexture("camera");
    ASSERT_NE(own, nullptr);
    GLuint ownId = static_cast<GLuint>(own->getid());
    EXPECT_TRUE(glIsTexture(ownId));
    mgr->removeTexture(own);
    EXPECT_FALSE(glIsTexture(ownId));
}

// Ageing frees, at the next pass, an entry only the cache holds; a look-up
// does not count as holding it.
TEST_F(TextureTest, UnusedTexturesGoAtTheNextPass) {
    ZuTexture* kept = mgr->getTextureSync("rgb8.png");
    kept->retain();
    ZuTexture* loose = mgr->getTextureSync("grey8.png");
    loose->commit();
    GLuint looseId = static_cast<GLuint>(loose->getid());
    ZuTexture* loading = mgr->getTexture("rgba8.png");  // held by its load operation too
    (void)loading;
    mgr->getTexture("grey8.png");  // a look-up in this frame
    mgr->removeUnuseTexture();
    EXPECT_FALSE(mgr->hasTexture("grey8.png"));
    EXPECT_FALSE(glIsTexture(looseId));
    EXPECT_TRUE(mgr->hasTexture("rgb8.png"));

    kept->release();
    mgr->removeUnuseTexture();
    EXPECT_FALSE(mgr->hasTexture("rgb8.png"));
    ASSERT_TRUE(engine->pumpUntil([&] { return !mgr->hasTexture("rgba8.png") || mgr->getTexture("rgba8.png", false)->getbLoad(); }));
}

TEST_F(TextureTest, AtlasPagesAndRegions) {
    TempDir dir;
    dir.write("pkg/atlas.json", R"({
        "meta": {"image": "quadrants.png"},
        "frames": [
            {"filename": "a.png", "rotated": true, "trimmed": true,
             "frame": {"x": 1, "w": 2, "y": 3, "h": 4},
             "spriteSourceSize": {"w": 5, "y": 6, "h": 7},
             "sourceSize": {"w": 30, "h": 40}},
            {"filename": "b.png", "rotated": "yes", "frame": 7},
            {"rotated": true},
            12
        ]})");
    std::string baseDir = dataDir();
    std::string plist = dir.path() + "pkg/atlas.json";
    LogCapture log;
    ZuTextureSet* page = mgr->loadImgPList(plist.c_str(), baseDir.c_str());
    ASSERT_NE(page, nullptr);
    EXPECT_EQ(log.count("has no filename", ZU_LOG_WARN), 1);
    EXPECT_EQ(page->gettype(), ZU_TEXTURE_TYPE_SET);
    std::string dirKey = baseDir.substr(0, baseDir.size() - 1);
    auto* a = dynamic_cast<ZuTexturePList*>(mgr->getTexture((dirKey + "/a.png").c_str(), false));
    auto* b = dynamic_cast<ZuTexturePList*>(mgr->getTexture((dirKey + "/b.png").c_str(), false));
    ASSERT_NE(a, nullptr);
    ASSERT_NE(b, nullptr);
    EXPECT_EQ(mgr->size(), 3);
    EXPECT_TRUE(a->rotated);
    EXPECT_TRUE(a->trimmed);
    EXPECT_FALSE(b->rotated) << "wrong type is ignored";
    EXPECT_FLOAT_EQ(a->dstRect.left, 1);
    EXPECT_FLOAT_EQ(a->dstRect.right, 3);
    EXPECT_FLOAT_EQ(a->dstRect.top, 3);
    EXPECT_FLOAT_EQ(a->dstRect.bottom, 7);
    EXPECT_FLOAT_EQ(a->srcRect.left, 0) << "missing x leaves 0 and w still adds";
    EXPECT_FLOAT_EQ(a->srcRect.right, 5);
    EXPECT_FLOAT_EQ(a->srcRect.bottom, 13);
    EXPECT_FLOAT_EQ(a->sourceWidth, 30);
    EXPECT_FLOAT_EQ(b->sourceHeight, 128) << "default";
    EXPECT_EQ(a->gettype(), ZU_TEXTURE_TYPE_PLIST);

    // Regions follow the page: not loaded until it is, then they share its name.
    ASSERT_TRUE(engine->pumpUntil([&] { return a->getbLoad(); }));
    a->commit();
    EXPECT_GT(a->getid(), 0);
    EXPECT_EQ(a->getid(), page->getid());
    EXPECT_EQ(a->getwidth(), 4);

    EXPECT_EQ(mgr->loadImgPList(plist.c_str(), baseDir.c_str()), page);
    EXPECT_EQ(mgr->size(), 3) << "no regions the second time";

    // Removing the regions lets the page go; the page name is not deleted twice.
    GLuint pageId = static_cast<GLuint>(page->getid());
    mgr->removeTexture(a);
    mgr->removeTexture(b);
    EXPECT_TRUE(glIsTexture(pageId));
    // The load thread may still hold its own reference for a moment after
    // publishing the pixels; ageing only counts from when it has let go.
    ASSERT_TRUE(engine->pumpUntil([&] { return page->count() == 1; }));
    for (int i = 0; i < 3; ++i) mgr->removeUnuseTexture();
    EXPECT_EQ(mgr->size(), 0);
    EXPECT_FALSE(glIsTexture(pageId));
}

TEST_F(TextureTest, BrokenAtlasDescriptionsAreRefused) {
    TempDir dir;
    dir.write("bad.json", "{ not json");
    dir.write("nometa.json", R"({"frames": []})");
    dir.write("noframes.json", R"({"meta": {"image": "rgb8.png"}})");
    LogCapture log;
    EXPECT_EQ(mgr->loadImgPList((dir.path() + "bad.json").c_str(), ""), nullptr);
    EXPECT_EQ(mgr->loadImgPList((dir.path() + "missing.json").c_str(), ""), nullptr);
    EXPECT_EQ(mgr->loadImgPList((dir.path() + "nometa.json").c_str(), ""), nullptr);
    EXPECT_NE(mgr->loadImgPList((dir.path() + "noframes.json").c_str(), dataDir().c_str()), nullptr);
    EXPECT_EQ(log.count("atlas", ZU_LOG_WARN), 4);
}
