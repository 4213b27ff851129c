#include "node/morph/ZuFaceNewMorphNode.h"

#include "basesys/DataChunk.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuFileMgr.h"
#include "basesys/ZuGBase.h"
#include "basesys/ZuGlobalMgr.h"
#include "node/face/ZuNodePerson.h"
#include "node/morph/ZuNewMorphData.h"
#include "person/ZuPerson.h"
#include "platform/ZuLog.h"
#include "render/ZuRenderMgr.h"
#include "render/command/RENDERSTREAMTYPE.h"
#include "render/fbo/ZuFboSwapRenderObject.h"
#include "render/material/ZuMaterial.h"
#include "render/mesh/ZuRenderData.h"
#include "render/mesh/ZuRenderMeshDvid.h"
#include "render/object/ZuRenderObject.h"
#include "scene/ZuScene.h"

#include <GLES2/gl2.h>
#include <rapidjson/document.h>

#include <cmath>
#include <vector>

namespace {

const char* const kTriangleFile = "shader/mesh/newmorph_mesh_as.json";
const char* const kRuleFile = "shader/mesh/newmorph_rules_as.json";
const int kLandmarks = 101;
const int kCentre = 97;
const int kClosedMouth = 93;
const int kBrowCopies[8] = {19, 21, 22, 23, 30, 31, 32, 34};

bool readJson(ZuAppMain* app, const char* path, rapidjson::Document& doc) {
    ZuFileMgr* files = app && app->getGlobalMgr() ? app->getGlobalMgr()->getFileMgr() : nullptr;
    DataChunk chunk;
    if (!files || !files->loadFileContentStr(&chunk, path) || !chunk.getBuffer()) {
        QZLOGW("landmark morph: \"%s\" is missing", path);
        return false;
    }
    doc.Parse(chunk.getBuffer());
    if (doc.HasParseError() || !doc.IsObject()) {
        QZLOGW("landmark morph: \"%s\" is no JSON object", path);
        return false;
    }
    return true;
}

} // namespace

ZuFaceNewMorphNode::ZuFaceNewMorphNode(ZuAppMain* app) : ZuFaceMorphNode(app) { setType("ZuFaceNewMorphNode"); }

ZuFaceNewMorphNode::~ZuFaceNewMorphNode() {
    qzSafeRelease(faceObject);
    qzSafeRelease(faceMesh);
}

void ZuFaceNewMorphNode::zuinit() {
    ZuNode::zuinit();
    material = new ZuMaterial(app, "screennor");
    material->setTexcoordFlip(1.0f, 1.0f);
    listenEvent();
}

void ZuFaceNewMorphNode::zudestroy() {
    qzSafeRelease(faceObject);
    qzSafeRelease(faceMesh);
    ZuFaceMorphNode::zudestroy();
}

bool ZuFaceNewMorphNode::loadTriangles() {
    rapidjson::Document doc;
    if (!readJson(app, kTriangleFile, doc)) return false;
    auto data = doc.FindMember("data");
    if (data == doc.MemberEnd() || !data->value.IsArray() || data->value.Size() != kIndices) {
        QZLOGW("landmark morph: \"%s\" holds no %d vertex numbers", kTriangleFile, kIndices);
        return false;
    }
    for (int i = 0; i < kIndices; ++i) {
        const rapidjson::Value& entry = data->value[i];
        if (!entry.IsInt() || entry.GetInt() < 0 || entry.GetInt() >= kVertices) {
            QZLOGW("landmark morph: \"%s\" entry %d is no vertex of 0..127", kTriangleFile, i);
            return false;
        }
        faceIndices[i] = static_cast<uint16_t>(entry.GetInt());
    }
    return true;
}

