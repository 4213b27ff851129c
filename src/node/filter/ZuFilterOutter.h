#pragma once

#include "render/command/RENDERSTREAMTYPE.h"
#include "scene/ZuNode.h"

class ZuFboSwapRenderObject;
class ZuMaterial;

// A full-screen pass whose look is a material handed in from outside (a tone
// curve, a timed screen effect), recorded into a stream of the owner's
// choosing: before the overlays (9) or after all scene content (22).
class ZuFilterOutter : public ZuNode {
public:
    explicit ZuFilterOutter(ZuAppMain* app);
    // Timed filters are released by the logic manager without zudestroy.
    ~ZuFilterOutter() override;

    void zuinit() override;
    void zudestroy() override;
    void update(float dt) override;
    void render() override;

    // Retains the material (the same object changes nothing).
    void setMaterial(ZuMaterial* value);
    ZuMaterial* getMaterial() const { return material; }
    void setRStreamType(RENDERSTREAMTYPE stream) { streamType = stream; }
    RENDERSTREAMTYPE getRStreamType() const { return streamType; }

private:
    void releaseOwned();

    ZuMaterial* material = nullptr;
    ZuFboSwapRenderObject* swapObject = nullptr;
    RENDERSTREAMTYPE streamType = RS_FILTER_LATE;
};
