// Reading finished frames back: synchronous reads in every format, the
// draw-then-read form, pixel buffers one frame late, the ring of output
// buffers, and single-pixel samples.
#include "data/ZuDataSwap.h"
#include "data/ZuDataSwapCache.h"
#include "render/OUTSTEAMTYPE.h"
#include "render/command/RENDERSTREAMTYPE.h"
#include "render/fbo/ZuFboBeginNoclearRenderObject.h"
#include "render/fbo/ZuFboBeginRenderObject.h"
#include "render/fbo/ZuFboEndRenderObject.h"
#include "render/object/ZuMultMeshMatRenderObject.h"
#include "render/fbo/ZuPboMgr.h"
#include "render/fbo/ZuPboObject.h"
#include "render/object/ZuReadPixelRenderObjDataOut.h"
#include "render/object/ZuReadPixelRenderObject.h"
#include "render/object/ZuRenderPickReadDataObject.h"
#include "support/LogCapture.h"
#include "render/test_render_support.h"

#include <algorithm>
#include <chrono>
#include <cstring>
#include <thread>

using namespace rendersupport;

namespace {

class ReadBackTest : public RenderFixture {
protected:
    void SetUp() override {
        RenderFixture::SetUp();
        open = keep(new ZuFboBeginNoclearRenderObject(app));
        close = keep(new ZuFboEndRenderObject(app));
    }

    // A 6 x 5 target whose rows each have their own colour; returns its pixels.
    Pixel stripedTarget() {
        target = fbo("read_target", 6, 5, 0, 0, 0, 1);
        glBindFramebuffer(GL_FRAMEBUFFER, target->getFboID());
        glEnable(GL_SCISSOR_TEST);
        for (int row = 0; row < 5; row++) {
            glScissor(0, row, 6, 1);
            glClearColor(row * 0.2f, 1.0f - row * 0.2f, 0.5f, 1.0f);
            glClear(GL_COLOR_BUFFER_BIT);
        }
        glDisable(GL_SCISSOR_TEST);
        glBindFramebuffer(GL_FRAMEBUFFER, 0);
        open->setFbo(target);
        return contentOf(target, 0, 0, 6, 5);
    }

    // One frame: open the target without clearing, run the read object, close.
    void readFrame(ZuRenderObject* read) {
        open->pushCmd(scene, RS_DATA_TRANS, "open");
        read->pushCmd(scene, RS_DATA_TRANS, "read");
        close->pushCmd(scene, RS_DATA_TRANS, "close");
        scene->direct_render();
    }

    static ZuDataSwap* markedSwap(int bytes) {
        ZuDataSwap* swap = new ZuDataSwap();
        swap->aplly(bytes);
        memset(swap->getData(), 0xEE, bytes);
        return swap;
    }
    static Pixel bytesOf(ZuDataSwap* swap, int from, int to) {
        return Pixel(swap->getData() + from, swap->getData() + to);
    }

    ZuFboObject* target = nullptr;
    ZuFboBeginNoclearRenderObject* open = nullptr;
    ZuFboEndRenderObject* close = nullptr;
};

} // namespace

TEST_F(ReadBackTest, SynchronousReadsDeliverExactlyOneFrameInEveryFormat) {
    setGlVersion(0x20000);
    Pixel expected = stripedTarget();
    for (int format : {OST_RGBA, OST_BGRA, OST_NV12, OST_NV21, OST_YV12, OST_I420}) {
        // YUV: 6 x 5 x 1.5 = 45 bytes, from one packed row (int(5 x 0.375))
        // and five pixels of the next; the 45th byte is not a whole pixel.
        int frameBytes = zuIsPackedRgbFormat(format) ? 6 * 5 * 4 : 45;
        ZuDataSwap* swap = markedSwap(frameBytes + 8);
        ZuReadPixelRenderObject* read = keep(new ZuReadPixelRenderObject(app));
        read->setSceneName("main");
        read->setParam(6, 5, format);
        read->setDataSwap(swap);
        read->setMaterial(colourQuad(0xffff0000)->getMaterial());
        read->setMesh(renderMgr->getRenderData()->meshFull);
        EXPECT_EQ(read->getPbo(0), nullptr) << "no pixel buffers below ES 3";
        readFrame(read);
        EXPECT_TRUE(swap->isWrite()) << format;
        int arrived = zuIsPackedRgbFormat(format) ? frameBytes : 44;
        EXPECT_EQ(bytesOf(swap, 0, arrived), Pixel(expected.begin(), expected.begin() + arrived))
            << "format " << format << ": its mesh is not drawn";
        EXPECT_EQ(bytesOf(swap, arrived, frameBytes + 8), Pixel(frameBytes + 8 - arrived, 0xEE))
            << "format " << format << ": nothing past the frame";
        swap->release();
    }

    // A buffer too small for the frame is refused, not overrun; an unknown format reads nothing.
    ZuDataSwap* small = markedSwap(10);
    ZuReadPixelRenderObject* read = keep(new ZuReadPixelRenderObject(app));
    read->setParam(6, 5, OST_RGBA);
    read->setDataSwap(small);
    LogCapture capture;
    readFrame(read);
    EXPECT_FALSE(small->isWrite());
    EXPECT_EQ(capture.count("read-back of 120 bytes refused", ZU_LOG_WARN), 1);
    read->setParam(6, 5, 7);
    readFrame(read);
    EXPECT_FALSE(small->isWrite());
    EXPECT_EQ(bytesOf(small, 0, 10), Pixel(10, 0xEE));
    small->release();

    // Without a swap there is nothing to read into.
    ZuReadPixelRenderObject* bare = keep(new ZuReadPixelRenderObject(app));
    bare->setParam(6, 5, OST_RGBA);
    readFrame(bare);
}

