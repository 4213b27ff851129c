#include "node/mask/ZuSwapFaceNode.h"

#include "basesys/Camera.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuCheck.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuGBase.h"
#include "basesys/ZuGlobalParam.h"
#include "data/FaceMesh.h"
#include "data/StanderFace.h"
#include "data/ZuMeshDataMgr.h"
#include "node/camera/BGTexture.h"
#include "node/face/ZuNodePerson.h"
#include "node/mask/ZuFaceFrame.h"
#include "node/mask/ZuMaterialSwapFace.h"
#include "person/ZuPerson.h"
#include "platform/ZuLog.h"
#include "render/ZuRenderCamera.h"
#include "render/command/RENDERSTREAMTYPE.h"
#include "render/mesh/ZuRenderMesh.h"
#include "render/object/ZuRenderObject.h"
#include "render/texture/ZuTexMgr.h"
#include "render/texture/ZuTexture.h"

#include <GLES2/gl2.h>
#include <algorithm>
#include <utility>


ZuSwapFaceNode::ZuSwapFaceNode(ZuAppMain* app) : ZuNode(app) { setType("ZuSwapFaceNode"); }

void ZuSwapFaceNode::zuinit() {
    ZuNode::zuinit();
    ZuGlobalParam* param = app ? app->getGlobalParam() : nullptr;
    BGTexture* background = param ? param->getBgTexture(getSceneName().c_str()) : nullptr;
    QZ_REQUIRE(background && background->getFbo(), "face swap '%s': scene '%s' has no camera picture", getname().c_str(),
               getSceneName().c_str());
    ZuTexMgr* textures = ZuGBase::texMgrOf(app);
    ZuTexture* mask = textures ? textures->getTextureSync(kMaskPath) : nullptr;
    if (!mask) QZLOGW("face swap '%s': soft mask \"%s\" did not load", getname().c_str(), kMaskPath);
    for (ZuMaterialSwapFace** material : {&materialA, &materialB}) {
        *material = new ZuMaterialSwapFace(app);
        (*material)->init();
        (*material)->setTexture0FBO(background->getFbo());
        if (mask) (*material)->setTexture1(mask);
    }
    objectA = new ZuRenderObject(app);
    objectB = new ZuRenderObject(app);
}

void ZuSwapFaceNode::zudestroy() {
    ZuNode::zudestroy();
    qzSafeRelease(meshA);
    qzSafeRelease(meshB);
    qzSafeRelease(materialA);
    qzSafeRelease(materialB);
    qzSafeRelease(objectA);
    qzSafeRelease(objectB);
    standardCount = triangleCount = 0;
}

void ZuSwapFaceNode::initMesh() {
    standardCount = triangleCount = 0;
    ZuMeshDataMgr* data = ZuGBase::meshDataMgrOf(app);
    const FaceMesh* mesh = data ? data->getFaceMesh(meshName()) : nullptr;
    const StanderFace* face = data ? data->getStanderFace(faceName()) : nullptr;
    QZ_REQUIRE(mesh && face, "face swap '%s': mesh \"%s\" or standard face \"%s\" missing", getname().c_str(), meshName(),
               faceName());
    // The live points: landmarks and the synthetic points, no corners.
    float probe[kMaxPoints * 2] = {};
    int count = landmarkCount();
    std::copy(face->data, face->data + std::min(count, StanderFace::kMaxValues / 2) * 2, probe);
    extendPoints(probe, count);
    QZ_REQUIRE(face->facepoints_count >= count && mesh->vertexcount == face->facepoints_count &&
                   face->design_img_width > 0 && face->design_img_height > 0,
               "face swap '%s': \"%s\" holds %d points (mesh %d), the back end gives %d", getname().c_str(), faceName(),
               face->facepoints_count, mesh->vertexcount, count);
    // The full meshes end in the design picture's corners: the swap has no
    // such points on a live face, so triangles that use them are left out.
    int kept = 0;
    for (int t = 0; t < mesh->tricount && kept + 3 <= kMaxIndices; ++t) {
        const int* tri = &mesh->data[t * 3];
        if (tri[0] >= count || tri[1] >= count || tri[2] >= count) continue;
        for (int k = 0; k < 3; ++k) indices[kept++] = static_cast<uint16_t>(tri[k]);
    }
    QZ_REQUIRE(kept > 0, "face swap '%s': no triangles on the face in \"%s\"", getname().c_str(), meshName());
    standardWidth = face->design_img_width;
    standardHeight = face->design_img_height;
    std::copy(face->data, face->data + count * 2, standard);
    standardCount = count;
    triangleCount = kept / 3;
    for (ZuRenderMesh** mesh : {&meshA, &meshB}) {
        if (!*mesh) {
            *mesh = new ZuRenderMesh();
            (*mesh)->setVertexType(static_cast<VFTYPE>(VF_POS2 | VF_TEX0 | VF_TEX1));
            (*mesh)->setIndexPoolType(GL_STATIC_DRAW);
            (*mesh)->setVertexPoolType(GL_DYNAMIC_DRAW);
        }
        (*mesh)->setIndexData(indices, kept * static_cast<int>(sizeof(uint16_t)), kept);
    }
    for (ZuMaterialSwapFace* material : {materialA, materialB})
        if (material) material->setTexSizeIndex(1, 1.0f / standardWidth, 1.0f / standardHeight);
}