void ZuFaceNewMorphNode::loadDefaultRules() {
    rapidjson::Document doc;
    if (!readJson(app, kRuleFile, doc)) return;
    auto rules = doc.FindMember("rules");
    if (rules == doc.MemberEnd() || !rules->value.IsArray()) {
        QZLOGW("landmark morph: \"%s\" holds no rule list", kRuleFile);
        return;
    }
    std::vector<ZuNewMorphData> list(rules->value.Size());
    for (unsigned e = 0; e < rules->value.Size(); ++e) {
        const rapidjson::Value& rule = rules->value[e];
        bool ok = rule.IsObject() && rule.HasMember("start") && rule["start"].IsInt() && rule.HasMember("end") &&
                  rule["end"].IsInt() && rule.HasMember("indices") && rule["indices"].IsArray() &&
                  rule.HasMember("strength") && rule["strength"].IsNumber();
        std::vector<int32_t> indices;
        for (unsigned k = 0; ok && k < rule["indices"].Size(); ++k) {
            ok = rule["indices"][k].IsInt();
            if (ok) indices.push_back(rule["indices"][k].GetInt());
        }
        if (!ok) {
            QZLOGW("landmark morph: rule %u of \"%s\" is malformed; no default rules", e, kRuleFile);
            return;
        }
        list[e].startIndex = rule["start"].GetInt();
        list[e].endIndex = rule["end"].GetInt();
        list[e].setIndices(indices.data(), static_cast<uint32_t>(indices.size()));
        list[e].strength = rule["strength"].GetFloat();
        list[e].adaptive = rule.HasMember("adaptive") && rule["adaptive"].IsBool() && rule["adaptive"].GetBool();
    }
    setNewMorphData(list.data(), static_cast<int>(list.size()));
}

void ZuFaceNewMorphNode::doRenderMeshInit() {
    faceMesh = new ZuRenderMeshDvid();
    faceMesh->setVertexType(VF_POS2 | VF_TEX0);
    faceMesh->setVertexPoolType(GL_DYNAMIC_DRAW);
    faceMesh->setIndexPoolType(GL_STATIC_DRAW);
}

void ZuFaceNewMorphNode::doMorphInit() {
    trianglesLoaded = loadTriangles();
    // Rules the host handed over before the first frame stay.
    if (!newMorphList) loadDefaultRules();
    if (!faceMesh || !trianglesLoaded) return;
    faceMesh->setVertexNum(kVertices);
    faceMesh->setVertex2Data(moved, static_cast<int>(sizeof moved));
    faceMesh->setTexcoord0Data(faceTexcoords, static_cast<int>(sizeof faceTexcoords));
    faceMesh->setIndexData(faceIndices, static_cast<int>(sizeof faceIndices), kIndices);
}

bool ZuFaceNewMorphNode::layVertices(ZuPerson* person, float pixels[kVertices][2]) {
    if (person->getFacePtNum() < kLandmarks) return false;
    for (int i = 0; i < kLandmarks; ++i) {
        pixels[i][0] = person->getFaceDataX(i);
        pixels[i][1] = person->getFaceDataY(i);
        if (!std::isfinite(pixels[i][0]) || !std::isfinite(pixels[i][1])) return false;
    }
    // The inner lips close on one point, so the mouth is drawn shut.
    for (int i = 87; i <= 94; ++i) pixels[i][0] = pixels[kClosedMouth][0], pixels[i][1] = pixels[kClosedMouth][1];
    for (int i = 0; i < 8; ++i) {
        pixels[101 + i][0] = pixels[kBrowCopies[i]][0];
        pixels[101 + i][1] = pixels[kBrowCopies[i]][1];
    }
    const float cx = pixels[kCentre][0], cy = pixels[kCentre][1];
    for (int i = 0; i <= 18; ++i) {
        pixels[109 + i][0] = pixels[i][0] * 1.3f - cx * 0.3f;
        pixels[109 + i][1] = pixels[i][1] * 1.3f - cy * 0.3f;
    }
    return true;
}

