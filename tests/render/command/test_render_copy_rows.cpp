// The two commands that stand in for costlier passes on the camera path: a
// texel copy between framebuffers in place of a one-to-one draw, and a draw
// limited to the rows a read-back fetches.
#include "render/command/RENDERSTREAMTYPE.h"
#include "render/fbo/ZuFboBeginRenderObject.h"
#include "render/fbo/ZuFboEndRenderObject.h"
#include "render/object/ZuFboCopyRenderObject.h"
#include "render/object/ZuRowsRenderObject.h"
#include "render/test_render_support.h"

using namespace rendersupport;

namespace {

class CopyAndRowsTest : public RenderFixture {
protected:
    // Opens target, records what fill pushes, closes it, replays.
    template <typename Fill>
    void into(ZuFboObject* target, Fill fill) {
        ZuFboBeginRenderObject* begin = keep(new ZuFboBeginRenderObject(app));
        begin->setFbo(target);
        ZuFboEndRenderObject* end = keep(new ZuFboEndRenderObject(app));
        begin->pushCmd(scene, RS_BG_RENDER, "open");
        fill();
        end->pushCmd(scene, RS_BG_RENDER, "close");
        scene->direct_render();
    }
};

} // namespace

TEST_F(CopyAndRowsTest, CopyReplacesTheOpenTargetsPictureAndNeedsOne) {
    ZuFboObject* source = fbo("copy_src", 8, 8, 0, 0, 0, 1);
    ZuFboObject* target = fbo("copy_dst", 8, 8, 0, 0, 1, 1, true);
    into(source, [&] { colourQuad(0xffff0000)->pushCmd(scene, RS_BG_RENDER, "red"); });
    ZuFboCopyRenderObject* copy = keep(new ZuFboCopyRenderObject(app));
    copy->setSource(source);
    into(target, [&] { copy->pushCmd(scene, RS_BG_RENDER, "copy"); });
    EXPECT_EQ(contentOf(target, 0, 0, 1, 1), rgba(255, 0, 0, 255));
    EXPECT_EQ(contentOf(target, 7, 7, 1, 1), rgba(255, 0, 0, 255));
    // The target is bound again afterwards: a draw after the copy lands in it.
    into(target, [&] {
        copy->pushCmd(scene, RS_BG_RENDER, "copy");
        colourQuad(0xff00ff00)->pushCmd(scene, RS_BG_RENDER, "green");
    });
    EXPECT_EQ(contentOf(target, 4, 4, 1, 1), rgba(0, 255, 0, 255));

    // With nothing open, or nothing to copy, the command does nothing.
    copy->pushCmd(scene, RS_BG_RENDER, "copy to the window");
    copy->setSource(nullptr);
    copy->pushCmd(scene, RS_BG_RENDER, "copy of nothing");
    EXPECT_EQ(scene->pendingCount(), 1);
    scene->direct_render();
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
    EXPECT_EQ(contentOf(target, 4, 4, 1, 1), rgba(0, 255, 0, 255));
}

TEST_F(CopyAndRowsTest, RowsDrawStopsAtItsRowsAndLeavesLaterDrawsWhole) {
    ZuFboObject* target = fbo("rows_dst", 8, 8, 0, 0, 1, 1);
    ZuRenderObject* red = colourQuad(0xffff0000);
    ZuRowsRenderObject* rows = keep(new ZuRowsRenderObject(app));
    rows->setMesh(red->getMesh());
    rows->setMaterial(red->getMaterial());
    rows->setRows(3);
    into(target, [&] { rows->pushCmd(scene, RS_BG_RENDER, "three rows"); });
    EXPECT_EQ(contentOf(target, 5, 2, 1, 1), rgba(255, 0, 0, 255));
    EXPECT_EQ(contentOf(target, 5, 3, 1, 1), rgba(0, 0, 255, 255));

    // No rows, no draw; and the draw after a limited one covers everything.
    rows->setRows(0);
    into(target, [&] {
        rows->pushCmd(scene, RS_BG_RENDER, "no rows");
        colourQuad(0xff00ff00)->pushCmd(scene, RS_BG_RENDER, "green");
    });
    EXPECT_EQ(contentOf(target, 5, 7, 1, 1), rgba(0, 255, 0, 255));
    EXPECT_EQ(contentOf(target, 0, 0, 1, 1), rgba(0, 255, 0, 255));
}
