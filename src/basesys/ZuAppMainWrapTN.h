#pragma once

#include "basesys/ZuAppMainWrap.h"

// The adjusters as the second family of hosts expects them: face back end
// 1, the expanded beauty node for smoothing, morph strengths by the node's
// own class, and a queued background texture change.
class ZuAppMainWrapTN : public ZuAppMainWrap {
public:
    // Smooth only, on a node that is exactly a ZuFaceBeautifyExpand01Node.
    void setFaceBeautifyAdjust(float smooth, float white, float, float, const char* nodeName) override;
    // Queued: the texture changes at the next frame.
    void setBackgroundTexture(const char* nodeName, int texture, int width, int height) override;
    unsigned getTextureId(const char* sceneName) { return getSceneTextureId(sceneName); }

protected:
    int initialDetectType() const override { return 1; }
};
