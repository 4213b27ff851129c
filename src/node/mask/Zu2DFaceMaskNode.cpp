#include "node/mask/Zu2DFaceMaskNode.h"

#include "basesys/ZuCheck.h"
#include "basesys/ZuGBase.h"
#include "data/FaceMesh.h"
#include "data/StanderFace.h"
#include "data/ZuMeshDataMgr.h"
#include "event/ZuEffectEvent.h"
#include "node/face/ZuNodePerson.h"
#include "node/mask/ZuFaceFrame.h"
#include "person/ZuPerson.h"
#include "platform/ZuLog.h"
#include "render/command/RENDERSTREAMTYPE.h"
#include "render/material/ZuMaterial.h"
#include "render/mesh/ZuRenderMesh.h"
#include "render/object/ZuRenderObject.h"
#include "render/ZuRenderCamera.h"

#include <GLES2/gl2.h>
#include <algorithm>

Zu2DFaceMaskNode::Zu2DFaceMaskNode(ZuAppMain* app) : ZuNode(app) { setType("Zu2DFaceMaskNode"); }

void Zu2DFaceMaskNode::zuinit() {
    ZuNode::zuinit();
    ZuRenderObject* object = new ZuRenderObject(app);
    setRenderObject(object);
    object->release();
    setVisible(false);
    listenEvent();
}

void Zu2DFaceMaskNode::zudestroy() {
    unlistenEvent();
    qzSafeRelease(mesh);
    qzSafeRelease(material);
    ZuNode::zudestroy();
}

void Zu2DFaceMaskNode::setMaterial(ZuMaterial* value) { qzAssignRetained(material, value); }

void Zu2DFaceMaskNode::setsceneName(const char* name) { sceneName = name ? name : ""; }

bool Zu2DFaceMaskNode::procEvent(ZuEvent* event) {
    if (event && event->type == ZU_EVENT_EFFECT && event->resUID == getresUID()) setVisible(true);
    return ZuNode::procEvent(event);
}

void Zu2DFaceMaskNode::initMesh(FACEMASK2DTYPE type) {
    meshType = type;
    pointCount = triangleCount = liveCount = 0;
    ZuMeshDataMgr* data = ZuGBase::meshDataMgrOf(app);
    const FaceMesh* faceMesh = data ? data->getFaceMesh(meshName(type)) : nullptr;
    const StanderFace* face = data ? data->getStanderFace(faceName(type)) : nullptr;
    QZ_REQUIRE(faceMesh && face, "2D face mask '%s': mesh \"%s\" or standard face \"%s\" missing",
               getname().c_str(), meshName(type), faceName(type));
    // The live face gets the landmarks plus the synthetic points; a file made
    // for another layout would stretch the picture over the wrong points.
    float probe[kMaxPoints * 2] = {};
    int expected = getFacePointNum();
    std::copy(face->data, face->data + std::min(expected, StanderFace::kMaxValues / 2) * 2, probe);
    extendPoints(probe, expected, type == FACEMASK2D_FULL);
    if (type == FACEMASK2D_FULL) expected += 4;
    QZ_REQUIRE(face->facepoints_count == expected && faceMesh->vertexcount == expected &&
                   face->design_img_width > 0 && face->design_img_height > 0,
               "2D face mask '%s': \"%s\" holds %d points (mesh %d), the back end gives %d", getname().c_str(),
               faceName(type), face->facepoints_count, faceMesh->vertexcount, expected);
    QZ_REQUIRE(faceMesh->tricount > 0 && faceMesh->tricount * 3 <= kMaxIndices, "2D face mask '%s': %d triangles",
               getname().c_str(), faceMesh->tricount);
    designWidth = static_cast<float>(face->design_img_width);
    designHeight = static_cast<float>(face->design_img_height);
    std::copy(face->data, face->data + expected * 2, standardPoints);
    for (int i = 0; i < faceMesh->tricount * 3; ++i) indices[i] = static_cast<uint16_t>(faceMesh->data[i]);
    pointCount = expected;
    triangleCount = faceMesh->tricount;
    if (!mesh) {
        mesh = new ZuRenderMesh();
        mesh->setVertexType(static_cast<VFTYPE>(VF_POS2 | VF_TEX0));
        mesh->setIndexPoolType(GL_STATIC_DRAW);
        mesh->setVertexPoolType(GL_STREAM_DRAW);
    }
    mesh->setIndexData(indices, triangleCount * 3 * static_cast<int>(sizeof(uint16_t)), triangleCount * 3);
}

