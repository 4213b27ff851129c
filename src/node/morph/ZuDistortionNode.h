#pragma once

#include "node/filter/ZuFilter.h"

class ZuAotuMirror;
class ZuDetectBase;
class ZuPerson;

// A lens laid on the face: a full-screen pass that swells the picture around
// one standard landmark of the node's person. The subclasses find the place
// and size; their material's shader does the rest. Without the face the pass
// records nothing, so the picture goes on unchanged.
class ZuDistortionNode : public ZuFilter {
public:
    explicit ZuDistortionNode(ZuAppMain* app);

    void zuinit() override;
    void zudestroy() override;
    void update(float dt) override;
    void render() override;
    // Kind 43 for this node's resource id whose name starts this node's
    // name replaces the intensity.
    bool procEvent(ZuEvent* event) override;

    // A standard landmark index, 0..40.
    void setbindIndex(int index);
    int getbindIndex() const { return bindIndex; }
    int getRegion() const { return region; }
    void setintensity(float value);
    float getintensity() const { return intensity; }
    float getCameraWidth() const { return cameraWidth; }
    float getCameraHeight() const { return cameraHeight; }
    ZuAotuMirror* getLensMaterial() const { return material; }

protected:
    // The node's material, made in zuinit.
    virtual ZuAotuMirror* makeMaterial() = 0;
    // Place and size of the lens from the person's landmarks and tracker.
    virtual void placeLens(ZuPerson* person, ZuDetectBase* detector) = 0;
    // The person of the node when its face is present, else null.
    ZuPerson* presentPerson() const;
    ZuDetectBase* detector() const;
    // The landmark bindIndex names on the current back end; false when the
    // person has no such point.
    bool boundPoint(ZuPerson* person, ZuDetectBase* detector, float& x, float& y);

    int bindIndex = 0;
    int region = 2;
    float cameraWidth = 1.0f;
    float cameraHeight = 1.0f;
    float intensity = 1.0f;
    ZuAotuMirror* material = nullptr;

private:
    void readCameraSize();
    bool placed = false;
};
