#include "node/morph/ZuFaceMorphNode.h"

#include "basesys/Camera.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuGBase.h"
#include "basesys/ZuGlobalMgr.h"
#include "event/ZuSlimStrengthEvent.h"
#include "node/face/ZuNodePerson.h"
#include "node/morph/ZuNewMorphData.h"
#include "person/ZuPerson.h"
#include "platform/ZuLog.h"
#include "render/command/RENDERSTREAMTYPE.h"
#include "render/fbo/ZuFboSwapRenderObject.h"
#include "render/material/ZuMaterial.h"
#include "render/mesh/ZuRenderMeshDvid.h"
#include "render/object/ZuRenderObject.h"
#include "scene/ZuScene.h"

#include <GLES2/gl2.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <utility>

namespace {

const int kNewMorphVertices = 128;
// The landmark between the eyes, the centre of the face.
const int kCentreLandmark = 97;

void unit(float& x, float& y) {
    float length = std::sqrt(x * x + y * y);
    if (length > 1e-12f) x /= length, y /= length;
    else x = y = 0.0f;
}

} // namespace

ZuFaceMorphNode::ZuFaceMorphNode(ZuAppMain* app) : ZuNode(app) { setType("ZuFaceMorphNode"); }

// A node dropped without zudestroy still frees what it made.
ZuFaceMorphNode::~ZuFaceMorphNode() {
    qzSafeRelease(swapObject);
    qzSafeRelease(renderObject);
    qzSafeRelease(renderMesh);
    qzSafeRelease(material);
    delete[] newMorphList;
}

void ZuFaceMorphNode::zuinit() {
    ZuNode::zuinit();
    strength = 3.0f;
    material = new ZuMaterial(app, "screennor");
    material->setTexcoordFlip(1.0f, 1.0f);
    listenEvent();
}

void ZuFaceMorphNode::zudestroy() {
    unlistenEvent();
    qzSafeRelease(material);
    qzSafeRelease(renderObject);
    qzSafeRelease(renderMesh);
    qzSafeRelease(swapObject);
    delete[] newMorphList;
    newMorphList = nullptr;
    newMorphCount = 0;
    ZuNode::zudestroy();
}

float ZuFaceMorphNode::clampParameter(float value) const {
    if (value >= 0.0f && value <= 1.0f) return value;
    float clamped = std::isnan(value) ? 0.0f : (value < 0.0f ? 0.0f : 1.0f);
    QZLOGW("%s '%s': strength %g outside 0..1, clamped to %g", getType().c_str(), getname().c_str(), value,
           clamped);
    return clamped;
}

void ZuFaceMorphNode::setParameter(float value, float* dX, float* dY) {
    parameter = clampParameter(value);
    if (dX) std::copy(dX, dX + 8, deltaX);
    if (dY) std::copy(dY, dY + 8, deltaY);
}

void ZuFaceMorphNode::reset() {
    strength = 3.0f;
    disableBulge();
}

void ZuFaceMorphNode::enableBulge() {
    bulgeEnabled = true;
    initBulge();
}

void ZuFaceMorphNode::disableBulge() {
    bulgeEnabled = false;
    initBulge();
}

void ZuFaceMorphNode::initBulge() {
    bulgePhase = 0.0f;
    bulgeRising = true;
    bulgeFirst = true;
}

void ZuFaceMorphNode::setBulgeArray(const float* x, const float* y, float cycle) {
    if (x && y) {
        std::copy(x, x + 8, bulgeX);
        std::copy(y, y + 8, bulgeY);
    }
    setBulgeCycle(cycle);
}

void ZuFaceMorphNode::setBulgeCycle(float cycle) {
    // The ratio divides by the cycle: a cycle of no length would swell at once.
    if (!(cycle > 0.0f) || !std::isfinite(cycle)) {
        QZLOGW("%s '%s': bulge cycle %g is no duration; 1.2 used", getType().c_str(), getname().c_str(), cycle);
        cycle = 1.2f;
    }
    bulgeCycle = cycle;
    enableBulge();
}

