#include "scene/ZuSkyDomeNode.h"

#include "basesys/ZuAppMain.h"
#include "basesys/ZuCheck.h"
#include "basesys/ZuGlobalParam.h"
#include "render/fbo/ZuFboObject.h"
#include "render/material/ZuMaterial.h"
#include "render/mesh/ZuRenderMesh.h"
#include "render/object/ZuRenderObject.h"
#include "render/texture/ZuTexture.h"
#include "render/ZuRenderCamera.h"
#include "scene/ZuScene.h"

#include <GLES2/gl2.h>
#include <cmath>
#include <cstdlib>

namespace {
const int kFloatsPerVertex = 5;
const double kPi = 3.14159265358979323846;
} // namespace

ZuSkyDomeNode::ZuSkyDomeNode(ZuAppMain* app) : ZuNode(app) { setType("ZuSkyDomeNode"); }

ZuSkyDomeNode::~ZuSkyDomeNode() {
    releaseOwned();
    freeArrays();
}

void ZuSkyDomeNode::zuinit() {
    ZuNode::zuinit();
    mesh = new ZuRenderMesh();
    material = new ZuMaterial(app);
    material->AsynloadShader(app, "SkyDome");
    ZuRenderObject* object = new ZuRenderObject(app);
    object->setMesh(mesh);
    object->setMaterial(material);
    setRenderObject(object);
    object->release();
    setRenderOrder(14);
}

void ZuSkyDomeNode::zudestroy() {
    releaseOwned();
    ZuNode::zudestroy();
}

void ZuSkyDomeNode::releaseOwned() {
    qzSafeRelease(texture);
    qzSafeRelease(mesh);
    qzSafeRelease(material);
}

void ZuSkyDomeNode::freeArrays() {
    std::free(vertices);
    std::free(indices);
    vertices = nullptr;
    indices = nullptr;
    vertexCount = indexCount = 0;
}

void ZuSkyDomeNode::testinit() { setPositionX(360.0f, 640.0f, 0.0f); }

void ZuSkyDomeNode::generateSkyDome(ZuTexture* newTexture, int newColumns, int newRows, float newRepeat,
                                    float newCoverage, float newRadius) {
    QZ_REQUIRE(newColumns >= 1 && newRows >= 1, "dome of %d columns and %d rows", newColumns, newRows);
    QZ_REQUIRE((static_cast<long long>(newColumns) + 1) * (newRows + 1) <= 65536,
               "dome of %d x %d has more vertices than 16-bit indices reach", newColumns, newRows);
    QZ_REQUIRE(std::isfinite(newRadius) && newRadius > 0.0f, "dome radius %g", newRadius);
    QZ_REQUIRE(std::isfinite(newCoverage) && std::isfinite(newRepeat), "dome coverage %g, repeat %g", newCoverage,
               newRepeat);
    columns = newColumns;
    rows = newRows;
    textureRepeat = newRepeat;
    coverage = newCoverage;
    radius = newRadius;
    if (newTexture != texture) qzAssignRetained(texture, newTexture);
    _generateMesh();
}

void ZuSkyDomeNode::_generateMesh() {
    freeArrays();
    const float azimuthStep = static_cast<float>(6.2831854820251465 / columns);
    const float c = std::fabs(coverage) > 2.0f ? 2.0f : std::fabs(coverage);
    const float elevationStep = c * static_cast<float>(kPi) / 2.0f / rows;
    const float vStep = textureRepeat / rows;

    vertexCount = (columns + 1) * (rows + 1);
    vertices = static_cast<float*>(std::malloc(sizeof(float) * kFloatsPerVertex * vertexCount));
    float* out = vertices;
    float azimuth = 0.0f;
    for (int i = 0; i <= columns; ++i) {
        const float u = static_cast<float>(i) / columns;
        float elevation = 1.5707964f;
        for (int j = 0; j <= rows; ++j) {
            *out++ = radius * std::cos(elevation) * std::cos(azimuth);
            *out++ = radius * std::cos(elevation) * std::sin(azimuth);
            *out++ = radius * std::sin(elevation);
            *out++ = u;
            *out++ = j * vStep;
            elevation -= elevationStep;
        }
        azimuth += azimuthStep;
    }

    // The top of each column is one triangle (its two top vertices meet at
    // the pole); every row below it is a quad of two.
    const int s = rows + 1;
    indexCount = columns * 3 * (1 + 2 * (rows - 1));
    indices = static_cast<unsigned short*>(std::malloc(sizeof(unsigned short) * indexCount));
    unsigned short* idx = indices;
    auto put = [&idx](int a, int b, int d) {
        *idx++ = static_cast<unsigned short>(a);
        *idx++ = static_cast<unsigned short>(b);
        *idx++ = static_cast<unsigned short>(d);
    };
    for (int i = 0; i < columns; ++i) {
        put(s * i + s + 1, s * i + 1, s * i);
        for (int j = 1; j < rows; ++j) {
            put(s * i + s + j + 1, s * i + j + 1, s * i + j);
            put(s * (i + 1) + j, s * i + s + j + 1, s * i + j);
        }
    }

    if (!mesh) return;
    mesh->setVertexType(VF_POS3 | VF_TEX0);
    mesh->setVertexPoolType(GL_DYNAMIC_DRAW);
    mesh->setIndexPoolType(GL_DYNAMIC_DRAW);
    mesh->setDrawMethod(GL_TRIANGLES);
    mesh->setVertexData(vertices, static_cast<int>(sizeof(float)) * kFloatsPerVertex * vertexCount);
    mesh->setVertexNum(vertexCount);
    mesh->setIndexData(indices, static_cast<int>(sizeof(unsigned short)) * indexCount, indexCount);
}

void ZuSkyDomeNode::update(float dt) {
    ZuNode::update(dt);
    if (!material) return;
    // The dome is drawn against depth: give the scene's framebuffer a depth
    // buffer if it was built without one.
    ZuScene* scene = getActiveScene();
    ZuFboObject* fbo = scene ? scene->getFbo() : nullptr;
    if (fbo && !fbo->isDepthEnabled()) fbo->enableDepthBuffer();
    material->setDepthClear(true);
    material->setDepthTest(true);
    material->setBlend(true, GL_ONE, GL_ONE_MINUS_SRC_ALPHA);
    material->setModelMatrix(getAbsoluteMat().m);
    ZuGlobalParam* param = app ? app->getGlobalParam() : nullptr;
    if (param && param->activeCamera) material->setVPMatrix(param->activeCamera->getVPMat());
    material->setTexture0(texture);
}

void ZuSkyDomeNode::render() {
    if (!isVisible() || !getActiveScene() || !getRenderObject() || !texture || indexCount == 0) return;
    getRenderObject()->pushCmd(getActiveRenderScene(), getRenderOrder(), "SkyDome");
}
