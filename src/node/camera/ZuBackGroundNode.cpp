#include "node/camera/ZuBackGroundNode.h"

#include "basesys/Camera.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuGlobalMgr.h"
#include "basesys/ZuGlobalParam.h"
#include "data/ZuCameraImageFormat.h"
#include "data/ZuDataGenCamera.h"
#include "node/camera/BGTexture.h"
#include "render/command/RENDERSTREAMTYPE.h"
#include "render/fbo/ZuFboObject.h"
#include "render/material/ZuMaterial.h"
#include "render/material/ZuMaterialScreen.h"
#include "render/mesh/ZuRenderData.h"
#include "render/object/ZuRenderObject.h"
#include "render/texture/ZuTexture.h"
#include "platform/ZuLog.h"

#include <cstdarg>
#include <cstdio>

ZuBackGroundNode::ZuBackGroundNode(ZuAppMain* app) : ZuNode(app) { setType("ZuBackGroundNode"); }

void ZuBackGroundNode::zuinit() {
    if (!bgTexture) bgTexture = new BGTexture();
    ZuRenderObject* object = new ZuRenderObject(app);
    setRenderObject(object);
    object->release();
    if (!outMaterial) outMaterial = new ZuMaterial(app, "screennor");
}

void ZuBackGroundNode::zudestroy() {
    debug(false);
    qzSafeRelease(outMaterial);
    if (bgTexture) {
        // Consumers find the image by scene: this one must not stay listed.
        ZuGlobalParam* param = app ? app->getGlobalParam() : nullptr;
        if (param && param->getBgTexture(m_sceneName.c_str()) == bgTexture)
            param->removeBgTexture(m_sceneName.c_str());
        bgTexture->destroyTexture();
        qzSafeRelease(bgTexture);
    }
    setDataGen(nullptr);
    ZuNode::zudestroy();
}

void ZuBackGroundNode::zuenter() {
    ZuGlobalParam* param = app ? app->getGlobalParam() : nullptr;
    if (param && bgTexture) param->setBgTexture(m_sceneName.c_str(), bgTexture);
}

void ZuBackGroundNode::setBackgroundSize(BGType type, int width, int height, float rotation) {
    if (bgTexture) bgTexture->createTexture(app, type, m_uid, width, height, rotation);
}

void ZuBackGroundNode::setDataGen(ZuDataGenerate* source) {
    if (source == dataGen) return;
    if (dataGen) {
        dataGen->unregistListenFunc(static_cast<ZuObject*>(this), &ZuObject::listenData);
        dataGen->release();
    }
    dataGen = source;
    if (dataGen) {
        dataGen->retain();
        dataGen->registListenFunc(static_cast<ZuObject*>(this), &ZuObject::listenData);
    }
}

void ZuBackGroundNode::placeImage(ZuRenderObject* object, ZuMaterial* material) {
    if (bgTexture) bgTexture->placeOn(app, m_sceneName.c_str(), object, material);
}

void ZuBackGroundNode::update(float dt) {
    ZuNode::update(dt);
    if (!bgTexture) return;
    bgTexture->update(dt);
    placeImage(getRenderObject(), outMaterial);
    if (debugOn && debugObject && debugMaterial) {
        debugMaterial->setTexcoordFlip(1.0f, 1.0f);
        debugMaterial->setTexture0FBO(bgTexture->getFbo(), true);
    }
}

void ZuBackGroundNode::render() {
    if (!isVisible()) return;
    if (!bgTexture) return;
    ZuRenderScene* scene = getActiveRenderScene();
    bgTexture->render(scene, RS_GEN_BACKGROUND, "gen_background");
    if (debugOn && debugObject) debugObject->pushCmd(scene, RS_DEBUG_SCREEN, "datatrans_debug");
}