bool ZuFaceMorphNode::setNewMorphData(const ZuNewMorphData* list, int count) {
    if (count < 0 || (count > 0 && !list)) {
        QZLOGW("%s '%s': morph rules refused: %d rules at %p", getType().c_str(), getname().c_str(), count,
               static_cast<const void*>(list));
        return false;
    }
    for (int e = 0; e < count; ++e) {
        const ZuNewMorphData& rule = list[e];
        bool ok = rule.startIndex >= 0 && rule.startIndex < kNewMorphVertices && rule.endIndex >= 0 &&
                  rule.endIndex < kNewMorphVertices && (rule.count == 0 || rule.indices);
        for (uint32_t k = 0; ok && k < rule.count; ++k)
            ok = rule.indices[k] >= 0 && rule.indices[k] < kNewMorphVertices;
        if (!ok) {
            QZLOGW("%s '%s': morph rules refused: rule %d names a vertex outside 0..127", getType().c_str(),
                   getname().c_str(), e);
            return false;
        }
    }
    ZuNewMorphData* copy = count > 0 ? new ZuNewMorphData[count] : nullptr;
    for (int e = 0; e < count; ++e) copy[e] = list[e];
    delete[] newMorphList;
    newMorphList = copy;
    newMorphCount = count;
    return true;
}

void ZuFaceMorphNode::setNewSlimStrength(float value) {
    if (newMorphCount < 2) return;
    newMorphList[0].strength = newMorphList[1].strength = value;
}
void ZuFaceMorphNode::setNewShortStrength(float value) {
    if (newMorphCount > 2) newMorphList[2].strength = value;
}
void ZuFaceMorphNode::setNewShrinkNoseStrength(float value) {
    if (newMorphCount > 3) newMorphList[3].strength = value;
}
void ZuFaceMorphNode::setNewShrinkMouthStrength(float value) {
    if (newMorphCount > 4) newMorphList[4].strength = value;
}

bool ZuFaceMorphNode::procEvent(ZuEvent* event) {
    if (event && event->type == ZU_EVENT_SLIM_STRENGTH && event->resUID == getresUID() &&
        std::strncmp(getname().c_str(), event->sceneName.c_str(), event->sceneName.size()) == 0)
        setNewSlimStrength(static_cast<ZuSlimStrengthEvent*>(event)->v0);
    return true;
}

void ZuFaceMorphNode::doRenderMeshInit() {
    renderMesh = new ZuRenderMeshDvid();
    renderMesh->setVertexType(VF_POS2 | VF_TEX0);
    renderMesh->setVertexPoolType(GL_DYNAMIC_DRAW);
    renderMesh->setIndexPoolType(GL_STATIC_DRAW);
}

void ZuFaceMorphNode::doMorphInit() {
    contourHalf = kContourHalf;
    strength = 3.0f;
    for (int j = 0; j <= gridHeight; ++j)
        for (int i = 0; i <= gridWidth; ++i) {
            int v = i + (gridWidth + 1) * j;
            rest[v * 2] = -1.0f + 2.0f * i / gridWidth;
            rest[v * 2 + 1] = -1.0f + 2.0f * j / gridHeight;
            texcoords[v * 2] = rest[v * 2] * 0.5f + 0.5f;
            texcoords[v * 2 + 1] = rest[v * 2 + 1] * 0.5f + 0.5f;
        }
    int n = 0;
    for (int j = 0; j < gridHeight; ++j)
        for (int i = 0; i < gridWidth; ++i) {
            uint16_t a = static_cast<uint16_t>(i + (gridWidth + 1) * j);
            uint16_t b = static_cast<uint16_t>(a + 1), c = static_cast<uint16_t>(a + gridWidth + 1);
            uint16_t d = static_cast<uint16_t>(c + 1);
            indices[n++] = a, indices[n++] = b, indices[n++] = c;
            indices[n++] = c, indices[n++] = b, indices[n++] = d;
        }
    std::copy(rest, rest + kVertexCount * 2, working);
    initBulge();
    if (!renderMesh) return;
    renderMesh->setVertexNum(kVertexCount);
    renderMesh->setVertex2Data(working, static_cast<int>(sizeof working));
    renderMesh->setTexcoord0Data(texcoords, static_cast<int>(sizeof texcoords));
    renderMesh->setIndexData(indices, static_cast<int>(sizeof indices), kIndexCount);
}

float ZuFaceMorphNode::modifyDD(float r) { return r * (bulgeEnabled ? 1.5f : ddScale); }

void ZuFaceMorphNode::modifyR0Factor(float* factors) {
    for (int i = 0; i < 8; ++i) factors[i] = bulgeEnabled ? 8.0f : reachFactor[i];
}

void ZuFaceMorphNode::modifyDeltaCoref(float* dX, float* dY) {
    std::copy(deltaX, deltaX + 8, dX);
    std::copy(deltaY, deltaY + 8, dY);
}

