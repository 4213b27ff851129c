#pragma once

// Helpers of the render stream and read-back tests: an engine with one
// 64 x 64 render scene, flat-colour draws and framebuffers by name.

#include "basesys/ZuAppMain.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuGlobalMgr.h"
#include "render/fbo/ZuFboMgr.h"
#include "render/fbo/ZuFboObject.h"
#include "render/material/ZuMaterialColorSelect2d.h"
#include "render/mesh/ZuRenderData.h"
#include "render/ZuRenderMgr.h"
#include "render/object/ZuRenderObject.h"
#include "render/command/ZuRenderScene.h"
#include "support/GLTest.h"
#include "render/test_texture_support.h"

#include <vector>

namespace rendersupport {

using Pixel = std::vector<uint8_t>;

class RenderFixture : public GLTest {
protected:
    void SetUp() override {
        GLTest::SetUp();
        engine = new texsupport::Engine();
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

    void setGlVersion(int version) { app->getGlobalMgr()->getConfig()->glversion = version; }

    // A flat colour (0xAARRGGBB) over the whole viewport, ready to push.
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
    // Released with the fixture.
    template <typename T>
    T* keep(T* object) {
        objects.push_back(object);
        return object;
    }
    // A pooled framebuffer with its clear colour; the pool owns it.
    ZuFboObject* fbo(const char* name, int w, int h, float r, float g, float b, float a, bool swap = false) {
        ZuFboObject* target = app->getGlobalMgr()->getFboMgr()->createFboTexture(name, w, h, swap);
        target->setClearColor(r, g, b, a);
        return target;
    }
    // The pixels of a framebuffer, rows bottom-up; the window is bound again after.
    static Pixel contentOf(ZuFboObject* target, int x, int y, int w, int h) {
        glBindFramebuffer(GL_FRAMEBUFFER, target->getFboID());
        Pixel pixels = readPixels(x, y, w, h);
        glBindFramebuffer(GL_FRAMEBUFFER, 0);
        return pixels;
    }
    static Pixel at(int x, int y) { return readPixels(x, y, 1, 1); }
    static Pixel rgba(uint8_t r, uint8_t g, uint8_t b, uint8_t a) { return {r, g, b, a}; }

    texsupport::Engine* engine = nullptr;
    ZuAppMain* app = nullptr;
    ZuRenderMgr* renderMgr = nullptr;
    ZuRenderScene* scene = nullptr;
    std::vector<ZuMaterial*> materials;
    std::vector<ZuRenderObject*> objects;
};

} // namespace rendersupport