void ZuBackGroundNode::debug(bool on) {
    debugOn = on;
    if (on && !debugObject) {
        debugObject = new ZuRenderObject(app);
        ZuMaterialScreen* screen = new ZuMaterialScreen(app);
        screen->init();
        debugMaterial = screen;
        debugObject->setMaterial(debugMaterial);
        if (ZuRenderData* data = BGTexture::renderDataOf(app)) debugObject->setMesh(data->meshTopRight);
    } else if (!on) {
        qzSafeRelease(debugMaterial);
        qzSafeRelease(debugObject);
    }
}

// Copies the planes of a frame into the plane textures and picks the program
// for its format. A frame smaller than its format needs, or of another size
// than the background, is refused: the last good picture stays.
void ZuBackGroundNode::listenData(ZuObject* source) {
    ZuDataGenCamera* camera = dynamic_cast<ZuDataGenCamera*>(source);
    if (!camera || !bgTexture || !bgTexture->getMaterial()) return;
    int w = bgTexture->getWidth(), h = bgTexture->getHeight();
    int format = camera->getImageFormate();
    unsigned char* p = camera->getImageData();
    if (!p) return;
    if (camera->getImageWidth() != w || camera->getImageHeight() != h) {
        refuseFrame("size", "background %s is %d x %d; a %d x %d frame is refused", m_name.c_str(), w, h,
                    camera->getImageWidth(), camera->getImageHeight());
        return;
    }
    if (camera->getImageSize() < cameraFrameSize(format, w, h)) {
        refuseFrame("length", "background %s: a frame of %d bytes is short of the %d that %d x %d in camera format %d needs",
                    m_name.c_str(), camera->getImageSize(), cameraFrameSize(format, w, h), w, h, format);
        return;
    }
    lastRefusal = nullptr;
    int y = w * h;
    int q = static_cast<int>(w * h * 0.25);
    int o = w * h / 4;
    ZuMaterial* material = bgTexture->getMaterial();
    switch (format) {
    case CIF_RGBA:
        if (!bgTexture->getRGBATexture()) return;
        bgTexture->getRGBATexture()->setData(p, w * h * 4, true);
        material->AsynloadShader(app, "rgba");
        break;
    case CIF_BGRA:
        if (!bgTexture->getBGRATexture()) return;
        bgTexture->getBGRATexture()->setData(p, w * h * 4, true);
        material->AsynloadShader(app, "bgra");
        break;
    case CIF_I420:
    case CIF_YV12: {
        ZuTexture* yTex = bgTexture->getYTexture();
        ZuTexture* uTex = bgTexture->getUTexture();
        ZuTexture* vTex = bgTexture->getVTexture();
        if (!yTex || !uTex || !vTex) return;
        bool i420 = format == CIF_I420;
        yTex->setData(p, y, true);
        if (q > 0) {
            (i420 ? uTex : vTex)->setData(p + y, q, true);
            (i420 ? vTex : uTex)->setData(p + y + o, q, true);
        }
        material->AsynloadShader(app, "yuv2rgb");
        break;
    }
    case CIF_NV12:
    case CIF_NV21: {
        ZuTexture* yTex = bgTexture->getYTexture();
        ZuTexture* uvTex = bgTexture->getUVTexture();
        if (!yTex || !uvTex) return;
        yTex->setData(p, y, true);
        int uvBytes = static_cast<int>(w * h * 0.5);
        if (uvBytes > 0) uvTex->setData(p + y, uvBytes, true);
        material->AsynloadShader(app, format == CIF_NV12 ? "yuv2rgb12" : "yuv2rgb21");
        break;
    }
    default:
        refuseFrame("format", "background %s: camera format %d has no conversion; frame refused", m_name.c_str(),
                    format);
        break;
    }
}

// Logs once per kind of refusal in a row, not once a frame.
void ZuBackGroundNode::refuseFrame(const char* kind, const char* format, ...) {
    if (lastRefusal == kind) return;
    lastRefusal = kind;
    char message[256];
    va_list args;
    va_start(args, format);
    vsnprintf(message, sizeof message, format, args);
    va_end(args);
    QZLOGW("%s", message);
}