void ZuFaceMorphNode::pictureSize(int& width, int& height) const {
    ZuConfig* config = ZuGBase::configOf(app);
    width = config ? config->getWidth() : 0;
    height = config ? config->getHeight() : 0;
    // Landmarks are camera pixels of the upright picture; the scene's
    // camera says how large that is, the engine's design size only stands
    // in when the scene has none.
    const Camera* camera = config ? config->getCamera(getSceneName().c_str()) : nullptr;
    if (camera && camera->width > 0 && camera->height > 0) {
        width = camera->width;
        height = camera->height;
        if (camera->angle == 90 || camera->angle == 270) std::swap(width, height);
    }
}

bool ZuFaceMorphNode::getFaceContourData(ZuPerson* person, int width, int height) {
    if (person->getFacePtNum() <= kCentreLandmark || width <= 0 || height <= 0) return false;
    for (int i = 0; i <= kContourPoints; ++i) {
        int landmark = i < kContourPoints ? kContourPoints - i : kCentreLandmark;
        float x = 2.0f * person->getFaceDataX(landmark) / width - 1.0f;
        float y = 2.0f * person->getFaceDataY(landmark) / height - 1.0f;
        // A point far off the picture is no face this grid can bend.
        if (!(std::fabs(x) < 8.0f && std::fabs(y) < 8.0f)) return false;
        contour[i * 2] = x;
        contour[i * 2 + 1] = y;
    }
    return true;
}

bool ZuFaceMorphNode::isCrossBorder() const {
    float limit = 1.0f - 2.0f / (gridHeight - 2);
    float chinY = contour[8 * 2 + 1];
    if (chinY >= limit || chinY <= -limit) return true;
    for (int i : {0, 16})
        if (contour[i * 2] > 1.18f || contour[i * 2] < -1.18f) return true;
    return false;
}

bool ZuFaceMorphNode::isYaw() const {
    const float* centre = &contour[kContourPoints * 2];
    float ax = centre[0] - contour[0], ay = centre[1] - contour[1];
    float bx = centre[0] - contour[32], by = centre[1] - contour[33];
    float a = ax * ax + ay * ay, b = bx * bx + by * by;
    return a >= 4.0f * b || 4.0f * a <= b;
}

void ZuFaceMorphNode::push(const float p[2], const float dir[2], float r, float reach, float sx, float sy,
                           float mx) {
    int colLow = std::max(static_cast<int>((p[0] - reach + 1.0f) * 0.5f * gridWidth - 1.0f), 1);
    int colHigh = std::min(static_cast<int>((p[0] + reach + 1.0f) * 0.5f * gridWidth + 1.0f), gridWidth);
    int rowLow = std::max(static_cast<int>((p[1] - reach + 1.0f) * 0.5f * gridHeight - 1.0f), 1);
    int rowHigh = std::min(static_cast<int>((p[1] + reach + 1.0f) * 0.5f * gridHeight + 1.0f), gridHeight);
    float cx = (p[0] + 1.0f) * 0.5f, cy = (p[1] + 1.0f) * 0.5f, r2 = r * r;
    for (int j = rowLow; j < rowHigh; ++j)
        for (int i = colLow; i < colHigh; ++i) {
            int v = i + (gridWidth + 1) * j;
            float tx = texcoords[v * 2] - cx, ty = texcoords[v * 2 + 1] - cy;
            float q = tx * tx + ty * ty;
            if (q >= r2) continue;
            float d = std::sqrt(q), a = r2 - q, e = d - mx;
            float w = a / (a + e * e);
            w *= w;
            working[v * 2] += w * sx * dir[0];
            working[v * 2 + 1] += w * sy * dir[1];
        }
}

