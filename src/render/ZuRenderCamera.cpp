#include "render/ZuRenderCamera.h"

#include "platform/ZuLog.h"

#include <cmath>
#include <cstring>

void ZuRenderCamera::resetRenderCamera(float w, float h) {
    if (!(w > 0.0f) || !(h > 0.0f)) {
        QZLOGW("ZuRenderCamera::resetRenderCamera: size %g x %g refused", w, h);
        return;
    }
    width = w;
    height = h;
    aspect = w / h;
    fovy = 60.0f;
    zNear = 1.0f;
    zFar = 6000.0f;
    eye.set(w / 2, h / 2, (h / 2) / std::tan(0.5f * fovy * kDegToRad));
    target.set(w / 2, h / 2, 0.0f);
    up.set(0.0f, 1.0f, 0.0f);
    updateProjMat();
    updateCameraMat(true);
}

void ZuRenderCamera::updateProjMat() {
    float top = std::tan(fovy * 0.5f * kDegToRad) * zNear;
    float right = top * aspect;
    float depth = zFar - zNear;
    if (!(std::fabs(top) > 0.0f) || !(std::fabs(right) > 0.0f) || !(std::fabs(depth) > 0.0f) ||
        !std::isfinite(top) || !std::isfinite(right)) {
        QZLOGW("ZuRenderCamera: degenerate projection (fovy %g, aspect %g, near %g, far %g) refused",
               fovy, aspect, zNear, zFar);
        return;
    }
    float* p = projectMat.m;
    std::memset(p, 0, 16 * sizeof(float));
    p[0] = zNear / right;
    p[5] = zNear / top;
    p[10] = -(zFar + zNear) / depth;
    p[11] = -zFar * zNear / depth;
    p[14] = -1.0f;
    ZuMat4::multMat(cameraMat, projectMat, vpMat);
}

void ZuRenderCamera::updateCameraMat(bool fromTarget) {
    if (fromTarget) dir = (target - eye).normalized();
    ZuVec3 s = dir.cross(up).normalized();
    ZuVec3 u = s.cross(dir).normalized();
    float* m = cameraMat.m;
    std::memset(m, 0, 16 * sizeof(float));
    m[0] = s.x; m[4] = s.y; m[8] = s.z;
    m[1] = u.x; m[5] = u.y; m[9] = u.z;
    m[2] = -dir.x; m[6] = -dir.y; m[10] = -dir.z;
    m[15] = 1.0f;
    updateViewProj();
}

void ZuRenderCamera::updateViewProj() {
    ZuMat4 translate;
    translate.m[12] = -eye.x;
    translate.m[13] = -eye.y;
    translate.m[14] = -eye.z;
    ZuMat4 view;
    ZuMat4::multMat(translate, cameraMat, view);
    ZuMat4::multMat(view, projectMat, vpMat);
}

void ZuRenderCamera::setProjectParam(float n, float f, float fy, float a) {
    zNear = n;
    zFar = f;
    fovy = fy;
    aspect = a;
    updateProjMat();
}

void ZuRenderCamera::setZ(float n, float f) {
    zNear = n;
    zFar = f;
    updateProjMat();
}

void ZuRenderCamera::setFovy(float degrees) {
    fovy = degrees;
    updateProjMat();
}

void ZuRenderCamera::setAspect(float a) {
    aspect = a;
    updateProjMat();
}

void ZuRenderCamera::setCameraPos(float x, float y, float z) {
    eye.set(x, y, z);
    updateCameraMat(false);
}

void ZuRenderCamera::setCameraTarget(float x, float y, float z) {
    target.set(x, y, z);
    updateCameraMat(true);
}

void ZuRenderCamera::setCameraDirection(float x, float y, float z) {
    dir = (mirror ? ZuVec3(x, y, z) : ZuVec3(-x, y, z)).normalized();
    updateCameraMat(false);
}

void ZuRenderCamera::setCameraUp(float x, float y, float z) {
    up.set(x, y, z);
    updateCameraMat(true);
}
