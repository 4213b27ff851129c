#include "node/camera/BGTexture.h"

#include "basesys/ZuGBase.h"
#include "basesys/Camera.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuGlobalMgr.h"
#include "render/fbo/ZuFboBeginRenderObject.h"
#include "render/fbo/ZuFboEndRenderObject.h"
#include "render/fbo/ZuFboMgr.h"
#include "render/fbo/ZuFboObject.h"
#include "render/material/ZuMaterial.h"
#include "render/mesh/ZuRenderData.h"
#include "render/ZuRenderMgr.h"
#include "render/object/ZuRenderObject.h"
#include "render/texture/ZuTexMgr.h"
#include "render/texture/ZuTexture.h"

#include <GLES2/gl2.h>
#include <cstdio>

BGTexture::~BGTexture() { destroyTexture(); }

void BGTexture::assign(ZuTexture*& slot, ZuTexture* texture) {
    qzAssignRetained(slot, texture);
}

ZuRenderData* BGTexture::renderDataOf(ZuAppMain* app) { return ZuRenderMgr::renderDataOf(app); }

ZuRenderMesh* BGTexture::meshForAngle(ZuRenderData* data, int angle, ZuRenderMesh* current) {
    ZuRenderMesh* mesh = data ? data->meshFollowingAngle(angle) : nullptr;
    return mesh ? mesh : current;
}

void BGTexture::placeOn(ZuAppMain* app, const char* sceneName, ZuRenderObject* object, ZuMaterial* mat) {
    if (!object || !mat) return;
    ZuConfig* config = ZuGBase::configOf(app);
    int angle = config ? config->getCamera(sceneName)->angle : 0;
    object->setMesh(meshForAngle(renderDataOf(app), angle, object->getMesh()));
    mat->setTexcoordFlip(1.0f, 1.0f);
    mat->setTexture0FBO(fbo, true);
    object->setMaterial(mat);
}

void BGTexture::createTexture(ZuAppMain* app, BGType newType, int uid, int newWidth, int newHeight,
                              float newRotation) {
    type = newType;
    width = newWidth;
    height = newHeight;
    rotation = newRotation;
    if (!fboBegin) fboBegin = new ZuFboBeginRenderObject(app);
    if (!fboEnd) fboEnd = new ZuFboEndRenderObject(app);
    if (!renderObject) renderObject = new ZuRenderObject(app);
    if (ZuRenderData* data = renderDataOf(app)) renderObject->setMesh(data->meshFull);
    if (!material) material = new ZuMaterial(app, "yuv2rgb");
    renderObject->setMaterial(material);

    // Planes: full-size luminance, quarter-size chroma (one or two channels).
    // Each new texture comes with the one reference its slot keeps.
    auto plane = [app](ZuTexture*& slot, int w, int h, int format) {
        qzSafeRelease(slot);
        slot = ZuTexMgr::createInternalTexture(app, w, h, format);
    };
    switch (type) {
    case BG_RGBA: plane(rgbaTex, width, height, GL_RGBA); break;
    case BG_BGRA: plane(bgraTex, width, height, GL_RGBA); break;
    case BG_I420:
    case BG_YV12:
        plane(yTex, width, height, GL_LUMINANCE);
        plane(uTex, width / 2, height / 2, GL_LUMINANCE);
        plane(vTex, width / 2, height / 2, GL_LUMINANCE);
        break;
    case BG_NV12:
    case BG_NV21:
        plane(yTex, width, height, GL_LUMINANCE);
        plane(uvTex, width / 2, height / 2, GL_LUMINANCE_ALPHA);
        break;
    default: break;
    }

    ZuFboMgr* fboMgr = ZuGBase::fboMgrOf(app);
    if (!fbo && fboMgr) {
        char name[32];
        snprintf(name, sizeof name, "%d_fbo", uid);
        fbo = fboMgr->acquireFboTexture(name, width, height, false);
        if (fbo) {
            fbo->retain();
            fbo->setClearColor(1, 0, 1, 0);
            // The conversion tests no depth: a depth buffer here would only
            // be cleared on every frame.
            fbo->disableDepthBuffer();
        }
    }
}

void BGTexture::createNorTexture(ZuAppMain* app, const char* path) {
    ZuTexMgr* texMgr = ZuGBase::texMgrOf(app);
    if (texMgr && path) assign(norTex, texMgr->getTexture(path, true, false));
}

void BGTexture::destroyTexture() {
    for (ZuTexture** slot : {&rgbaTex, &bgraTex, &yTex, &uvTex, &uTex, &vTex, &norTex}) qzSafeRelease(*slot);
    qzSafeRelease(material);
    qzSafeRelease(renderObject);
    qzSafeRelease(fboBegin);
    qzSafeRelease(fboEnd);
    qzSafeRelease(fbo);
}

bool BGTexture::hasPlanes() const {
    switch (type) {
    case BG_RGBA: return rgbaTex;
    case BG_BGRA: return bgraTex;
    case BG_I420:
    case BG_YV12: return yTex && uTex && vTex;
    case BG_NV12:
    case BG_NV21: return yTex && uvTex;
    case BG_TEXTURE: return rgbaTex || norTex;
    default: return false;
    }
}

// Slots as the conversion programs read them: Y, V, U for the three-plane
// formats; Y and the interleaved pair for the two-plane ones.
void BGTexture::update(float) {
    if (!fboBegin || !fboEnd || !material) return;
    switch (type) {
    case BG_RGBA: material->setTexture0(rgbaTex); break;
    case BG_BGRA: material->setTexture0(bgraTex); break;
    case BG_I420:
    case BG_YV12:
        material->setTexture0(yTex);
        material->setTexture1(vTex);
        material->setTexture2(uTex);
        break;
    case BG_NV12:
    case BG_NV21:
        material->setTexture0(yTex);
        material->setTexture1(uvTex);
        break;
    case BG_TEXTURE: material->setTexture0(rgbaTex ? rgbaTex : norTex); break;
    default: break;
    }
    // Rows arrive top first; the flip stands the image upright in the target.
    material->setTexcoordFlip(1.0f, -1.0f);
    fboBegin->setFbo(fbo);
}

void BGTexture::render(ZuRenderScene* scene, int stream, const char* label) {
    if (!fboBegin || !fboEnd || !material || !renderObject || !hasPlanes()) return;
    fboBegin->pushCmd(scene, stream, label);
    renderObject->pushCmd(scene, stream, label);
    fboEnd->pushCmd(scene, stream, label);
}
