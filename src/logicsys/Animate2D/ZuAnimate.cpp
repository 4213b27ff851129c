#include "logicsys/Animate2D/ZuAnimate.h"

#include "basesys/ZuGBase.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuGlobalMgr.h"
#include "event/ZuAnimateEvent.h"
#include "event/ZuEventMgr.h"
#include "logicsys/Animate2D/ZuKeyFrame.h"
#include "logicsys/Animate2D/ZuTimeLine.h"
#include "platform/ZuLog.h"
#include "render/material/ZuMaterial.h"
#include "render/math/ZuMat4.h"
#include "render/mesh/ZuRenderMesh.h"
#include "render/texture/ZuTexturePList.h"
#include "render/texture/ZuTextureSet.h"

#include <cstdlib>

ZuAnimate::~ZuAnimate() { delete timeLine; }

void ZuAnimate::destroy() {
    delete timeLine;
    timeLine = nullptr;
}

void ZuAnimate::setaniName(const char* name) {
    aniName = name ? name : "";
    id = atoi(aniName.c_str());
}

void ZuAnimate::setM_TimeLine(ZuTimeLine* newTimeLine) {
    if (newTimeLine == timeLine) return;
    delete timeLine;
    timeLine = newTimeLine;
}

void ZuAnimate::sendEvent(const char* eventName) {
    ZuEventMgr* events = ZuGBase::eventMgrOf(app);
    if (!events) return;
    ZuAnimateEvent* event = new ZuAnimateEvent(sceneName.c_str());
    event->name = eventName;
    event->personID = personID;
    event->animationName = aniName;
    event->resourceId = resID;
    event->resUID = resID;
    events->pushEventToSecondPool(event);
}

void ZuAnimate::reset() {
    if (!timeLine) return;
    timeLine->reset();
    sendEvent("aniReset");
}

void ZuAnimate::play() {
    reset();
    sendEvent("aniPlay");
}

void ZuAnimate::pause() { sendEvent("aniPause"); }

void ZuAnimate::stop() {
    stoppedThisTick = true;
    sendEvent("aniStop");
}

void ZuAnimate::complete() {
    completedThisTick = true;
    sendEvent("aniComplete");
}

bool ZuAnimate::update(float seconds, ZuRenderMesh* mesh, ZuMaterial* material, ZuMat4* matrix,
                       tANIPOSMODE mode) {
    completedThisTick = false;
    stoppedThisTick = false;
    if (!timeLine) return true;
    if (timeLine->isEnd()) {
        if (timeLine->getCurrent() && timeLine->getCurrent() == timeLine->getLast()) complete();
        if (!loop) {
            stop();
            return false;
        }
        reset();
    }
    timeLine->update(seconds);
    ZuKeyFrame* frame = timeLine->getCurrent();
    if (!frame) return true;
    ZuTexture* texture = frame->getTexture();
    if (!texture) {
        QZLOGE("error :frame ani - can not find curretn frame");
        return true;
    }
    if (material) material->setTexture0(texture);
    if (texture->getid() == 0) QZLOGE("error :frame ani - can not find the texture %s", frame->getTexName().c_str());
    if (texture->gettype() == ZU_TEXTURE_TYPE_PLIST) {
        auto* region = static_cast<ZuTexturePList*>(texture);
        srcWidth = region->sourceWidth;
        srcHeight = region->sourceHeight;
        refreshSize(mode);
        refreshAtlas(region, mesh, matrix);
    } else {
        srcWidth = static_cast<float>(texture->getwidth());
        srcHeight = static_cast<float>(texture->getheight());
        refreshSize(mode);
        refreshPlain(mesh, matrix);
    }
    return true;
}

