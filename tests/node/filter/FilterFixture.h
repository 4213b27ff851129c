#pragma once

// The filter tests' engine: one 32 x 32 scene over which a painter node
// draws a known picture in the background stream, so that every pass can be
// checked against the picture it started from. Templated on the GL fixture,
// so the same checks run on ES 3 and on ES 2 contexts.
#include "basesys/ZuAppMain.h"
#include "basesys/ZuAppNative.h"
#include "basesys/ZuGlobalMgr.h"
#include "basesys/ZuGlobalParam.h"
#include "operate/ZuOperateMgr.h"
#include "render/command/RENDERSTREAMTYPE.h"
#include "render/fbo/ZuFboObject.h"
#include "render/material/ZuMaterial.h"
#include "render/mesh/ZuRenderData.h"
#include "render/ZuRenderMgr.h"
#include "render/object/ZuRenderObject.h"
#include "render/texture/ZuTexture.h"
#include "render/texture/ZuTexture2D.h"
#include "scene/ZuNodeCreator.h"
#include "scene/ZuNodeMgr.h"
#include "scene/ZuNodeTypes.h"
#include "scene/ZuScene.h"
#include "scene/ZuSceneMgr.h"
#include "support/EngineFixture.h"
#include "support/PicturePainterNode.h"
#include "support/TempDir.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <functional>
#include <string>
#include <thread>
#include <vector>

namespace filtertest {

using Bytes = std::vector<uint8_t>;
const int kSide = 32;

// The test picture: red grows to the right, green upwards, blue is a fixed
// mid value with a checker of +-40, so that every channel spans a range.
inline Bytes testPicture() {
    Bytes pixels(kSide * kSide * 4);
    for (int y = 0; y < kSide; ++y)
        for (int x = 0; x < kSide; ++x) {
            uint8_t* p = &pixels[(y * kSide + x) * 4];
            p[0] = static_cast<uint8_t>(20 + x * 7);
            p[1] = static_cast<uint8_t>(30 + y * 6);
            p[2] = static_cast<uint8_t>(((x / 4 + y / 4) % 2) ? 150 : 70);
            p[3] = 255;
        }
    return pixels;
}

// A colour chart: 4 x 4 patches of 8 x 8 pixels, primaries, secondaries,
// greys and skin tones, so that every look has something to act on.
inline Bytes chartPicture() {
    static const uint8_t patches[16][3] = {
        {220, 40, 40}, {40, 200, 60}, {50, 60, 210}, {230, 210, 60},
        {60, 200, 210}, {200, 60, 190}, {20, 20, 20}, {90, 90, 90},
        {160, 160, 160}, {235, 235, 235}, {225, 180, 150}, {190, 130, 100},
        {120, 80, 60}, {250, 120, 40}, {100, 160, 90}, {140, 110, 200}};
    Bytes pixels(kSide * kSide * 4);
    for (int y = 0; y < kSide; ++y)
        for (int x = 0; x < kSide; ++x) {
            const uint8_t* c = patches[(y / 8) * 4 + x / 8];
            uint8_t* p = &pixels[(y * kSide + x) * 4];
            p[0] = c[0];
            p[1] = c[1];
            p[2] = c[2];
            p[3] = 255;
        }
    return pixels;
}

// Draws a picture over the whole scene in the background stream: the
// gradient unless the chart is asked for.
class PainterNode : public PicturePainterNode {
public:
    explicit PainterNode(ZuAppMain* app) : PicturePainterNode(app) {}
    static bool& useChart() {
        static bool chart = false;
        return chart;
    }

protected:
    Bytes picture(int* width, int* height) const override {
        *width = *height = kSide;
        return useChart() ? chartPicture() : testPicture();
    }
};

template <class GLBase> class FilterFixture : public EngineFixture<GLBase> {
protected:
    using Engine = EngineFixture<GLBase>;
    using Engine::app;
    using Engine::push;

    std::vector<std::string> resourceRoots() const override { return {packages.path(), sourceAssets()}; }
    void SetUp() override {
        Engine::SetUp();
        nodes = app->getGlobalMgr()->getNodeMgr();
        nodes->getCreator()->registCreateFunc("PainterNode", zuCreateNodeOfType<PainterNode>);
        app->getAppInter()->createLogicSceneFull("s", kSide, kSide, kSide, kSide);
        frame();
        scene = app->getGlobalMgr()->getSceneMgr()->getScene("s");
        ASSERT_NE(scene, nullptr);
        ZuNode* painter = nodes->getCreator()->createNode("PainterNode", "s", "painter");
        ASSERT_NE(painter, nullptr);
        scene->addChild(painter);
        frame();
        base = picture();
    }
    void frame(float delta = 16.0f) {
        app->getGlobalMgr()->update(delta);
        app->directrender("");
    }
    // Frames until done() holds; false after five seconds. Images decode on
    // the load thread, which paces itself, so the wait is in time, not frames.
    bool waitFor(const std::function<bool()>& done) {
        for (int i = 0; i < 1000; ++i) {
            frame();
            if (done()) return true;
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        }
        return false;
    }
    // The scene's finished picture, bottom row first.
    Bytes picture() {
        ZuTexture* main = scene->getFbo()->getMainTex();
        GLuint fb = 0;
        glGenFramebuffers(1, &fb);
        glBindFramebuffer(GL_FRAMEBUFFER, fb);
        glFramebufferTexture2D(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_TEXTURE_2D, main->getid(), 0);
        Bytes pixels = GLTest::readPixels(0, 0, kSide, kSide);
        glBindFramebuffer(GL_FRAMEBUFFER, 0);
        glDeleteFramebuffers(1, &fb);
        return pixels;
    }
    template <class T> T* addNode(const char* type, const char* name) {
        auto* node = dynamic_cast<T*>(nodes->getCreator()->createNode(type, "s", name));
        if (node) scene->addChild(node);
        return node;
    }
    // Largest per-channel difference between two pictures (colour only).
    static int maxDifference(const Bytes& a, const Bytes& b) {
        int worst = 0;
        for (size_t i = 0; i < a.size(); ++i)
            if (i % 4 != 3) worst = std::max(worst, std::abs(int(a[i]) - int(b[i])));
        return worst;
    }
    static double mean(const Bytes& pixels, int channel) {
        double sum = 0;
        for (size_t i = channel; i < pixels.size(); i += 4) sum += pixels[i];
        return sum / (pixels.size() / 4);
    }

    TempDir packages;
    ZuNodeMgr* nodes = nullptr;
    ZuScene* scene = nullptr;
    Bytes base;
};

} // namespace filtertest