TEST_F(ReadBackTest, DrawThenReadFormDrawsItsMeshAndSkipsThePartialRow) {
    setGlVersion(0x20000);
    app->getGlobalMgr()->getConfig()->usepbo = true;
    Pixel expected = stripedTarget();
    ZuDataSwap* swap = markedSwap(45);
    ZuReadPixelRenderObject* read = keep(new ZuReadPixelRenderObject(app));
    read->setNodeName("out");
    read->setParam(6, 5, OST_NV12);
    read->setDataSwap(swap);
    readFrame(read);  // no material: nothing drawn, the target as it was is read
    ASSERT_TRUE(swap->isWrite());
    EXPECT_EQ(bytesOf(swap, 0, 24), Pixel(expected.begin(), expected.begin() + 24));
    EXPECT_EQ(bytesOf(swap, 24, 45), Pixel(21, 0xEE)) << "only the whole packed row";

    ZuDataSwap* rgbaSwap = markedSwap(6 * 5 * 4);
    read->setParam(6, 5, OST_RGBA);
    read->setDataSwap(rgbaSwap);
    read->setMesh(renderMgr->getRenderData()->meshFull);
    read->setMaterial(colourQuad(0xff0000ff)->getMaterial());
    readFrame(read);
    ASSERT_TRUE(rgbaSwap->isWrite());
    EXPECT_EQ(bytesOf(rgbaSwap, 0, 4), rgba(0, 0, 255, 255)) << "drawn before the read";
    EXPECT_EQ(bytesOf(rgbaSwap, 116, 120), rgba(0, 0, 255, 255));
    swap->release();
    rgbaSwap->release();
}

TEST_F(ReadBackTest, PixelBufferReadsArriveOneFrameLate) {
    setGlVersion(0x30000);
    ZuFboObject* fill = fbo("pbo_target", 4, 4, 0, 0, 0, 1);
    ZuFboBeginRenderObject* begin = keep(new ZuFboBeginRenderObject(app));
    begin->setFbo(fill);
    ZuDataSwap* swap = markedSwap(4 * 4 * 4);
    ZuReadPixelRenderObject* read = keep(new ZuReadPixelRenderObject(app));
    read->setSceneName("pboscene");
    read->setParam(4, 4, OST_RGBA);
    read->setDataSwap(swap);
    ZuPboObject* pbo0 = read->getPbo(0);
    ZuPboObject* pbo1 = read->getPbo(1);
    ASSERT_NE(pbo0, nullptr);
    ASSERT_NE(pbo1, nullptr);
    ZuPboMgr* pboMgr = app->getGlobalMgr()->getPboMgr();
    EXPECT_EQ(pboMgr->getPboObject("pboscenepbo0"), pbo0);
    EXPECT_EQ(pboMgr->getPboObject("pboscenepbo1"), pbo1);
    read->setParam(4, 4, OST_RGBA);
    EXPECT_EQ(read->getPbo(0), pbo0) << "made once";

    const unsigned colours[3] = {0xffff0000, 0xff00ff00, 0xff0000ff};
    for (int frame = 0; frame < 3; frame++) {
        begin->pushCmd(scene, RS_DATA_TRANS, "open");
        colourQuad(colours[frame])->pushCmd(scene, RS_DATA_TRANS, "fill");
        read->pushCmd(scene, RS_DATA_TRANS, "read");
        close->pushCmd(scene, RS_DATA_TRANS, "close");
        read->setFlip(!read->getFlip());  // the owner's toggle: the other buffer next frame
        scene->direct_render();
        if (frame == 0) {
            EXPECT_FALSE(swap->isWrite()) << "the first frame delivers nothing";
            EXPECT_EQ(bytesOf(swap, 0, 4), Pixel(4, 0xEE));
            continue;
        }
        ASSERT_TRUE(swap->isWrite());
        // What arrives is the previous frame's colour.
        ZuColor previous;
        previous.setColorARGB(colours[frame - 1]);
        Pixel want = rgba(static_cast<uint8_t>(previous.r * 255), static_cast<uint8_t>(previous.g * 255),
                          static_cast<uint8_t>(previous.b * 255), 255);
        EXPECT_EQ(bytesOf(swap, 0, 4), want) << frame;
        EXPECT_EQ(bytesOf(swap, 60, 64), want) << frame;
    }
    swap->release();

    // Without its pixel buffers nothing is recorded on ES 3.
    ZuReadPixelRenderObject* unset = keep(new ZuReadPixelRenderObject(app));
    unset->pushCmd(scene, RS_DATA_TRANS, "read");
    EXPECT_EQ(scene->pendingCount(), 0);

    // The buffers go back to the pool with their object.
    objects.erase(std::find(objects.begin(), objects.end(), read));
    read->release();
    EXPECT_EQ(pboMgr->getPboObject("pboscenepbo0"), nullptr);
    EXPECT_EQ(pboMgr->getPboObject("pboscenepbo1"), nullptr);
}

