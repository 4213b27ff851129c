#include "core/ZuOgreAnimojiNode.h"

#include "basesys/DataStream.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuGlobalMgr.h"
#include "basesys/ZuGlobalParam.h"
#include "core/MeshSerializer.h"
#include "core/Serializer.h"
#include "core/Skeleton.h"
#include "core/VertexData.h"
#include "core/ZuMatCommonModel.h"
#include "core/ZuMatSkeletonAnimation.h"
#include "core/ZuOgreAnimojiMesh.h"
#include "core/ZuOgrePieceModel.h"
#include "core/ZuSubMesh.h"
#include "person/ZuPerson.h"
#include "person/ZuPersonAnimojiMgr.h"
#include "person/ZuPersonSys.h"
#include "platform/ZuLog.h"
#include "render/ZuRenderCamera.h"
#include "render/ZuRenderMgr.h"
#include "render/command/RENDERSTREAMTYPE.h"
#include "render/mesh/ZuRenderData.h"
#include "render/object/ZuMultMeshMatRenderObject.h"
#include "render/texture/ZuTexMgr.h"
#include "render/texture/ZuTexture.h"
#include "scene/ZuScene.h"

#include <GLES2/gl2.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <sstream>
#include <vector>

const char* const ZuOgreAnimojiNode::kBlendShapeNames[MORPHINDEX_COUNT] = {
    "Blink", "Blink_R", "Blink_L", "EyesLeft", "EyesRight", "EyesUp", "EyesDown", "JawForward",
    "MouthRight", "MouthLeft", "MouthOpen", "MouthClose", "MouthFrownLeft", "MouthFrownRight",
    "MouthFrown", "SmileMouth", "SmileMouth_R", "SmileMouth_L", "MouthRollUpper", "MouthRollLower",
    "MouthStretchLeft", "MouthStretchRight", "MouthStretch", "UpperLip", "LowerLip", "CrookedMouth_L",
    "CrookedMouth_R", "CrookedMouth", "ShrinkMouth", "NuZui", "BrowUp_R", "BrowUp_L", "BrowUp",
    "GrinUp_L", "GrinUp_R", "GrinDown_L", "GrinDown_R", "BrowsIn", "BrowsIn_L", "BrowsIn_R", "Sniff",
    "Sniff_R", "Sniff_L", "UpperLip_R", "UpperLip_L", "XiaNuZui", "CheekPuff", "CheekPuff_R",
    "CheekPuff_L", "EyesWide", "TongueOut", "ShouBoZi",
};

namespace {
// Vertex formats: with a skeleton position, normal, texture coordinate,
// bone indices, bone weights and the morph offsets; without, the first three.
const VFTYPE kSkinnedFormat = 725010;
const VFTYPE kPlainFormat = 4114;

// One element of an interleaved buffer copied out into a tight float array.
std::vector<float> extract(VertexData* data, uint16_t semantic, int components) {
    std::vector<float> out;
    const VertexElement* e = data->vertexDeclaration.findElementBySemantic(semantic);
    if (!e) return out;
    auto buffer = data->vertexBufferBinding.getBuffer(e->source);
    if (!buffer) return out;
    out.resize(static_cast<size_t>(data->vertexCount) * components);
    const uint8_t* base = buffer->getData() + e->offset;
    size_t copy = std::min<size_t>(e->getSize(), components * sizeof(float));
    for (uint32_t v = 0; v < data->vertexCount; ++v)
        std::memcpy(&out[static_cast<size_t>(v) * components], base + static_cast<size_t>(v) * buffer->getVertexSize(), copy);
    return out;
}

std::vector<std::string> tokens(const std::string& line) {
    std::istringstream in(line);
    std::vector<std::string> out;
    std::string t;
    while (in >> t) out.push_back(t);
    return out;
}
} // namespace

ZuOgreAnimojiNode::ZuOgreAnimojiNode(ZuAppMain* app) : ZuNode(app) {
    setVisible(false);
}

ZuOgreAnimojiNode::~ZuOgreAnimojiNode() {
    delete model;
}