void Zu2DFaceMaskNode::fillLivePoints(bool full) {
    liveCount = 0;
    ZuPerson* person = ZuNodePerson::of(this);
    float frameW = 0.0f, frameH = 0.0f;
    if (!person || !person->getExist() || pointCount == 0 || !ZuFaceFrame::size(this, &frameW, &frameH)) return;
    const int n = getFacePointNum();
    std::fill(livePoints, livePoints + kMaxPoints * 2, 0.0f);
    std::copy(person->getFaceData(), person->getFaceData() + n * 2, livePoints);
    int count = n;
    extendPoints(livePoints, count, full);
    if (full) {
        const float corners[4][2] = {{0, 0}, {frameW, 0}, {frameW, frameH}, {0, frameH}};
        for (const auto& c : corners) {
            livePoints[count * 2] = c[0];
            livePoints[count * 2 + 1] = c[1];
            ++count;
        }
    }
    if (count != pointCount) {
        // A degenerate face (ears on one point) yields no forehead: skip it.
        if (!warnedCount) QZLOGW("2D face mask '%s': %d live points for %d design points, not drawn",
                                 getname().c_str(), count, pointCount);
        warnedCount = true;
        return;
    }
    for (int i = 0; i < count; ++i) {
        float* v = &vertices[i * 4];
        v[0] = livePoints[i * 2];
        v[1] = livePoints[i * 2 + 1];
        v[2] = standardPoints[i * 2];
        v[3] = standardPoints[i * 2 + 1];
    }
    mesh->setVertexData(vertices, count * 4 * static_cast<int>(sizeof(float)));
    mesh->setVertexNum(count);
    float model[16];
    ZuFaceFrame::modelMatrix(ZuFaceFrame::camera(app), frameW, frameH, model);
    material->setModelMatrix(model);
    // Landmarks count from the bottom of the frame, pictures from the top.
    material->setTexSizeIndex(0, 1.0f / designWidth, 1.0f / designHeight);
    material->setTexcoordFlip(1.0f, -1.0f);
    liveCount = count;
}

void Zu2DFaceMaskNode::_updatemesh() { fillLivePoints(true); }
void Zu2DFaceMaskNode::_updatesimplifymesh() { fillLivePoints(false); }

void Zu2DFaceMaskNode::update(float dt) {
    ZuNode::update(dt);
    liveCount = 0;
    ZuPerson* person = ZuNodePerson::of(this);
    ZuRenderCamera* camera = ZuFaceFrame::camera(app);
    if (!person || !person->getExist() || !material || !mesh || !camera) return;
    material->setVPMatrix(camera->getVPMat());
    material->setBlend(true, GL_ONE, GL_ONE_MINUS_SRC_ALPHA);
    material->update(dt * 0.001f);
    if (meshType == FACEMASK2D_FULL) _updatemesh();
    else _updatesimplifymesh();
    if (ZuRenderObject* object = getRenderObject()) {
        object->setMaterial(material);
        object->setMesh(mesh);
    }
}

void Zu2DFaceMaskNode::render() {
    ZuRenderObject* object = getRenderObject();
    if (!isVisible() || !object || liveCount == 0 || !material) return;
    ZuPerson* person = ZuNodePerson::of(this);
    if (!person || !person->getExist()) return;
    object->pushCmd(getActiveRenderScene(), RS_FACE_MASK, "2dfacemask");
}
