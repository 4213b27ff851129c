// Recording into numbered streams and replaying them: order, the framebuffer
// stack, read-back in every form, picking and blits.
#include "basesys/ZuConfig.h"
#include "data/ZuDataSwap.h"
#include "data/ZuDataSwapCache.h"
#include "event/ZuPickEvent.h"
#include "render/OUTSTEAMTYPE.h"
#include "render/RENDERSTREAMTYPE.h"
#include "render/ZuBlitFboRenderObject.h"
#include "render/ZuFboBeginNoclearRenderObject.h"
#include "render/ZuFboBeginRenderObject.h"
#include "render/ZuFboEndRenderObject.h"
#include "render/ZuFboMgr.h"
#include "render/ZuFboObject.h"
#include "render/ZuFboSwapRenderObject.h"
#include "render/ZuMaterialColorSelect2d.h"
#include "render/ZuMultMaterialRenderObject.h"
#include "render/ZuMultMeshMatRenderObject.h"
#include "render/ZuPickColorRenderObject.h"
#include "render/ZuReadPixelRenderObjDataOut.h"
#include "render/ZuReadPixelRenderObject.h"
#include "render/ZuRenderCmd.h"
#include "render/ZuRenderData.h"
#include "render/ZuRenderMgr.h"
#include "render/ZuRenderScene.h"
#include "render/ZuRenderStream.h"
#include "basesys/ZuGlobalParam.h"
#include "render/ZuTexture.h"
#include "support/GLTest.h"
#include "support/LogCapture.h"
#include "test_texture_support.h"

using namespace texsupport;

namespace {

using Pixel = std::vector<uint8_t>;

// Counts its replays into a shared log, for order checks without GL.
class TraceCmd : public ZuRenderCmd {
public:
    TraceCmd(std::vector<int>* log, int tag) : log(log), tag(tag) {}
    void render() override { log->push_back(tag); }
    std::vector<int>* log;
    int tag;
};

class PickSpy : public ZuEventProc {
public:
    explicit PickSpy(ZuAppMain* app) : ZuEventProc(app) {}
    bool procEvent(ZuEvent* event) override {
        if (event->type == ZU_EVENT_PICK) {
            ids.push_back(static_cast<unsigned>(static_cast<ZuPickEvent*>(event)->pickedUid));
            names.push_back(event->name.c_str());
        }
        return true;
    }
    std::vector<unsigned> ids;
    std::vector<std::string> names;
};

class RenderStreamTest : public GLTest {
protected:
    void SetUp() override {
        GLTest::SetUp();
        engine = new Engine();
        app = engine->app;
        renderMgr = app->getGlobalMgr()->getRenderMgr();
        ASSERT_NE(renderMgr, nullptr);
        scene = renderMgr->createRenderScene("main");
        scene->setWinSize(64, 64);
    }
    void TearDown() override {
        for (ZuMaterial* m : materials) {
            m->destroy();
            m->release();
        }
        for (ZuRenderObject* o : objects) o->release();
        delete engine;
    }

    // A full-screen flat colour draw (0xAARRGGBB), recorded into a stream.
    ZuRenderObject* colourQuad(unsigned argb) {
        ZuMaterialColorSelect2d* material = new ZuMaterialColorSelect2d(app);
        material->init();
        material->setDepthTest(false);
        material->setColor(argb);
        materials.push_back(material);
        ZuRenderObject* object = keep(new ZuRenderObject(app));
        object->setMesh(renderMgr->getRenderData()->meshFull);
        object->setMaterial(material);
        return object;
    }
    template <typename T>
    T* keep(T* object) {
        objects.push_back(object);
        return object;
    }
    ZuFboObject* fbo(const char* name, int w, int h, float r, float g, float b, float a, bool swap = false) {
        ZuFboObject* target = app->getGlobalMgr()->getFboMgr()->createFboTexture(name, w, h, swap);
        target->setClearColor(r, g, b, a);
        return target;
    }
    static Pixel at(int x, int y) { return readPixels(x, y, 1, 1); }
    static Pixel rgba(uint8_t r, uint8_t g, uint8_t b, uint8_t a) { return {r, g, b, a}; }
    void dispatchEvents() {
        app->getGlobalMgr()->getEventMgr()->update(0);
        app->getGlobalMgr()->getEventMgr()->update(0);
    }