void ZuOgreAnimojiNode::zuinit() {
    ZuGlobalParam* param = app ? app->getGlobalParam() : nullptr;
    camera = param ? param->activeCamera : nullptr;
    meshObject = new ZuMultMeshMatRenderObject(app);
    backgroundObject = new ZuRenderObject(app);
    setRenderOrder(RS_OVERLAY);
}

void ZuOgreAnimojiNode::zudestroy() {
    UnloadModel();
    qzSafeRelease(meshObject);
    qzSafeRelease(backgroundObject);
    qzSafeRelease(backgroundMaterial);
    qzSafeRelease(background);
    ZuNode::zudestroy();
}

ZuOgreAnimojiMesh* ZuOgreAnimojiNode::getMesh(int submesh) const {
    auto it = meshes.find(submesh);
    return it == meshes.end() ? nullptr : it->second;
}

void ZuOgreAnimojiNode::SetBackgroundTexture(const std::string& name) {
    backgroundName = name;
    ZuTexMgr* textures = texMgr();
    ZuTexture* texture = !name.empty() && textures ? textures->getTexture(name.c_str()) : nullptr;
    qzAssignRetained(background, texture);
}

bool ZuOgreAnimojiNode::LoadModel(const std::string& meshPath, const std::string& materialPath) {
    if (loaded) {
        UnloadModel();
    }
    delete model;
    model = new ZuOgrePieceModel();
    LoadMaterial(materialPath);
    if (!MeshSerializer::loadFile(meshPath, model)) {
        QZLOGW("animoji node %s: mesh %s not loaded, nothing drawn", m_name.c_str(), meshPath.c_str());
        delete model;
        model = nullptr;
        return false;
    }
    model->setModelMeshName(meshPath);
    model->initAnimationState();
    meshDirty = true;
    loaded = true;
    return true;
}

void ZuOgreAnimojiNode::UnloadModel() {
    if (meshObject) meshObject->clearRenderObj();
    for (auto& entry : meshes) qzSafeRelease(entry.second);
    meshes.clear();
    for (auto& entry : materials) {
        entry.second->destroy();
        qzSafeRelease(entry.second);
    }
    materials.clear();
    delete model;
    model = nullptr;
    loaded = false;
    meshDirty = false;
}

void ZuOgreAnimojiNode::LoadMaterial(const std::string& path) {
    if (!model || path.empty()) return;
    DataStreamPtr stream = Serializer::openFile(path);
    if (!stream) {
        QZLOGW("animoji node %s: material file %s can't be opened", m_name.c_str(), path.c_str());
        return;
    }
    size_t slash = path.find_last_of('/');
    std::string dir = slash == std::string::npos ? "" : path.substr(0, slash + 1);
    std::string block;
    bool textureSeen = false;
    while (!stream->eof()) {
        std::string line = stream->getLine(true);
        std::vector<std::string> t = tokens(line);
        if (block.empty()) {
            if (t.size() == 2 && t[0] == "material") {
                block = t[1];
                textureSeen = false;
            }
            continue;
        }
        auto color = [&](std::map<std::string, ZuModelColor>& into) {
            if (t.size() != 5) return;
            ZuModelColor c;
            c.r = std::strtof(t[1].c_str(), nullptr);
            c.g = std::strtof(t[2].c_str(), nullptr);
            c.b = std::strtof(t[3].c_str(), nullptr);
            c.a = std::strtof(t[4].c_str(), nullptr);
            into[block] = c;
        };
        if (line.find("ambient ") != std::string::npos) {
            color(model->ambientColors);
        } else if (line.find("diffuse ") != std::string::npos) {
            color(model->diffuseColors);
        } else if (line.find("specular ") != std::string::npos) {
            // accepted, no effect
        } else if (line.find("texture ") != std::string::npos) {
            if (t.size() != 2) continue;
            std::string file = t[1];
            if (file.find(".png") == std::string::npos) file += ".png";
            std::replace(file.begin(), file.end(), '\\', '/');
            ZuTexMgr* textures = texMgr();
            ZuTexture* texture = textures ? textures->getTexture((dir + file).c_str()) : nullptr;
            if (texture) model->setTexture(block, texture);
            textureSeen = true;
        } else if (line.find('}') != std::string::npos && textureSeen) {
            block.clear();
        }
    }
}

