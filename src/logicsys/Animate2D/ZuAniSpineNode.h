#pragma once

#include "basesys/qzArray.h"
#include "basesys/qzString.h"
#include "event/ZuTriggerLists.h"
#include "logicsys/Animate2D/ZuSpine.h"
#include "render/math/ZuRect.h"
#include "scene/ZuNode.h"

class ZuMaterial;
class ZuMaterialColorSelect2dSpine;
class ZuMultMeshMatRenderObject;
class ZuPerson;
class ZuRenderMesh;
class ZuTexture;
struct spBone;

// A skeletal sticker: a ZuSpine driven every frame, full screen or on a face
// whose landmarks pin chosen bones (position, eye-distance scale, eye-line
// angle). Attachments are batched into one mesh per atlas page, each drawn
// with its own material and page texture. It plays, pauses, stops and
// switches clips on the events of its trigger lists and reports each
// change as an animation event.
class ZuAniSpineNode : public ZuNode, public ZuSpineListener {
public:
    enum { STATE_STOPPED = 0, STATE_PLAYING = 1, STATE_PAUSED = 2, STATE_PLAY_REQUESTED = 3 };

    // A clip and whether it loops.
    struct AniRef {
        qz::string name;
        bool loop = false;
    };

    explicit ZuAniSpineNode(ZuAppMain* app);

    bool procEvent(ZuEvent* event) override;
    void zuinit() override;
    void zudestroy() override;
    void update(float delta) override;
    void render() override;
    bool isReady() override;

    bool play();
    bool play(const char* name);
    bool play(const char* name, bool loop);
    void pause();
    void stop();
    void complete();
    void reset();
    void addAni(const char* name, bool loop = false);

    // Retains spine; builds one batch per atlas page its attachments use.
    void setSpine(ZuSpine* spine);
    ZuSpine* getSpine() const { return spine; }
    void setMaskTexture(ZuTexture* texture);
    // Pins bone to a standard landmark; an unknown bone is ignored.
    void addBindMapName(const char* bone, int index);
    void setSyncPosBoneNames(const qz::array<qz::string>& names) { syncPosBones = names; }
    void setDefAnimName(const char* name, bool loop);
    void setFinishAnimName(const char* name) { finishAnimName = name ? name : ""; }
    const qz::string& getCurrentActName() const { return currentAni.name; }
    bool isAnimationExistForName(const char* name) const { return spine && spine->isAnimationExistForName(name); }
    void setStreamType(RENDERSTREAMTYPE stream) { streamType = stream; }
    RENDERSTREAMTYPE getStreamType() const { return streamType; }
    void pauseAnim() { animationPaused = true; }
    void resumeAnim() { animationPaused = false; }
    bool getAniLoopForName(const char* name) const { return triggers.getAniLoopForName(name, loop); }

    // For pictures that ride on a bone: its place on screen, its slot's
    // alpha, its scale and its turn.
    bool getHeadNodePosition(float& x, float& y, const char* bone) const;
    float getSlotAlpha(const char* slot) const;
    void setHeadNodeScale(const char* bone, float& sx, float& sy) const;
    void setHeadNodeRotatedPosition(const char* bone, float cx, float cy, float& x, float& y) const;
    spBone* getHeadBone(const char* name) const { return spine ? spine->findBone(name) : nullptr; }
    ZuRect getBoundingBox() const;

    ZuTriggerLists& getTriggers() { return triggers; }
    void setaniName(const char* name) { aniName = name ? name : ""; }
    const qz::string& getaniName() const { return aniName; }
    void setisScreen(bool value) { isScreen = value; }
    bool getisScreen() const { return isScreen; }
    void setloop(bool value) { loop = value; }
    bool getloop() const { return loop; }
    void setisComplete(bool value) { isComplete = value; }
    void setisStop(bool value) { isStop = value; }
    int getPlayState() const { return state; }
    uint32_t getBatchCount() const { return batches.size(); }
    // Vertices written into batch i in the last update.
    int getBatchVertexCount(uint32_t i) const { return i < batches.size() ? batches[i]->lastVertexCount : 0; }

    void onSpineEnd(int track) override;
    void onSpineComplete(int track, int loopCount) override;

protected:
    // Poses the skeleton by seconds and rebuilds the batches.
    void advance(float seconds);
    void sendResetTimeStateEvent(int value);
    void sendAniEvent(const char* name);
    bool personExists() const;

    int state = STATE_STOPPED;
    ZuSpine* spine = nullptr;
    bool isScreen = false;

private:
    // One atlas page's share of a frame: its vertices and indices, the mesh
    // they go to, and the materials that draw and pick it.
    struct MeshData {
        ZuTexture* texture = nullptr; // borrowed from the atlas page
        ZuRenderMesh* mesh = nullptr;
        ZuMaterial* material = nullptr;
        ZuMaterialColorSelect2dSpine* select = nullptr;
        qz::array<uint8_t> vertices;
        qz::array<uint16_t> indices;
        int vertexCount = 0;
        int indexCount = 0;
        int lastVertexCount = 0;
    };

    ZuPerson* findPerson() const;
    void toScene(float& x, float& y, float* scaleX, float* scaleY) const;
    MeshData* batchFor(ZuTexture* texture) const;
    void clearSpine();
    void clearBatches();
    void _adapt();
    void _updateBindBone();
    void _updateMesh();
    void _syncPosition();
    void appendVertices(MeshData* batch, const float* world, const float* uvs, int count,
                        const unsigned short* triangles, int triangleCount, const uint8_t rgba[4]);

    ZuTexture* maskTexture = nullptr;
    bool isComplete = false;
    bool isStop = true;
    bool loop = false;
    qz::string aniName;
    bool ignoreNextEnd = false;
    qz::array<spBone*> boundBones;
    qz::array<int> boundIndices;
    ZuMultMeshMatRenderObject* drawObject = nullptr;
    ZuMultMeshMatRenderObject* selectObject = nullptr;
    qz::array<MeshData*> batches;
    ZuTriggerLists triggers;
    RENDERSTREAMTYPE streamType = 16;
    qz::string finishAnimName;
    AniRef defaultAni, nextAni, currentAni;
    bool animationPaused = false;
    qz::array<qz::string> syncPosBones;
};