    Engine* engine = nullptr;
    ZuAppMain* app = nullptr;
    ZuRenderMgr* renderMgr = nullptr;
    ZuRenderScene* scene = nullptr;
    std::vector<ZuMaterial*> materials;
    std::vector<ZuRenderObject*> objects;
};

} // namespace

TEST_F(RenderStreamTest, StreamsReplayByNumberAndKeepRecordingOrderInside) {
    std::vector<int> log;
    scene->pushRenderCmd(RS_SPRITE, new TraceCmd(&log, 20));
    scene->pushRenderCmd(RS_BG_RENDER, new TraceCmd(&log, 7));
    scene->pushRenderCmd(RS_BG_RENDER, new TraceCmd(&log, 71));
    scene->pushRenderCmd(0, new TraceCmd(&log, 0));
    scene->pushRenderCmd(29, new TraceCmd(&log, 29));
    ZuRenderCmd* outside = new TraceCmd(&log, 30);
    outside->retain();
    scene->pushRenderCmd(30, outside);  // no such stream: released unplayed
    scene->pushRenderCmd(-1, new TraceCmd(&log, -1));
    EXPECT_EQ(outside->count(), 1u);
    outside->release();
    EXPECT_EQ(scene->pendingCount(), 5);
    scene->direct_render();
    EXPECT_EQ(log, (std::vector<int>{0, 7, 71, 20, 29}));
    EXPECT_EQ(scene->pendingCount(), 0);

    // The colour of the later stream wins, whatever the recording order.
    colourQuad(0xff00ff00)->pushCmd(scene, RS_SPRITE, "late");
    colourQuad(0xffff0000)->pushCmd(scene, RS_BG_RENDER, "early");
    scene->direct_render();
    EXPECT_EQ(at(32, 32), rgba(0, 255, 0, 255));
}

TEST_F(RenderStreamTest, HiddenScenesDropTheirCommandsAndLeaveTheWindowAlone) {
    glClearColor(0, 0, 1, 1);
    glClear(GL_COLOR_BUFFER_BIT);
    scene->setVisible(false);
    colourQuad(0xffff0000)->pushCmd(scene, RS_OVERLAY, "hidden");
    scene->direct_render();
    EXPECT_EQ(scene->pendingCount(), 0);
    EXPECT_EQ(at(5, 5), rgba(0, 0, 255, 255));

    scene->setVisible(true);
    scene->clearColor = ZuColor(1, 1, 0, 1);
    scene->direct_render();  // nothing recorded: the window takes the clear colour
    EXPECT_EQ(at(5, 5), rgba(255, 255, 0, 255));

    // A null scene records nothing and crashes nothing.
    colourQuad(0xffff0000)->pushCmd(nullptr, RS_OVERLAY, "none");
    scene->refresh();
    EXPECT_EQ(scene->pendingCount(), 0);
}

TEST_F(RenderStreamTest, ManagerReplaysByNameAndKeepsOneSceneAName) {
    EXPECT_EQ(renderMgr->createRenderScene("main"), scene);
    EXPECT_TRUE(renderMgr->renderScene("nobody"));
    std::vector<int> log;
    ZuRenderScene* other = renderMgr->createRenderScene("b_other");
    other->setWinSize(64, 64);
    scene->pushRenderCmd(1, new TraceCmd(&log, 1));
    other->pushRenderCmd(1, new TraceCmd(&log, 2));
    EXPECT_TRUE(renderMgr->renderScene("main"));
    EXPECT_EQ(log, (std::vector<int>{1}));
    scene->pushRenderCmd(1, new TraceCmd(&log, 1));
    EXPECT_TRUE(renderMgr->renderScene(""));  // all, in name order: "b_other" before "main"
    EXPECT_EQ(log, (std::vector<int>{1, 2, 1}));
    EXPECT_EQ(app->getGlobalParam()->activeRenderScene, nullptr);

    renderMgr->destroyRenderScene("b_other");
    renderMgr->destroyRenderScene(scene);
    EXPECT_EQ(renderMgr->getSceneCount(), 0);
    EXPECT_FALSE(renderMgr->renderScene(""));
    scene = nullptr;
}

