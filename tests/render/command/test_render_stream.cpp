// Recording into numbered streams and replaying them: order, hidden scenes,
// the manager, the framebuffer stack, render objects, picking and blits.
#include "basesys/ZuGlobalParam.h"
#include "event/ZuEventMgr.h"
#include "event/ZuEventProc.h"
#include "event/ZuPickEvent.h"
#include "render/command/RENDERSTREAMTYPE.h"
#include "render/fbo/ZuBlitFboRenderObject.h"
#include "render/fbo/ZuFboBeginNoclearRenderObject.h"
#include "render/fbo/ZuFboBeginRenderObject.h"
#include "render/fbo/ZuFboEndRenderObject.h"
#include "render/fbo/ZuFboSwapRenderObject.h"
#include "render/object/ZuMultMaterialRenderObject.h"
#include "render/object/ZuMultMeshMatRenderObject.h"
#include "render/object/ZuMultMeshRenderObject.h"
#include "render/object/ZuPickColorRenderObject.h"
#include "render/command/ZuRenderCmd.h"
#include "render/mesh/ZuRenderMesh.h"
#include "render/command/ZuRenderStream.h"
#include "render/texture/ZuTexture.h"
#include "support/LogCapture.h"
#include "render/test_render_support.h"

#include <string>

using namespace rendersupport;
using texsupport::drawTexture;