void ZuOgreAnimojiNode::_setLight(const std::string& name, ZuMaterial* material) {
    auto diffuse = model->diffuseColors.find(name);
    bool hasDiffuse = diffuse != model->diffuseColors.end();
    const float white[3] = {1.0f, 1.0f, 0.95f};
    struct Slot {
        float dir[3];
        float diffuse;
    };
    const Slot slots[4] = {{{1720, 2000, 2000}, 0.05f},
                           {{-1360, 640, -2000}, 0.05f},
                           {{320, -1000, 2000}, 0.3f},
                           {{320, 640, 2000}, 0.15f}};
    for (int i = 0; i < 4; ++i) {
        ZuMaterialLight& light = material->getLight(i);
        light.enable = true;
        std::memcpy(light.dir, slots[i].dir, sizeof light.dir);
        std::memcpy(light.color, white, sizeof light.color);
        float d = slots[i].diffuse;
        if (i == 0 && hasDiffuse) {
            light.color[0] = diffuse->second.r;
            light.color[1] = diffuse->second.g;
            light.color[2] = diffuse->second.b;
            d = diffuse->second.a * 0.7f;
        }
        light.diffuse[0] = light.diffuse[1] = light.diffuse[2] = d;
    }
    auto ambient = model->ambientColors.find(name);
    ZuMaterialAmbient& slot = material->getAmbient();
    slot.enable = ambient != model->ambientColors.end();
    if (slot.enable) {
        slot.color[0] = slot.color[1] = slot.color[2] = 0.458f;
        slot.strength[0] = slot.strength[1] = slot.strength[2] = ambient->second.a;
    }
}

void ZuOgreAnimojiNode::_updateMesh() {
    meshDirty = false;
    if (background) {
        if (!backgroundMaterial) backgroundMaterial = new ZuMaterial(app, "screennor");
        backgroundMaterial->setTexture0(background);
        backgroundMaterial->setTexcoordFlip(1.0f, 1.0f);
        ZuRenderMgr* render = renderMgr();
        if (render && render->getRenderData()) backgroundObject->setMesh(render->getRenderData()->meshFull);
        backgroundObject->setMaterial(backgroundMaterial);
    }
    bool skinned = model->hasSkeleton();
    const auto& subs = model->getSubMeshList();
    for (size_t i = 0; i < subs.size(); ++i) {
        ZuSubMesh* sub = subs[i].get();
        VertexData* data = sub->workingVertexData.get();
        if (!data) continue;
        auto* mesh = new ZuOgreAnimojiMesh();
        mesh->setVertexPoolType(GL_DYNAMIC_DRAW);
        mesh->setIndexPoolType(GL_DYNAMIC_DRAW);
        mesh->setVertexType(skinned ? kSkinnedFormat : kPlainFormat);
        mesh->setDrawMethod(GL_TRIANGLES);
        meshes[static_cast<int>(i)] = mesh;
        ZuMaterial* material = skinned ? static_cast<ZuMaterial*>(new ZuMatSkeletonAnimation(app, true))
                                       : static_cast<ZuMaterial*>(new ZuMatCommonModel(app));
        // init() resets the lights: they go in after it.
        material->init();
        _setLight(sub->materialName, material);
        material->setTexture0(sub->getTexture());
        materials[static_cast<int>(i)] = material;
        meshObject->addRenderObj(mesh, material);
        mesh->setVertexNum(static_cast<int>(data->vertexCount));
        std::vector<float> positions = extract(data, VES_POSITION, 3);
        std::vector<float> uvs = extract(data, VES_TEXTURE_COORDINATES, 2);
        if (positions.empty() || uvs.empty()) {
            QZLOGW("animoji node %s: submesh %zu has no position or texture coordinate", m_name.c_str(), i);
            return;
        }
        std::vector<float> normals = extract(data, VES_NORMAL, 3);
        int positionBytes = static_cast<int>(positions.size() * sizeof(float));
        mesh->setVertex3Data(positions.data(), positionBytes);
        if (!normals.empty()) mesh->setNormalData(normals.data(), static_cast<int>(normals.size() * sizeof(float)));
        mesh->setTexcoord0Data(uvs.data(), static_cast<int>(uvs.size() * sizeof(float)));
        mesh->setVertexBufferLength(positionBytes);
        if (const VertexElement* e = data->vertexDeclaration.findElementBySemantic(VES_BLEND_INDICES)) {
            auto buffer = data->vertexBufferBinding.getBuffer(e->source);
            const VertexElement* w = data->vertexDeclaration.findElementBySemantic(VES_BLEND_WEIGHTS);
            std::vector<float> ids(static_cast<size_t>(data->vertexCount) * 4), wts(ids.size());
            for (uint32_t v = 0; buffer && w && v < data->vertexCount; ++v) {
                const uint8_t* row = buffer->getData() + static_cast<size_t>(v) * buffer->getVertexSize();
                for (int k = 0; k < 4; ++k) ids[v * 4 + k] = row[e->offset + k];
                std::memcpy(&wts[v * 4], row + w->offset, 16);
            }
            mesh->setBoneData(ids.data(), static_cast<int>(ids.size() * sizeof(float)));
            mesh->setBoneWeightData(wts.data(), static_cast<int>(wts.size() * sizeof(float)));
        }
        // Render meshes draw 16-bit indices; the reader has checked every index.
        const IndexData& idx = sub->indexData;
        if (idx.indexCount && data->vertexCount > 65536) {
            QZLOGW("animoji node %s: submesh %zu has %u vertices, more than 16-bit indices reach", m_name.c_str(),
                   i, data->vertexCount);
            continue;
        }
        std::vector<uint16_t> indices(idx.indexCount);
        for (uint32_t k = 0; k < idx.indexCount; ++k) indices[k] = static_cast<uint16_t>(idx.getIndex(k));
        if (!indices.empty())
            mesh->setIndexData(indices.data(), static_cast<int>(indices.size() * sizeof(uint16_t)),
                               static_cast<int>(indices.size()));
    }
}