TEST_F(RenderStreamTest, FramebufferBindsNestAndUnwindToTheWindow) {
    ZuFboObject* outer = fbo("outer", 16, 16, 1, 0, 0, 1);
    ZuFboObject* inner = fbo("inner", 8, 8, 0, 1, 0, 1);
    ZuFboBeginRenderObject* beginOuter = keep(new ZuFboBeginRenderObject(app));
    beginOuter->setFbo(outer);
    ZuFboBeginRenderObject* beginInner = keep(new ZuFboBeginRenderObject(app));
    beginInner->setFbo(inner);
    ZuFboEndRenderObject* endKeep = keep(new ZuFboEndRenderObject(app));
    endKeep->setClear(false);
    ZuFboEndRenderObject* end = keep(new ZuFboEndRenderObject(app));

    beginOuter->pushCmd(scene, RS_SCENE_BEGIN, "outer");
    colourQuad(0xff0000ff)->pushCmd(scene, RS_SCENE_BEGIN, "blue into outer");
    beginInner->pushCmd(scene, RS_FILTER, "inner");
    endKeep->pushCmd(scene, RS_FILTER, "back to outer, kept");
    end->pushCmd(scene, RS_SCENE_END, "back to the window");
    scene->direct_render();

    EXPECT_EQ(scene->curFbo, nullptr);
    EXPECT_EQ(outer->prevFbo, nullptr);
    EXPECT_EQ(inner->prevFbo, nullptr);
    GLint viewport[4];
    glGetIntegerv(GL_VIEWPORT, viewport);
    EXPECT_EQ(viewport[2], 64);
    EXPECT_EQ(viewport[3], 64);
    GLint bound = -1;
    glGetIntegerv(GL_FRAMEBUFFER_BINDING, &bound);
    EXPECT_EQ(bound, 0);
    // The outer target kept its blue through the nested pass; the inner one holds its clear colour.
    glBindFramebuffer(GL_FRAMEBUFFER, outer->getFboID());
    EXPECT_EQ(at(4, 4), rgba(0, 0, 255, 255));
    glBindFramebuffer(GL_FRAMEBUFFER, inner->getFboID());
    EXPECT_EQ(at(4, 4), rgba(0, 255, 0, 255));

    // Returning with clear wipes the enclosing target back to its clear colour.
    beginOuter->pushCmd(scene, RS_SCENE_BEGIN, "outer");
    colourQuad(0xff0000ff)->pushCmd(scene, RS_SCENE_BEGIN, "blue");
    beginInner->pushCmd(scene, RS_FILTER, "inner");
    end->pushCmd(scene, RS_FILTER, "back, cleared");
    end->pushCmd(scene, RS_SCENE_END, "window");
    scene->direct_render();
    glBindFramebuffer(GL_FRAMEBUFFER, outer->getFboID());
    EXPECT_EQ(at(4, 4), rgba(255, 0, 0, 255));
    glBindFramebuffer(GL_FRAMEBUFFER, 0);

    // An unbind with nothing bound does nothing.
    end->pushCmd(scene, RS_SCENE_END, "stray");
    scene->direct_render();
    EXPECT_EQ(scene->curFbo, nullptr);
}

TEST_F(RenderStreamTest, SwapAndNoclearBindWorkOnTheOpenTarget) {
    ZuFboObject* target = fbo("swapper", 8, 8, 0, 0, 0, 1, true);
    ZuFboBeginNoclearRenderObject* keepBegin = keep(new ZuFboBeginNoclearRenderObject(app));
    keepBegin->setFbo(target);
    ZuFboBeginRenderObject* begin = keep(new ZuFboBeginRenderObject(app));
    begin->setFbo(target);
    ZuFboEndRenderObject* end = keep(new ZuFboEndRenderObject(app));

    begin->pushCmd(scene, 1, "open");
    colourQuad(0xffff0000)->pushCmd(scene, 1, "red");
    keep(new ZuFboSwapRenderObject(app))->pushCmd(scene, 1, "swap");
    end->pushCmd(scene, 1, "close");
    scene->direct_render();
    // The red image moved to the second texture; the main one was cleared.
    ASSERT_NE(target->getSecondTex(), nullptr);
    drawTexture(static_cast<GLuint>(target->getSecondTex()->getid()), 0, 0, 64, 64);
    EXPECT_EQ(at(32, 32), rgba(255, 0, 0, 255));

    // Binding without clear keeps what the main texture holds.
    glBindFramebuffer(GL_FRAMEBUFFER, target->getFboID());
    glClearColor(0, 1, 1, 1);
    glClear(GL_COLOR_BUFFER_BIT);
    glBindFramebuffer(GL_FRAMEBUFFER, 0);
    keepBegin->pushCmd(scene, 1, "reopen");
    end->pushCmd(scene, 1, "close");
    scene->direct_render();
    glBindFramebuffer(GL_FRAMEBUFFER, target->getFboID());
    EXPECT_EQ(at(2, 2), rgba(0, 255, 255, 255));
    glBindFramebuffer(GL_FRAMEBUFFER, 0);
}