// The ring is filled on every GL version: on ES 3 too the read is synchronous.
TEST_F(ReadBackTest, CachedReadsFillTheRingInOrder) {
    for (int version : {0x20000, 0x30000}) {
        setGlVersion(version);
        ZuFboObject* fill = fbo("cache_target", 4, 8, 0, 0, 0, 1);
        open->setFbo(fill);
        ZuDataSwapCache* ring = new ZuDataSwapCache();
        ring->init(3);
        ZuReadPixelRenderObjDataOut* read = keep(new ZuReadPixelRenderObjDataOut(app));
        read->setParam("main", 4, 2, OST_RGBA);
        read->setCache(ring);
        read->setMesh(renderMgr->getRenderData()->meshFull);

        const unsigned colours[2] = {0xffff0000, 0xff00ff00};
        for (unsigned colour : colours) {
            read->setMaterial(colourQuad(colour)->getMaterial());  // drawn before the read
            readFrame(read);
        }
        ZuDataSwap* first = ring->getReadData();
        ASSERT_NE(first, nullptr) << version;
        EXPECT_EQ(first->getSize(), 4 * 2 * 4);
        EXPECT_EQ(bytesOf(first, 28, 32), rgba(255, 0, 0, 255)) << version;
        ring->incRead();
        ZuDataSwap* second = ring->getReadData();
        ASSERT_NE(second, nullptr);
        EXPECT_EQ(bytesOf(second, 0, 4), rgba(0, 255, 0, 255)) << version;
        ring->incRead();
        EXPECT_EQ(ring->getReadData(), nullptr);

        // A YUV frame of 4 x 8 is 48 bytes: three whole packed rows.
        read->setParam("main", 4, 8, OST_NV21);
        readFrame(read);
        ZuDataSwap* yuv = ring->getReadData();
        ASSERT_NE(yuv, nullptr);
        EXPECT_EQ(yuv->getSize(), 48);
        EXPECT_EQ(bytesOf(yuv, 44, 48), rgba(0, 255, 0, 255)) << "the third row arrived";
        ring->incRead();

        // A 4 x 2 one is 12 bytes, but its one packed row is read whole, into
        // the first slot again: its red frame is overwritten up to that row only.
        read->setParam("main", 4, 2, OST_NV21);
        readFrame(read);
        ASSERT_EQ(ring->getReadData(), first);
        EXPECT_EQ(bytesOf(first, 12, 16), rgba(0, 255, 0, 255));
        EXPECT_EQ(bytesOf(first, 16, 20), rgba(255, 0, 0, 255));
        ring->incRead();
        ring->destroy();
        ring->release();
        app->getGlobalMgr()->getFboMgr()->destroyFboTexture(fill);
    }
}