void ZuFaceMorphNode::doSlim(int width, int height, float dt) {
    const int K = contourHalf;
    const float* c = contour;
    float left[8][2], right[8][2], dir[16][2];
    for (int i = 0; i < K; ++i) {
        left[i][0] = c[(K - 1 - i) * 2], left[i][1] = c[(K - 1 - i) * 2 + 1];
        right[i][0] = c[(K + 1 + i) * 2], right[i][1] = c[(K + 1 + i) * 2 + 1];
        dir[i][0] = right[i][0] - left[i][0], dir[i][1] = right[i][1] - left[i][1];
        unit(dir[i][0], dir[i][1]);
        dir[K + i][0] = -dir[i][0], dir[K + i][1] = -dir[i][1];
    }
    // Inner points push along the contour's normal: the bisector of the
    // two neighbours, turned to face inwards. A straight stretch has no
    // bisector and keeps the first direction.
    for (int side = 0; side < 2; ++side) {
        float(*pts)[2] = side == 0 ? left : right;
        for (int i = 1; i < K - 1; ++i) {
            float ax = pts[i + 1][0] - pts[i][0], ay = pts[i + 1][1] - pts[i][1];
            float bx = pts[i - 1][0] - pts[i][0], by = pts[i - 1][1] - pts[i][1];
            unit(ax, ay);
            unit(bx, by);
            float vx = ax + bx, vy = ay + by;
            float* d = dir[side * K + i];
            if (vx * d[0] + vy * d[1] < 0.0f) vx = -vx, vy = -vy;
            unit(vx, vy);
            if (vx != 0.0f || vy != 0.0f) d[0] = vx, d[1] = vy;
        }
    }
    float r = modifyDD(std::max(std::hypot(left[0][0] - left[1][0], left[0][1] - left[1][1]),
                                std::hypot(right[0][0] - right[1][0], right[0][1] - right[1][1])));
    float f[8] = {2, 2, 2, 2, 2, 2, 2, 2}, dX[8] = {}, dY[8] = {};
    modifyR0Factor(f);
    modifyDeltaCoref(dX, dY);

    if (bulgeEnabled) {
        if (bulgeFirst) dt = 0.0f, bulgeFirst = false;
        float step = dt * 0.001f;
        if (bulgeRising) {
            bulgePhase += step;
            if (bulgePhase * 2.0f > bulgeCycle) bulgeRising = false;
        } else {
            bulgePhase -= step;
            if (bulgePhase * 2.0f < 0.000001f) bulgeRising = true;
        }
        bulgeRatio = bulgePhase * 2.0f / bulgeCycle;
        float ddy = c[32 + 1] - c[1];
        bool onSide = ddy != 0.0f && std::fabs((c[32] - c[0]) / ddy) < 0.5f;
        for (int i = 0; i < 8; ++i) {
            dX[i] += (onSide ? bulgeY[i] : bulgeX[i]) * bulgeRatio;
            dY[i] += (onSide ? bulgeX[i] : bulgeY[i]) * bulgeRatio;
        }
    }

    float faceWidth = std::hypot(c[0] - c[32], c[1] - c[33]);
    for (int i = 0; i < K; ++i) {
        float mx = dX[i] * faceWidth / width, my = dY[i] * faceWidth / width;
        float sx = mx * strength, sy = my * strength;
        if (sx == 0.0f && sy == 0.0f) continue;
        push(left[i], dir[i], r, r * f[i], sx, sy, mx);
        push(right[i], dir[K + i], r, r * f[i], sx, sy, mx);
    }
    (void)height;
}

void ZuFaceMorphNode::update(float dt) {
    ZuNode::update(dt);
    if (!meshReady) {
        meshReady = true;
        swapObject = new ZuFboSwapRenderObject(app);
        doRenderMeshInit();
        doMorphInit();
        renderObject = new ZuRenderObject(app);
        renderObject->setMaterial(material);
        renderObject->setMesh(renderMesh);
    }
    ZuScene* scene = getActiveScene();
    // The swap has moved the picture so far to the second texture.
    if (scene && material) material->setTexture0FBO(scene->getFbo(), false);
    std::copy(rest, rest + kVertexCount * 2, working);
    drawFlag = false;
    ZuPerson* person = ZuNodePerson::of(this, 1);
    int width = 0, height = 0;
    pictureSize(width, height);
    if (person && person->getExist() && getFaceContourData(person, width, height)) {
        if (!isCrossBorder()) {
            if (!isYaw()) doSlim(width, height, dt);
            doBear();
        }
        drawFlag = true;
    }
    if (renderMesh) renderMesh->setVertex2Data(working, static_cast<int>(sizeof working));
}

void ZuFaceMorphNode::render() {
    if (!isVisible() || !drawFlag) return;
    ZuRenderScene* renderScene = getActiveRenderScene();
    if (!renderScene || !renderObject || !swapObject || !material || !material->getProgram()) return;
    swapObject->pushCmd(renderScene, RS_FACE_WARP, "null");
    renderObject->pushCmd(renderScene, RS_FACE_WARP, "null");
}
