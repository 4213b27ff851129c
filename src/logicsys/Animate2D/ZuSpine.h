#pragma once

#include "basesys/ZuGBase.h"
#include "basesys/qzString.h"

class SkeDataPack;
class ZuTexture;
struct spAnimationState;
struct spAnimationStateData;
struct spAtlas;
struct spAttachment;
struct spBone;
struct spEvent;
struct spMeshAttachment;
struct spRegionAttachment;
struct spSkeleton;
struct spSlot;
struct spTrackEntry;

// Told what a track of a skeleton does: started, ended (replaced, cleared),
// completed a turn, or fired a key event.
class ZuSpineListener {
public:
    virtual ~ZuSpineListener() = default;
    virtual void onSpineStart(int) {}
    virtual void onSpineEnd(int) {}
    virtual void onSpineComplete(int, int) {}
    virtual void onSpineEvent(int, spEvent*) {}
};

// One playing instance of a skeleton: its pose, its animation state and the
// parsed data it shares with other instances through the skeleton pool.
// Times are in seconds here; nodes convert.
class ZuSpine : public ZuGBase {
public:
    explicit ZuSpine(ZuAppMain* app) : ZuGBase(app) {}
    ~ZuSpine() override;

    // A new instance (count 1), or null with a log line when the skeleton or
    // its atlas does not load. The parsed data comes from the engine's pool.
    static ZuSpine* createSpine(ZuAppMain* app, const char* scene, const char* jsonPath, const char* atlasPath,
                                float scale);
    // Retains pack; false when it holds no skeleton.
    bool init(SkeDataPack* pack);

    // Animation state, apply and world transform, in the order a frame needs.
    void update(float seconds);
    void updateBone(float seconds);
    void updateWorldTransform();

    void setAnimationStateData(spAnimationStateData* stateData);
    bool isAnimationExistForName(const char* name) const;
    // The new track entry, or null for an unknown name.
    spTrackEntry* setAnimationForTrack(int track, const char* name, bool loop);
    spTrackEntry* addAnimationForTrack(int track, const char* name, bool loop, int delay);
    void clearTracks();
    void clearTrack(int track);
    void resetAnimate();
    void setMixFrom(const char* from, const char* to, float seconds);
    spTrackEntry* getCurrentForTrack(int track) const;
    // Milliseconds; 0 for an unknown name.
    float getAnimationDuration(const char* name) const;

    // The page texture an attachment draws from, or null.
    static ZuTexture* getTextureForRegion(spRegionAttachment* attachment);
    static ZuTexture* getTextureForMesh(spMeshAttachment* attachment);
    static ZuTexture* getTextureForAttachment(spAttachment* attachment);

    void setToSetupPose();
    void setBonesToSetupPose();
    void setSlotsToSetupPose();
    spBone* findBone(const char* name) const;
    spSlot* findSlot(const char* name) const;
    bool setSkin(const char* name);
    spAttachment* getAttachment(const char* slot, const char* name) const;
    bool setAttachment(const char* slot, const char* name);

    // Borrowed; told about every track. Null stops the calls.
    void setListener(ZuSpineListener* value) { listener = value; }

    const qz::string& getSpineName() const { return spineName; }
    void setSpineName(const char* name) { spineName = name ? name : ""; }
    const qz::string& getActiveAct() const { return activeAct; }
    void setActiveAct(const char* name) { activeAct = name ? name : ""; }

    spSkeleton* getSkeleton() const { return skeleton; }
    spAnimationState* getState() const { return state; }
    spAtlas* getAtlas() const;
    spBone* getRootBone() const { return rootBone; }
    bool getPremultipliedAlpha() const { return premultipliedAlpha; }
    float* getWorldVertices() { return worldVertices; }
    static const int kWorldVertexFloats = 1000;
    void setTimeScale(float value) { timeScale = value; }
    float getTimeScale() const { return timeScale; }

    // Forwarded from the runtime's state and entries.
    void onAnimationStateEvent(int track, int type, spEvent* event, int loopCount);

private:
    SkeDataPack* pack = nullptr;
    spSkeleton* skeleton = nullptr;
    spAnimationState* state = nullptr;
    spAnimationStateData* stateData = nullptr;
    bool ownsStateData = false;
    spBone* rootBone = nullptr;
    bool premultipliedAlpha = false;
    float worldVertices[kWorldVertexFloats] = {};
    float timeScale = 1.0f;
    ZuSpineListener* listener = nullptr;
    qz::string spineName;
    qz::string activeAct = "animation";
};