bool ZuOgreAnimojiNode::texturesLoaded() const {
    if (background && !background->getbLoad()) return false;
    for (const auto& entry : model->getTextures())
        if (entry.second && !entry.second->getbLoad()) return false;
    return true;
}

void ZuOgreAnimojiNode::placeOnFace() {
    ZuPersonSys* persons = personSys();
    ZuPerson* person = persons ? persons->getPersonByIndex(getSceneName().c_str(), 0) : nullptr;
    if (!person || person->getExistState() != 1 || !person->getFaceData()) return;
    const float* face = person->getFaceData();
    int n = person->getFacePtNum();
    if (n <= 0) return;
    float minX = face[0], maxX = face[0], minY = face[1], maxY = face[1];
    for (int i = 1; i < n; ++i) {
        minX = std::min(minX, face[2 * i]);
        maxX = std::max(maxX, face[2 * i]);
        minY = std::min(minY, face[2 * i + 1]);
        maxY = std::max(maxY, face[2 * i + 1]);
    }
    float width = maxX - minX;
    setPositionX((minX + maxX) * 0.5f, (minY + maxY) * 0.5f, position.z);
    setScaleX(scale.x * width, scale.y * width, scale.z * width);
}

void ZuOgreAnimojiNode::update(float delta) {
    setPositionX(position.x, position.y, position.z);
    setScaleX(scale.x, scale.y, scale.z);
    if (followFace) placeOnFace();
    ZuNode::update(delta);
    if (meshDirty && model) _updateMesh();

    ZuPersonSys* persons = personSys();
    ZuPerson* person = persons ? persons->getPersonByIndex(getSceneName().c_str(), 0) : nullptr;
    ZuPersonAnimojiMgr* tracker = person ? person->getAnimojiMgr() : nullptr;
    const float* values = tracker ? tracker->getValues() : nullptr;
    float tracked[MORPHINDEX_COUNT] = {};
    if (values && person->getExistState() == 1) {
        yaw = std::max(-35.0f, std::min(35.0f, tracker->getYaw()));
        roll = std::max(-20.0f, std::min(20.0f, tracker->getRoll()));
        pitch = std::max(-15.0f, std::min(15.0f, tracker->getPitch()));
        for (int i = 0; i < ShouBoZi; ++i) tracked[i] = values[i];
    } else {
        yaw = roll = pitch = 0.0f;
    }
    if (std::isnan(yaw)) yaw = 0.0f;
    if (std::isnan(roll)) roll = 0.0f;
    if (std::isnan(pitch)) pitch = 0.0f;
    tracked[ShouBoZi] = 1.0f;
    updateOgreMeshAnimate(tracked);
    if (!model) return;
    const float toRadians = 3.1415f / 180.0f;
    for (const auto& bone : manualBones) {
        float w = static_cast<float>(bone.second);
        model->Yaw(bone.first, yaw * toRadians * w / 100.0f, Bone::TS_WORLD);
        model->Pitch(bone.first, pitch * toRadians * w / -100.0f, Bone::TS_WORLD);
        model->Roll(bone.first, roll * toRadians * w / 100.0f, Bone::TS_WORLD);
    }
    model->ApplySkeletonAnimation();
    updateMatrix();
}

