#pragma once

#include "render/math/ZuMat4.h"
#include "render/math/ZuVec3.h"

// The camera with which a scene maps design coordinates to clip space. The
// default looks straight down -z at a w x h design plane at z = 0, placed so
// that the plane exactly fills the view.
//
// Matrices follow ZuMat4's row-vector convention: view-projection is
// translation(-eye) x camera x projection.
class ZuRenderCamera {
public:
    ZuRenderCamera() { resetDefaultRenderCamera(); }

    // 720 x 1280 design units.
    void resetDefaultRenderCamera() { resetRenderCamera(720.0f, 1280.0f); }
    void resetRenderCamera(float w, float h);

    // Rebuilds the projection; view-projection then lacks the eye translation
    // until the next updateCameraMat.
    void updateProjMat();
    // fromTarget: direction from eye to target; otherwise the stored direction.
    void updateCameraMat(bool fromTarget);
    void updateViewProj();

    void setProjectParam(float zNear, float zFar, float fovy, float aspect);
    void setZ(float zNear, float zFar);
    void setFovy(float degrees);
    float getFovy() const { return fovy; }
    void setAspect(float a);
    float getAspect() const { return aspect; }

    void setCameraPos(float x, float y, float z);
    ZuVec3 getCameraPos() const { return eye; }
    void setCameraTarget(float x, float y, float z);
    ZuVec3 getCameraTarget() const { return target; }
    // x is negated unless mirrored (the front camera's picture is mirrored).
    void setCameraDirection(float x, float y, float z);
    ZuVec3 getCameraDirection() const { return dir; }
    void setCameraUp(float x, float y, float z);

    const float* getProjectMat() const { return projectMat.m; }
    const float* getCameraMat() const { return cameraMat.m; }
    const float* getVPMat() const { return vpMat.m; }
    ZuMat4* getProjectMatObj() { return &projectMat; }
    ZuMat4* getCameraMatObj() { return &cameraMat; }
    ZuMat4* getVPMatObj() { return &vpMat; }

    void setMirrorMode(bool m) { mirror = m; }
    bool getMirrorMode() const { return mirror; }
    float getWidth() const { return width; }
    float getHeight() const { return height; }
    float getZNear() const { return zNear; }
    float getZFar() const { return zFar; }

    // The engine's degree-to-radian factor (deliberately not pi/180: the
    // design plane fit depends on using the same factor everywhere).
    static constexpr float kDegToRad = 0.01745f;

private:
    ZuMat4 projectMat;
    ZuMat4 cameraMat;
    ZuMat4 vpMat;
    float width = 0.0f, height = 0.0f;
    ZuVec3 eye, target, up{0.0f, 1.0f, 0.0f}, dir{0.0f, 0.0f, -1.0f};
    float zNear = 1.0f, zFar = 6000.0f, aspect = 1.0f, fovy = 60.0f;
    bool mirror = false;
};