void ZuAnimate::refreshSize(tANIPOSMODE mode) {
    width = srcWidth;
    height = srcHeight;
    ZuConfig* config = ZuGBase::configOf(app);
    const float designW = config ? static_cast<float>(config->getDesignWidth()) : 720.0f;
    const float designH = config ? static_cast<float>(config->getDesignHeight()) : 1280.0f;
    // An empty image has no shape to keep: leave its size as it is.
    if (!(width > 0.0f) || !(height > 0.0f)) return;
    switch (mode) {
    case ANIPOS_FITTOP:
    case ANIPOS_FITBOTTOM: {
        const float k = designW / width;
        width *= k;
        height *= k;
        break;
    }
    case ANIPOS_FULLSCREEN: {
        // Cover the design area: the tighter side decides.
        const float k = height / width <= designH / designW ? designH / height : designW / width;
        width *= k;
        height *= k;
        break;
    }
    case ANIPOS_FACE:
        width = standardLen * scaleX;
        height = width * srcHeight / srcWidth;
        break;
    default:
        break;
    }
}

void ZuAnimate::writeQuad(ZuRenderMesh* mesh, const float (&xy)[4][2], const float (&uv)[4][2],
                          const ZuMat4* matrix) {
    if (!mesh) return;
    float vertices[16];
    for (int i = 0; i < 4; ++i) {
        float x = xy[i][0], y = xy[i][1];
        if (matrix) turnByPose(*matrix, x, y);
        vertices[4 * i] = x;
        vertices[4 * i + 1] = y;
        vertices[4 * i + 2] = uv[i][0];
        vertices[4 * i + 3] = uv[i][1];
    }
    mesh->setVertexData(vertices, sizeof vertices);
}

void ZuAnimate::turnByPose(const ZuMat4& pose, float& x, float& y) {
    const float* m = pose.m;
    const float turnedX = x * m[0] + y * m[1] + m[3];
    const float turnedY = x * m[4] + y * m[5] + m[7];
    x = turnedX;
    y = turnedY;
}

void ZuAnimate::refreshPlain(ZuRenderMesh* mesh, const ZuMat4* matrix) {
    const float w = width / 2.0f, h = height / 2.0f;
    // Bottom left, bottom right, top left, top right; images are stored top row first.
    const float xy[4][2] = {{-w, -h}, {w, -h}, {-w, h}, {w, h}};
    const float uv[4][2] = {{0.0f, 1.0f}, {1.0f, 1.0f}, {0.0f, 0.0f}, {1.0f, 0.0f}};
    writeQuad(mesh, xy, uv, matrix);
}

void ZuAnimate::refreshAtlas(ZuTexture* texture, ZuRenderMesh* mesh, const ZuMat4* matrix) {
    auto* region = static_cast<ZuTexturePList*>(texture);
    const float L = region->sourceWidth, H = region->sourceHeight;
    ZuTextureSet* page = region->getTexset();
    const float pageW = page ? static_cast<float>(page->getwidth()) : 0.0f;
    const float pageH = page ? static_cast<float>(page->getheight()) : 0.0f;
    if (!(L > 0.0f) || !(H > 0.0f) || !(pageW > 0.0f) || !(pageH > 0.0f)) return;
    const ZuRect& src = region->srcRect;
    const ZuRect& dst = region->dstRect;
    const float qw = width * (src.right - src.left) / L / 2.0f;
    const float qh = height * (src.bottom - src.top) / H / 2.0f;
    const float cx = ((src.right + src.left) / 2.0f - L / 2.0f) / L * width;
    const float cy = (H / 2.0f - (src.bottom + src.top) / 2.0f) / H * height;
    const float xy[4][2] = {{cx - qw, cy - qh}, {cx + qw, cy - qh}, {cx - qw, cy + qh}, {cx + qw, cy + qh}};
    const float u0 = dst.left / pageW, u1 = dst.right / pageW;
    const float vBottom = dst.bottom / pageH, vTop = dst.top / pageH;
    const float uv[4][2] = {{u0, vBottom}, {u1, vBottom}, {u0, vTop}, {u1, vTop}};
    writeQuad(mesh, xy, uv, matrix);
}