void ZuFaceNewMorphNode::doNewMorph(ZuPerson* person, float width, float height, int slot) {
    (void)slot;  // one face slot
    float pixels[kVertices][2] = {};
    if (width <= 0.0f || height <= 0.0f || !layVertices(person, pixels)) return;
    drawn = true;
    for (int i = 0; i < kVertices; ++i) {
        moved[i * 2] = 2.0f * pixels[i][0] / width - 1.0f;
        moved[i * 2 + 1] = 2.0f * pixels[i][1] / height - 1.0f;
        faceTexcoords[i * 2] = moved[i * 2] * 0.5f + 0.5f;
        faceTexcoords[i * 2 + 1] = moved[i * 2 + 1] * 0.5f + 0.5f;
    }
    for (int e = 0; e < newMorphCount; ++e) {
        const ZuNewMorphData& rule = newMorphList[e];
        // Each rule works on what the rule before it made of its points.
        if (e > 0) {
            const ZuNewMorphData& before = newMorphList[e - 1];
            for (uint32_t k = 0; k < before.count; ++k) {
                int v = before.indices[k];
                pixels[v][0] = (moved[v * 2] + 1.0f) * width / 2.0f;
                pixels[v][1] = (moved[v * 2 + 1] + 1.0f) * height / 2.0f;
            }
        }
        const float px = pixels[rule.startIndex][0], py = pixels[rule.startIndex][1];
        const float qx = pixels[rule.endIndex][0], qy = pixels[rule.endIndex][1];
        const float dx = qx - px, dy = qy - py;
        float feet[kVertices][2];
        float total = 0.0f;
        for (uint32_t k = 0; k < rule.count; ++k) {
            const float* p = pixels[rule.indices[k]];
            float* f = feet[k];
            // Lines within a hundredth of a pixel of upright or level take
            // the simple branches: the general one divides by both sides.
            if (std::fabs(dx) < 0.01f) {
                f[0] = px, f[1] = p[1];
                total += std::fabs(p[0] - f[0]);
            } else if (std::fabs(dy) < 0.01f) {
                f[0] = p[0], f[1] = py;
                total += std::fabs(p[1] - f[1]);
            } else {
                float a = 1.0f / dx, b = -1.0f / dy, c = -qx / dx + qy / dy, t = a * p[1] - b * p[0];
                float n = a * a + b * b;
                f[0] = -(a * c + b * t) / n;
                f[1] = (a * t - b * c) / n;
                total += std::fabs(p[0] - f[0]) + std::fabs(p[1] - f[1]);
            }
        }
        float s = rule.strength;
        if (rule.adaptive && total > 0.0f) {
            // A face part already narrow against its line is pulled less.
            float r = (std::fabs(dx) + std::fabs(dy)) / total;
            if (r >= 2.5f) s = 0.0f;
            else if (r > 1.5f) s = rule.strength * (2.5f - r);
        }
        for (uint32_t k = 0; k < rule.count; ++k) {
            int v = rule.indices[k];
            float x = (1.0f - s) * pixels[v][0] + s * feet[k][0];
            float y = (1.0f - s) * pixels[v][1] + s * feet[k][1];
            moved[v * 2] = 2.0f * x / width - 1.0f;
            moved[v * 2 + 1] = 2.0f * y / height - 1.0f;
        }
    }
    if (faceMesh && trianglesLoaded) {
        faceMesh->setVertex2Data(moved, static_cast<int>(sizeof moved));
        faceMesh->setTexcoord0Data(faceTexcoords, static_cast<int>(sizeof faceTexcoords));
    }
}

void ZuFaceNewMorphNode::update(float dt) {
    (void)dt;
    if (!started) {
        started = true;
        swapObject = new ZuFboSwapRenderObject(app);
        doRenderMeshInit();
        doMorphInit();
        // The picture copied over itself by the shared full-screen quad.
        renderObject = new ZuRenderObject(app);
        renderObject->setMaterial(material);
        ZuRenderMgr* renderMgr = ZuGBase::renderMgrOf(app);
        if (renderMgr && renderMgr->getRenderData()) renderObject->setMesh(renderMgr->getRenderData()->meshFull);
        faceObject = new ZuRenderObject(app);
        faceObject->setMaterial(material);
        faceObject->setMesh(faceMesh);
    }
    ZuScene* scene = getActiveScene();
    if (scene && material) material->setTexture0FBO(scene->getFbo(), false);
    drawFlag = false;
    drawn = false;
    ZuPerson* person = ZuNodePerson::of(this, 1);
    if (!person || !person->getExist()) return;
    drawFlag = true;
    int width = 0, height = 0;
    pictureSize(width, height);
    doNewMorph(person, static_cast<float>(width), static_cast<float>(height), 0);
}

void ZuFaceNewMorphNode::render() {
    if (!isVisible() || !drawFlag) return;
    ZuRenderScene* renderScene = getActiveRenderScene();
    if (!renderScene || !swapObject || !renderObject || !material || !material->getProgram()) return;
    swapObject->pushCmd(renderScene, RS_FACE_WARP, "null");
    renderObject->pushCmd(renderScene, RS_FACE_WARP, "null");
    if (drawn && faceObject && trianglesLoaded) faceObject->pushCmd(renderScene, RS_FACE_WARP, "null");
}