TEST_F(RenderStreamTest, RenderObjectsMakeOneCommandPerPart) {
    std::vector<int> log;
    ZuMultMeshMatRenderObject* pairs = keep(new ZuMultMeshMatRenderObject(app));
    ZuRenderData* data = renderMgr->getRenderData();
    ZuRenderObject* red = colourQuad(0xffff0000);
    ZuRenderObject* green = colourQuad(0xff00ff00);
    pairs->addRenderObj(data->meshBottomLeft, red->getMaterial());
    pairs->addRenderObj(data->meshTopRight, green->getMaterial());
    pairs->pushCmd(scene, RS_OVERLAY, "pairs");
    EXPECT_EQ(scene->getStream(RS_OVERLAY)->size(), 2u);
    scene->direct_render();
    EXPECT_EQ(at(16, 16), rgba(255, 0, 0, 255));
    EXPECT_EQ(at(48, 48), rgba(0, 255, 0, 255));
    EXPECT_EQ(at(48, 16), rgba(0, 0, 0, 0));

    // Materials in order: the last one drawn shows.
    ZuMultMaterialRenderObject* layered = keep(new ZuMultMaterialRenderObject(app));
    layered->setMesh(data->meshFull);
    layered->pushMaterial(green->getMaterial());
    layered->pushMaterial(red->getMaterial());
    layered->pushCmd(scene, RS_OVERLAY, "layers");
    EXPECT_EQ(scene->getStream(RS_OVERLAY)->size(), 2u);
    scene->direct_render();
    EXPECT_EQ(at(48, 16), rgba(255, 0, 0, 255));

    // A draw without a material draws nothing.
    ZuRenderObject* bare = keep(new ZuRenderObject(app));
    bare->setMesh(data->meshFull);
    bare->pushCmd(scene, RS_OVERLAY, "bare");
    scene->clearColor = ZuColor(0, 0, 1, 1);
    scene->direct_render();
    EXPECT_EQ(at(48, 16), rgba(0, 0, 255, 255));
}

TEST_F(RenderStreamTest, PicksReportTheIdUnderThePointOnce) {
    PickSpy* spy = new PickSpy(app);
    app->getGlobalMgr()->getEventMgr()->registProcer(spy);
    ZuPickColorRenderObject* pick = keep(new ZuPickColorRenderObject(app));
    pick->setNodeName("picker");

    const unsigned id = 0x7f102030;
    colourQuad(id)->pushCmd(scene, RS_SELECT_DRAW, "ids");
    pick->setPoint(0, 10);  // not a valid point: no read
    pick->pushCmd(scene, RS_SELECT_READ, "read");
    scene->direct_render();
    dispatchEvents();
    EXPECT_TRUE(spy->ids.empty());

    colourQuad(id)->pushCmd(scene, RS_SELECT_DRAW, "ids");
    pick->setPoint(10, 12);
    pick->pushCmd(scene, RS_SELECT_READ, "read");
    pick->pushCmd(scene, RS_SELECT_READ, "read again");  // the point was used up: no second read
    scene->direct_render();
    dispatchEvents();
    ASSERT_EQ(spy->ids.size(), 1u);
    EXPECT_EQ(spy->ids[0], id);
    EXPECT_EQ(spy->names[0], "picker");

    // The cleared pick colour means "nothing here".
    scene->clearColor = ZuColor(1, 1, 1, 1);
    pick->setPoint(10, 12);
    pick->pushCmd(scene, RS_SELECT_READ, "read");
    scene->direct_render();
    dispatchEvents();
    EXPECT_EQ(spy->ids.size(), 1u);
    app->getGlobalMgr()->getEventMgr()->unregistProcer(spy);
    spy->release();
}