void ZuOgreAnimojiNode::updateOgreMeshAnimate(const float* values) {
    for (int i = 0; i < MORPHINDEX_COUNT; ++i) weights[i] = std::isnan(values[i]) ? 0.0f : values[i];
}

void ZuOgreAnimojiNode::sumMorphs(const ZuOgrePieceModel& model, int target, const float* w, float* morph,
                                  int floats) {
    std::memset(morph, 0, static_cast<size_t>(floats) * sizeof(float));
    for (int s = 0; s < MORPHINDEX_COUNT; ++s) {
        if (w[s] == 0.0f) continue;
        int n = model.getPoseBufferSize(kBlendShapeNames[s], target);
        if (n < 1) continue;
        const float* entry = model.getPoseBuffer(kBlendShapeNames[s], target);
        for (int k = 0; k < n; ++k, entry += 4) {
            int at = static_cast<int>(entry[0]) * 3;
            if (at < 0 || at + 3 > floats) continue;
            morph[at] += entry[1] * w[s];
            morph[at + 1] += entry[2] * w[s];
            morph[at + 2] += entry[3] * w[s];
        }
    }
}

void ZuOgreAnimojiNode::updateMatrix() {
    if (!camera || meshes.empty()) return;
    const ZuMat4& world = getAbsoluteMat();
    if (!model->hasSkeleton()) {
        for (auto& entry : materials) {
            ZuMaterial* m = entry.second;
            m->setDepthTest(true);
            m->setDepthFunc(GL_LEQUAL);
            m->setModelMatrix(world.m);
            m->setVPMatrix(camera->getVPMat());
            m->setBlend(true, GL_ONE, GL_ONE_MINUS_SRC_ALPHA);
        }
        return;
    }
    int count = 0;
    const ZuMatrix4* bones = nullptr;
    model->GetWorldMatrixs(&count, &bones, ZuMatrix4::fromColumnMajor(world.m));
    for (auto& entry : materials) {
        auto* m = static_cast<ZuMatSkeletonAnimation*>(entry.second);
        m->setDepthTest(true);
        m->setDepthFunc(GL_LEQUAL);
        m->setVPMatrix(camera->getVPMat());
        m->setBlend(true, GL_ONE, GL_ONE_MINUS_SRC_ALPHA);
        float column[16];
        for (int b = 0; b < count; ++b) {
            bones[b].toColumnMajor(column);
            m->setBoneTransform(b, column);
        }
        m->clearMorphWeight();
        ZuOgreAnimojiMesh* mesh = getMesh(entry.first);
        if (!mesh || mesh->getVertexBufferLength() <= 0) continue;
        int floats = mesh->getVertexBufferLength() / static_cast<int>(sizeof(float));
        sumMorphs(*model, entry.first + 1, weights, mesh->getMorphScratch(), floats);
        mesh->setMorphData(mesh->getMorphScratch(), mesh->getVertexBufferLength());
    }
}

void ZuOgreAnimojiNode::render() {
    ZuScene* scene = getScene();
    ZuRenderScene* renderScene = scene ? scene->getRenderScene() : nullptr;
    if (!renderScene) return;
    if (background && backgroundMaterial) backgroundObject->pushCmd(renderScene, RS_OVERLAY, "animojiBackgroundRender");
    if (isVisible()) {
        meshObject->pushCmd(renderScene, RS_OVERLAY, "animojiModelRender");
    } else if (model && loaded && !meshDirty && texturesLoaded()) {
        setVisible(true);
    }
}