namespace {

// Logs its tag when replayed, and which scene the engine said was replaying.
class TraceCmd : public ZuRenderCmd {
public:
    TraceCmd(std::vector<int>* log, int tag, ZuGlobalParam* param = nullptr) : log(log), tag(tag), param(param) {}
    void render() override {
        log->push_back(tag);
        if (param) active = param->activeRenderScene;
    }
    std::vector<int>* log;
    int tag;
    ZuGlobalParam* param;
    ZuRenderScene* active = nullptr;
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

class RenderStreamTest : public RenderFixture {
protected:
    // Events pushed during a frame arrive with the next update.
    void dispatchEvents() {
        app->getGlobalMgr()->getEventMgr()->update(0);
        app->getGlobalMgr()->getEventMgr()->update(0);
    }
};

} // namespace

TEST_F(RenderStreamTest, StreamsReplayByNumberAndKeepRecordingOrderInside) {
    std::vector<int> log;
    scene->pushRenderCmd(RS_SPRITE, new TraceCmd(&log, 20));
    scene->pushRenderCmd(RS_BG_RENDER, new TraceCmd(&log, 7));
    scene->pushRenderCmd(RS_BG_RENDER, new TraceCmd(&log, 71));
    scene->pushRenderCmd(0, new TraceCmd(&log, 0));
    scene->pushRenderCmd(29, new TraceCmd(&log, 29));
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

TEST_F(RenderStreamTest, StreamNumbersOutsideTheScenesAreRefusedAndReleased) {
    std::vector<int> log;
    ZuRenderCmd* above = new TraceCmd(&log, 30);
    above->setName("stray");
    above->retain();
    LogCapture capture;
    scene->pushRenderCmd(RS_STREAM_COUNT, above);
    scene->pushRenderCmd(-1, new TraceCmd(&log, -1));
    colourQuad(0xffff0000)->pushCmd(scene, 99, "far away");
    EXPECT_EQ(above->count(), 1u) << "the stream's reference was given back";
    EXPECT_EQ(capture.count("\"stray\" for stream 30 refused", ZU_LOG_WARN), 1);
    EXPECT_EQ(capture.count("\"far away\" for stream 99 refused", ZU_LOG_WARN), 1);
    above->release();
    EXPECT_EQ(scene->pendingCount(), 0);
    scene->direct_render();
    EXPECT_TRUE(log.empty());
    EXPECT_EQ(scene->getStream(30), nullptr);
    EXPECT_NE(scene->getStream(29), nullptr);
}

TEST_F(RenderStreamTest, HiddenScenesDropTheirCommandsAndLeaveTheWindowAlone) {
    glClearColor(0, 0, 1, 1);
    glClear(GL_COLOR_BUFFER_BIT);
    scene->setVisible(false);
    colourQuad(0xffff0000)->pushCmd(scene, RS_OVERLAY, "hidden");
    scene->direct_render();
    EXPECT_EQ(scene->pendingCount(), 0);
    EXPECT_EQ(at(5, 5), rgba(0, 0, 255, 255)) << "neither drawn nor cleared";

    scene->setVisible(true);
    scene->clearColor = ZuColor(1, 1, 0, 1);
    scene->direct_render();  // nothing recorded: the window takes the clear colour
    EXPECT_EQ(at(5, 5), rgba(255, 255, 0, 255));

    // A null scene records nothing; refresh throws away what was recorded.
    colourQuad(0xffff0000)->pushCmd(nullptr, RS_OVERLAY, "none");
    colourQuad(0xffff0000)->pushCmd(scene, RS_OVERLAY, "dropped");
    scene->refresh();
    EXPECT_EQ(scene->pendingCount(), 0);
    scene->direct_render();
    EXPECT_EQ(at(5, 5), rgba(255, 255, 0, 255));
}

TEST_F(RenderStreamTest, ManagerReplaysByNameAndKeepsOneSceneAName) {
    ZuGlobalParam* param = app->getGlobalParam();
    EXPECT_EQ(renderMgr->createRenderScene("main"), scene);
    EXPECT_TRUE(renderMgr->renderScene("nobody"));
    std::vector<int> log;
    ZuRenderScene* other = renderMgr->createRenderScene("b_other");
    other->setWinSize(64, 64);
    TraceCmd* inMain = new TraceCmd(&log, 1, param);
    inMain->retain();
    scene->pushRenderCmd(1, inMain);
    other->pushRenderCmd(1, new TraceCmd(&log, 2));
    EXPECT_TRUE(renderMgr->renderScene("main"));
    EXPECT_EQ(log, (std::vector<int>{1}));
    EXPECT_EQ(inMain->active, scene) << "the replaying scene is the engine's current one";
    EXPECT_EQ(param->activeRenderScene, nullptr) << "and none after the replay";
    inMain->release();

    // The empty name replays every scene in name order: "b_other" before "main".
    scene->pushRenderCmd(1, new TraceCmd(&log, 1));
    app->getGlobalMgr()->renderScene("");
    EXPECT_EQ(log, (std::vector<int>{1, 2, 1}));

    renderMgr->destroyRenderScene("b_other");
    renderMgr->destroyRenderScene(scene);
    EXPECT_EQ(renderMgr->getRenderScene("main"), nullptr);
    EXPECT_EQ(renderMgr->getSceneCount(), 0);
    EXPECT_FALSE(renderMgr->renderScene(""));
    EXPECT_FALSE(renderMgr->renderScene("main"));
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
    std::vector<int> log;

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
    EXPECT_EQ(contentOf(outer, 4, 4, 1, 1), rgba(0, 0, 255, 255));
    EXPECT_EQ(contentOf(inner, 4, 4, 1, 1), rgba(0, 255, 0, 255));

    // Returning with clear wipes the enclosing target back to its clear colour,
    // and its viewport is the target's own again.
    beginOuter->pushCmd(scene, RS_SCENE_BEGIN, "outer");
    colourQuad(0xff0000ff)->pushCmd(scene, RS_SCENE_BEGIN, "blue");
    beginInner->pushCmd(scene, RS_FILTER, "inner");
    end->pushCmd(scene, RS_FILTER, "back, cleared");
    scene->direct_render();
    EXPECT_EQ(scene->curFbo, outer) << "left open at the end of the frame";
    glGetIntegerv(GL_VIEWPORT, viewport);
    EXPECT_EQ(viewport[2], 16);
    EXPECT_EQ(contentOf(outer, 4, 4, 1, 1), rgba(255, 0, 0, 255));

    // Each replay starts from the window; an unbind with nothing bound does nothing.
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
    ZuFboSwapRenderObject* swap = keep(new ZuFboSwapRenderObject(app));

    begin->pushCmd(scene, 1, "open");
    colourQuad(0xffff0000)->pushCmd(scene, 1, "red");
    swap->pushCmd(scene, 1, "swap");
    end->pushCmd(scene, 1, "close");
    swap->pushCmd(scene, 2, "swap with nothing open");
    scene->direct_render();
    // The red image moved to the second texture; the main one was cleared.
    ASSERT_NE(target->getSecondTex(), nullptr);
    EXPECT_EQ(contentOf(target, 2, 2, 1, 1), rgba(0, 0, 0, 255));
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
    EXPECT_EQ(contentOf(target, 2, 2, 1, 1), rgba(0, 255, 255, 255));
}

TEST_F(RenderStreamTest, RenderObjectsMakeOneCommandPerPart) {
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

TEST_F(RenderStreamTest, MultiMeshCommandsKeepTheirMeshesUntilReplayed) {
    ZuMultMeshRenderObject* meshes = keep(new ZuMultMeshRenderObject(app));
    meshes->setMaterial(colourQuad(0xff00ff00)->getMaterial());
    ZuRenderMesh* left = ZuRenderData::createRectMesh(1, 2);   // x -0.5 .. 0.5
    ZuRenderMesh* right = ZuRenderData::createRectMesh(2, 1);  // y -0.5 .. 0.5
    meshes->addMesh(left);
    meshes->addMesh(right);
    meshes->pushMesh(left);  // does nothing
    meshes->pushCmd(scene, RS_OVERLAY, "meshes");
    EXPECT_EQ(scene->getStream(RS_OVERLAY)->size(), 2u);
    // The node lets its meshes go before the frame replays: the commands still hold them.
    meshes->clearMeshes();
    left->release();
    right->release();
    scene->direct_render();
    EXPECT_EQ(at(32, 2), rgba(0, 255, 0, 255));
    EXPECT_EQ(at(2, 32), rgba(0, 255, 0, 255));
    EXPECT_EQ(at(2, 2), rgba(0, 0, 0, 0));
}

TEST_F(RenderStreamTest, PicksReportTheIdUnderThePointOnce) {
    PickSpy* spy = new PickSpy(app);
    app->getGlobalMgr()->getEventMgr()->registProcer(spy);
    ZuPickColorRenderObject* pick = keep(new ZuPickColorRenderObject(app));
    pick->setNodeName("picker");
    const unsigned id = 0x7f102030;

    // Points on the edge are not read.
    for (auto point : {std::make_pair(0, 10), std::make_pair(10, 0)}) {
        colourQuad(id)->pushCmd(scene, RS_SELECT_DRAW, "ids");
        pick->setPoint(point.first, point.second);
        pick->pushCmd(scene, RS_SELECT_READ, "read");
        scene->direct_render();
    }
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

TEST_F(RenderStreamTest, BlitsCopyBetweenFramebuffersOnEs3Only) {
    setGlVersion(0x30000);
    ZuFboObject* src = fbo("blit_src", 8, 8, 1, 0, 1, 1);
    ZuFboObject* dest = fbo("blit_dest", 8, 8, 0, 0, 0, 1);
    src->bind();  // fills it with its clear colour
    src->unbind();
    dest->bind();
    dest->unbind();
    ZuBlitFboRenderObject* blit = keep(new ZuBlitFboRenderObject(app));
    blit->setBlitFboObject(src, dest, 8, 8);
    blit->pushCmd(scene, RS_MODEL_UNDER, "resolve");
    scene->direct_render();
    EXPECT_EQ(contentOf(dest, 3, 3, 1, 1), rgba(255, 0, 255, 255));
    EXPECT_EQ(contentOf(dest, 7, 7, 1, 1), rgba(255, 0, 255, 255));

    // A missing end skips the copy.
    ZuBlitFboRenderObject* half = keep(new ZuBlitFboRenderObject(app));
    half->setBlitFboObject(nullptr, dest, 8, 8);
    half->pushCmd(scene, RS_MODEL_UNDER, "nothing");
    EXPECT_EQ(scene->pendingCount(), 1);
    scene->direct_render();

    // Below ES 3 no blit is recorded, and the refusal is logged.
    setGlVersion(0x20000);
    LogCapture capture;
    blit->pushCmd(scene, RS_MODEL_UNDER, "es2 resolve");
    EXPECT_EQ(scene->pendingCount(), 0);
    EXPECT_EQ(capture.count("\"es2 resolve\" refused", ZU_LOG_WARN), 1);
}