TEST_F(RenderStreamTest, SynchronousReadsDeliverWholeFramesInEveryFormat) {
    app->getGlobalMgr()->getConfig()->glversion = 0x20000;
    // A 6 x 5 target whose rows each have their own colour.
    ZuFboObject* target = fbo("read_target", 6, 5, 0, 0, 0, 1);
    ZuFboBeginRenderObject* begin = keep(new ZuFboBeginRenderObject(app));
    begin->setFbo(target);
    ZuFboEndRenderObject* end = keep(new ZuFboEndRenderObject(app));
    auto paintRows = [&]() {
        glBindFramebuffer(GL_FRAMEBUFFER, target->getFboID());
        glEnable(GL_SCISSOR_TEST);
        for (int row = 0; row < 5; row++) {
            glScissor(0, row, 6, 1);
            glClearColor(row * 0.2f, 1.0f - row * 0.2f, 0.5f, 1.0f);
            glClear(GL_COLOR_BUFFER_BIT);
        }
        glDisable(GL_SCISSOR_TEST);
        glBindFramebuffer(GL_FRAMEBUFFER, 0);
    };
    paintRows();
    std::vector<uint8_t> expected = [&]() {
        glBindFramebuffer(GL_FRAMEBUFFER, target->getFboID());
        std::vector<uint8_t> all = readPixels(0, 0, 6, 5);
        glBindFramebuffer(GL_FRAMEBUFFER, 0);
        return all;
    }();

    ZuFboBeginNoclearRenderObject* open = keep(new ZuFboBeginNoclearRenderObject(app));
    open->setFbo(target);
    for (int format : {OST_RGBA, OST_BGRA, OST_NV12, OST_I420}) {
        ZuDataSwap* swap = new ZuDataSwap();
        int frameBytes = zuIsPackedRgbFormat(format) ? 6 * 5 * 4 : 45;
        swap->aplly(frameBytes);
        memset(swap->getData(), 0xEE, frameBytes);
        ZuReadPixelRenderObject* read = keep(new ZuReadPixelRenderObject(app));
        read->setSceneName("main");
        read->setParam(6, 5, format);
        read->setDataSwap(swap);
        EXPECT_EQ(read->getPbo(0), nullptr);  // no pixel buffers below ES 3
        open->pushCmd(scene, RS_DATA_TRANS, "open");
        read->pushCmd(scene, RS_DATA_TRANS, "read");
        end->pushCmd(scene, RS_DATA_TRANS, "close");
        scene->direct_render();
        EXPECT_TRUE(swap->isWrite()) << format;
        if (zuIsPackedRgbFormat(format)) {
            EXPECT_EQ(std::vector<uint8_t>(swap->getData(), swap->getData() + frameBytes), expected);
        } else {
            // One packed row (int(5 x 0.375)), then five pixels of the next:
            // 44 of the 45 bytes; the last stays as it was.
            EXPECT_EQ(std::vector<uint8_t>(swap->getData(), swap->getData() + 44),
                      std::vector<uint8_t>(expected.begin(), expected.begin() + 44));
            EXPECT_EQ(swap->getData()[44], 0xEE);
        }
        swap->release();
    }

    // A buffer too small for the frame is refused, not overrun.
    ZuDataSwap* small = new ZuDataSwap();
    small->aplly(10);
    ZuReadPixelRenderObject* read = keep(new ZuReadPixelRenderObject(app));
    read->setParam(6, 5, OST_RGBA);
    read->setDataSwap(small);
    open->pushCmd(scene, RS_DATA_TRANS, "open");
    read->pushCmd(scene, RS_DATA_TRANS, "read");
    end->pushCmd(scene, RS_DATA_TRANS, "close");
    {
        LogCapture quiet;
        scene->direct_render();
    }
    EXPECT_FALSE(small->isWrite());
    small->release();
}

