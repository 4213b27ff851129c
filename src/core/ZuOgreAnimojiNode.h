#pragma once

#include "person/MORPHINDEX.h"
#include "render/math/ZuVec3.h"
#include "scene/ZuNode.h"

#include <map>
#include <string>

class ZuMaterial;
class ZuMultMeshMatRenderObject;
class ZuOgreAnimojiMesh;
class ZuOgrePieceModel;
class ZuRenderCamera;
class ZuRenderObject;
class ZuTexture;

// A 3D character that copies the first person's face: the 52 blend-shape
// weights of the animoji tracker are summed on the processor into one morph
// offset a vertex, and the head pose turns the configured bones. Drawn with
// depth in the overlay stream, over an optional background picture.
//
// Loading reads files only; the GL buffers are filled on the next tick.
// The node stays invisible until every texture of the model has loaded.
class ZuOgreAnimojiNode : public ZuNode {
public:
    static const char* const kBlendShapeNames[MORPHINDEX_COUNT];

    explicit ZuOgreAnimojiNode(ZuAppMain* app);
    ~ZuOgreAnimojiNode() override;

    void zuinit() override;
    void zudestroy() override;
    void update(float delta) override;
    void render() override;
    virtual void init() {}

    // False (logged) when the mesh can't be read; the node then draws nothing.
    bool LoadModel(const std::string& meshPath, const std::string& materialPath);
    void UnloadModel();
    void LoadMaterial(const std::string& path);
    void SetManualBones(const std::map<std::string, int>& bones) { manualBones = bones; }
    // An empty name: no background, the picture below shows through.
    void SetBackgroundTexture(const std::string& name);
    void SetPostion(const ZuVec3& p) { position = p; }
    void SetScale(const ZuVec3& s) { scale = s; }
    // Centre the character on the face's landmarks and size it by the
    // face's width: the scale is then a multiple of that width.
    void SetFollowFace(bool follow) { followFace = follow; }

    // Sums the weighted pose offsets of target into morph (floats, 3 a
    // vertex): zero weights and poses the model lacks cost nothing.
    static void sumMorphs(const ZuOgrePieceModel& model, int target, const float* weights, float* morph,
                          int floats);

    ZuOgrePieceModel* getPieceModel() const { return model; }
    bool isLoaded() const { return loaded; }
    const float* getBlendShapeWeights() const { return weights; }
    float getYaw() const { return yaw; }
    ZuOgreAnimojiMesh* getMesh(int submesh) const;
    const ZuVec3& getPosition() const { return position; }

private:
    void _updateMesh();
    void _setLight(const std::string& materialName, ZuMaterial* material);
    void updateOgreMeshAnimate(const float* values);
    void updateMatrix();
    void placeOnFace();
    bool texturesLoaded() const;

    ZuOgrePieceModel* model = nullptr;
    bool loaded = false;
    bool meshDirty = false;
    std::map<int, ZuOgreAnimojiMesh*> meshes;
    std::map<int, ZuMaterial*> materials;
    ZuMultMeshMatRenderObject* meshObject = nullptr;
    ZuRenderObject* backgroundObject = nullptr;
    ZuMaterial* backgroundMaterial = nullptr;
    std::map<std::string, int> manualBones;
    std::string backgroundName;
    ZuTexture* background = nullptr;
    ZuVec3 position;
    ZuVec3 scale;
    bool followFace = false;
    float weights[MORPHINDEX_COUNT] = {};
    float yaw = 0.0f, roll = 0.0f, pitch = 0.0f;
    ZuRenderCamera* camera = nullptr;
};