TEST_F(ReadBackTest, CachedReadIntoAFullRingDropsTheFrame) {
    ZuFboObject* fill = fbo("full_target", 4, 2, 0, 0, 0, 1);
    open->setFbo(fill);
    ZuDataSwapCache* ring = new ZuDataSwapCache();
    ring->init(2);
    ring->setBufSize(32);
    ZuDataSwap* slot0 = ring->getWriteData();
    memset(slot0->getData(), 0xAB, 32);
    ring->incWrite();
    ZuDataSwap* slot1 = ring->getWriteData();
    memset(slot1->getData(), 0xCD, 32);
    // The writer that fills the ring waits for the reader, as the render thread would.
    std::thread writer([ring]() { ring->incWrite(); });
    auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(2);
    while (!ring->isFull() && std::chrono::steady_clock::now() < deadline) std::this_thread::yield();
    ASSERT_TRUE(ring->isFull());

    ZuReadPixelRenderObjDataOut* read = keep(new ZuReadPixelRenderObjDataOut(app));
    read->setParam("main", 4, 2, OST_RGBA);
    read->setCache(ring);
    read->setMesh(renderMgr->getRenderData()->meshFull);
    read->setMaterial(colourQuad(0xff00ff00)->getMaterial());
    readFrame(read);
    EXPECT_EQ(contentOf(fill, 0, 0, 1, 1), rgba(0, 255, 0, 255)) << "the draw still ran";
    EXPECT_EQ(bytesOf(slot0, 0, 32), Pixel(32, 0xAB));
    EXPECT_EQ(bytesOf(slot1, 0, 32), Pixel(32, 0xCD));
    EXPECT_TRUE(ring->isFull());
    EXPECT_EQ(ring->getReadData(), slot0);

    ring->incRead();  // frees a slot and wakes the writer
    writer.join();
    EXPECT_EQ(ring->getReadData(), slot1);
    ring->incRead();
    EXPECT_EQ(ring->getReadData(), nullptr) << "the dropped frame moved no counter";
    ring->destroy();
    ring->release();

    // No ring: nothing drawn, nothing read.
    ZuReadPixelRenderObjDataOut* none = keep(new ZuReadPixelRenderObjDataOut(app));
    none->setParam("main", 4, 2, OST_RGBA);
    none->setMesh(renderMgr->getRenderData()->meshFull);
    none->setMaterial(colourQuad(0xffff0000)->getMaterial());
    readFrame(none);
    EXPECT_EQ(contentOf(fill, 0, 0, 1, 1), rgba(0, 255, 0, 255));
}

TEST_F(ReadBackTest, PickedDataSamplesTwelvePointsBeforeItsDraw) {
    ZuRenderData* data = renderMgr->getRenderData();
    ZuMultMeshMatRenderObject* quarters = keep(new ZuMultMeshMatRenderObject(app));
    quarters->addRenderObj(data->meshBottomLeft, colourQuad(0xffff0000)->getMaterial());
    quarters->addRenderObj(data->meshTopRight, colourQuad(0xff00ff00)->getMaterial());
    quarters->pushCmd(scene, RS_FACE_MASK, "quarters");

    ZuDataSwap* points = new ZuDataSwap();
    points->aplly(12 * 2 * sizeof(float));
    float xy[24];
    for (int i = 0; i < 12; i++) {
        bool lower = i % 2 == 0;
        xy[2 * i] = lower ? 10.7f : 50.2f;  // truncated, not rounded
        xy[2 * i + 1] = lower ? 5.9f + i : 40.0f + i;
    }
    memcpy(points->getData(), xy, sizeof xy);
    ZuDataSwap* pixels = new ZuDataSwap();
    pixels->aplly(12 * 4);
    ZuRenderPickReadDataObject* sample = keep(new ZuRenderPickReadDataObject(app));
    sample->setSwaps(pixels, points);
    sample->setMesh(data->meshFull);
    sample->setMaterial(colourQuad(0xff0000ff)->getMaterial());
    sample->pushCmd(scene, RS_OVERLAY, "sample");
    scene->direct_render();

    for (int i = 0; i < 12; i++) {
        Pixel want = i % 2 == 0 ? rgba(255, 0, 0, 255) : rgba(0, 255, 0, 255);
        EXPECT_EQ(bytesOf(pixels, 4 * i, 4 * i + 4), want) << i;
    }
    EXPECT_EQ(at(10, 5), rgba(0, 0, 255, 255)) << "its draw runs after the reads";

    // Short buffers skip the reads but not the draw.
    ZuDataSwap* shortPoints = new ZuDataSwap();
    shortPoints->aplly(8);
    memset(pixels->getData(), 0, 48);
    sample->setSwaps(pixels, shortPoints);
    sample->setMaterial(colourQuad(0xffffffff)->getMaterial());
    sample->pushCmd(scene, RS_OVERLAY, "short");
    scene->direct_render();
    EXPECT_EQ(bytesOf(pixels, 0, 48), Pixel(48, 0));
    EXPECT_EQ(at(10, 5), rgba(255, 255, 255, 255));
    shortPoints->release();
    points->release();
    pixels->release();
}