TEST_F(RenderStreamTest, PixelBufferReadsArriveOneFrameLate) {
    app->getGlobalMgr()->getConfig()->glversion = 0x30000;
    ZuFboObject* target = fbo("pbo_target", 4, 4, 0, 0, 0, 1);
    ZuFboBeginRenderObject* begin = keep(new ZuFboBeginRenderObject(app));
    begin->setFbo(target);
    ZuFboEndRenderObject* end = keep(new ZuFboEndRenderObject(app));
    ZuDataSwap* swap = new ZuDataSwap();
    swap->aplly(4 * 4 * 4);
    ZuReadPixelRenderObject* read = keep(new ZuReadPixelRenderObject(app));
    read->setSceneName("pboscene");
    read->setParam(4, 4, OST_RGBA);
    read->setDataSwap(swap);
    ASSERT_NE(read->getPbo(0), nullptr);
    ASSERT_NE(read->getPbo(1), nullptr);

    const unsigned colours[3] = {0xffff0000, 0xff00ff00, 0xff0000ff};
    for (int frame = 0; frame < 3; frame++) {
        begin->pushCmd(scene, RS_DATA_TRANS, "open");
        colourQuad(colours[frame])->pushCmd(scene, RS_DATA_TRANS, "fill");
        read->pushCmd(scene, RS_DATA_TRANS, "read");
        end->pushCmd(scene, RS_DATA_TRANS, "close");
        read->setFlip(!read->getFlip());
        scene->direct_render();
        if (frame == 0) {
            EXPECT_FALSE(swap->isWrite()) << "the first frame delivers nothing";
            continue;
        }
        ASSERT_TRUE(swap->isWrite());
        // What arrives is the previous frame's colour.
        ZuColor previous;
        previous.setColorARGB(colours[frame - 1]);
        EXPECT_EQ(swap->getData()[0], static_cast<uint8_t>(previous.r * 255)) << frame;
        EXPECT_EQ(swap->getData()[1], static_cast<uint8_t>(previous.g * 255)) << frame;
        EXPECT_EQ(swap->getData()[2], static_cast<uint8_t>(previous.b * 255)) << frame;
    }
    swap->release();

    // Without its pixel buffers nothing is recorded on ES 3.
    ZuReadPixelRenderObject* unset = keep(new ZuReadPixelRenderObject(app));
    unset->pushCmd(scene, RS_DATA_TRANS, "read");
    EXPECT_EQ(scene->pendingCount(), 0);
}

TEST_F(RenderStreamTest, CachedReadsFillTheRingInOrder) {
    ZuFboObject* target = fbo("cache_target", 4, 2, 0, 0, 0, 1);
    ZuFboBeginRenderObject* begin = keep(new ZuFboBeginRenderObject(app));
    begin->setFbo(target);
    ZuFboEndRenderObject* end = keep(new ZuFboEndRenderObject(app));
    ZuDataSwapCache* ring = new ZuDataSwapCache();
    ring->init(3);
    ZuReadPixelRenderObjDataOut* read = keep(new ZuReadPixelRenderObjDataOut(app));
    read->setParam("main", 4, 2, OST_RGBA);
    read->setCache(ring);
    read->setMesh(renderMgr->getRenderData()->meshFull);

    const unsigned colours[2] = {0xffff0000, 0xff00ff00};
    for (unsigned colour : colours) {
        read->setMaterial(colourQuad(colour)->getMaterial());  // drawn before the read
        begin->pushCmd(scene, RS_DATA_TRANS, "open");
        read->pushCmd(scene, RS_DATA_TRANS, "read");
        end->pushCmd(scene, RS_DATA_TRANS, "close");
        scene->direct_render();
    }
    ZuDataSwap* first = ring->getReadData();
    ASSERT_NE(first, nullptr);
    EXPECT_GE(first->getSize(), 4 * 2 * 4);
    EXPECT_EQ(first->getData()[0], 255);
    ring->incRead();
    ZuDataSwap* second = ring->getReadData();
    ASSERT_NE(second, nullptr);
    EXPECT_EQ(second->getData()[1], 255);
    EXPECT_EQ(second->getData()[0], 0);
    ring->incRead();
    EXPECT_EQ(ring->getReadData(), nullptr);
    ring->destroy();
    ring->release();
}

TEST_F(RenderStreamTest, BlitsCopyBetweenFramebuffers) {
    ZuFboObject* src = fbo("blit_src", 8, 8, 1, 0, 1, 1);
    ZuFboObject* dest = fbo("blit_dest", 8, 8, 0, 0, 0, 1);
    src->bind();
    src->unbind();
    dest->bind();
    dest->unbind();
    ZuBlitFboRenderObject* blit = keep(new ZuBlitFboRenderObject(app));
    blit->setBlitFboObject(src, dest, 8, 8);
    blit->pushCmd(scene, RS_MODEL_UNDER, "resolve");
    scene->direct_render();
    glBindFramebuffer(GL_FRAMEBUFFER, dest->getFboID());
    EXPECT_EQ(at(3, 3), rgba(255, 0, 255, 255));
    glBindFramebuffer(GL_FRAMEBUFFER, 0);

    // Missing ends skip the copy.
    ZuBlitFboRenderObject* half = keep(new ZuBlitFboRenderObject(app));
    half->setBlitFboObject(nullptr, dest, 8, 8);
    half->pushCmd(scene, RS_MODEL_UNDER, "nothing");
    scene->direct_render();
}