bool ZuSwapFaceNode::fillPoints(int personID, float* out) {
    ZuPerson* person = ZuNodePerson::of(this, personID);
    if (!person || !person->getExist()) return false;
    const int n = landmarkCount();
    std::copy(person->getFaceData(), person->getFaceData() + n * 2, out);
    int count = n;
    extendPoints(out, count);
    return count == standardCount;
}

bool ZuSwapFaceNode::_updatemesh() {
    float w = 0.0f, h = 0.0f;
    ZuConfig* config = ZuGBase::configOf(app);
    Camera* camera = config ? config->getCamera(getSceneName().c_str()) : nullptr;
    if (!camera || !ZuFaceFrame::size(this, &w, &h) || !fillPoints(1, pointsA) || !fillPoints(2, pointsB)) return false;
    // Mesh A stands on face 1 and shows face 2's pixels; mesh B the reverse.
    auto fill = [&](ZuRenderMesh* mesh, const float* on, const float* from) {
        for (int i = 0; i < standardCount; ++i) {
            float* v = &vertices[i * 6];
            v[0] = on[i * 2], v[1] = on[i * 2 + 1];
            ZuFaceFrame::toCamera(from[i * 2], from[i * 2 + 1], w, h, camera->angle, &v[2], &v[3]);
            v[4] = standard[i * 2], v[5] = standard[i * 2 + 1];
        }
        mesh->setVertexData(vertices, standardCount * 6 * static_cast<int>(sizeof(float)));
        mesh->setVertexNum(standardCount);
    };
    fill(meshA, pointsA, pointsB);
    fill(meshB, pointsB, pointsA);
    return true;
}

void ZuSwapFaceNode::update(float dt) {
    ZuNode::update(dt);
    swapping = false;
    ZuRenderCamera* camera = ZuFaceFrame::camera(app);
    if (!materialA || !materialB || !meshA || !meshB || !camera || standardCount == 0) return;
    float w = 0.0f, h = 0.0f;
    if (!ZuFaceFrame::size(this, &w, &h)) return;
    ZuPerson* one = ZuNodePerson::of(this, 1);
    ZuPerson* two = ZuNodePerson::of(this, 2);
    if (!one || !two || !one->getExist() || !two->getExist()) return;
    if (!_updatemesh()) return;
    float model[16];
    ZuFaceFrame::modelMatrix(camera, w, h, model);
    const std::pair<ZuMaterialSwapFace*, ZuRenderMesh*> halves[] = {{materialA, meshA}, {materialB, meshB}};
    ZuRenderObject* objects[] = {objectA, objectB};
    for (int k = 0; k < 2; ++k) {
        ZuMaterialSwapFace* material = halves[k].first;
        material->setModelMatrix(model);
        material->setVPMatrix(camera->getVPMat());
        material->setBlend(true, GL_ONE, GL_ONE_MINUS_SRC_ALPHA);
        // Coordinates 0 arrive as 0..1 of the camera picture.
        material->setTexSizeIndex(0, 1.0f, 1.0f);
        material->setTexcoordFlip(1.0f, 1.0f);
        material->update(dt);
        objects[k]->setMaterial(material);
        objects[k]->setMesh(halves[k].second);
    }
    swapping = true;
}

void ZuSwapFaceNode::render() {
    if (!isVisible() || !swapping || !objectA || !objectB) return;
    ZuRenderScene* scene = getActiveRenderScene();
    if (!scene) return;
    objectA->pushCmd(scene, RS_FACE_SWAP, "2dswapface0");
    objectB->pushCmd(scene, RS_FACE_SWAP, "2dswapface1");
}
