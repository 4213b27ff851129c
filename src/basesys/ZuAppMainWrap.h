#pragma once

#include "basesys/ZuAppMain.h"
#include "basesys/ZuGBase.h"
#include "scene/ZuNodeMgr.h"

#include <typeinfo>

// The engine as the integration layer drives it: direct adjusters that act
// at once on the caller's thread instead of queueing an operation, so they
// are called from the frame thread. A node that is missing or not exactly
// of the class an adjuster names (a subclass does not match) is left alone.
class ZuAppMainWrap : public ZuAppMain {
public:
    // ZuAppMain::init, then an own configuration; the face back end is 3.
    void init() override;
    void destroy() override { ZuAppMain::destroy(); }

    // The skin-smoothing quality of beauty nodes made from now on.
    void setFaceBeautyType(int type);
    // Smooth and white of the smoothing node called nodeName, only when it is
    // exactly a ZuFaceBuffingWhiteNode; the two other floats are not used.
    virtual void setFaceBeautifyAdjust(float smooth, float white, float, float, const char* nodeName);
    void setFaceBeautifyGainAdjust(float value, const char* nodeName);
    // The texture an output-texture node draws into.
    void setOutputTexture(const char* nodeName, unsigned texture, int width, int height);
    // The host texture a texture background shows.
    virtual void setBackgroundTexture(const char* nodeName, int texture, int width, int height);
    // The GL name of the scene's picture; 0 without scene or framebuffer.
    unsigned getSceneTextureId(const char* sceneName);

    // Queued node creation.
    void createTest(const char* sceneName);
    void createNode(const char* sceneName, const char* nodeName, const char* type);
    void drawFacePoint(const char* sceneName);
    // Deletes the node "FacePoint" at once (the argument takes no part).
    void hideFacePoint(const char* sceneName);
    // Events for the pets and the actions of models.
    void updatePetModelAction(const char* sceneName, const char* action);
    void playAction(const char* sceneName, int, const char* action, bool loop, int count);

    // Kept for hosts that call them on their life-cycle changes.
    void save() {}
    void pause() {}
    void resume() {}

protected:
    // The node of that name when its class is exactly T.
    template <class T> T* exactNode(const char* nodeName) const {
        ZuNodeMgr* nodes = ZuGBase::nodeMgrOf(this);
        ZuNode* node = nodes && nodeName ? nodes->getNode(nodeName) : nullptr;
        // Subclasses keep their own meaning for the values.
        if (!node || typeid(*node) != typeid(T)) return nullptr;
        return static_cast<T*>(node);
    }
    virtual int initialDetectType() const { return 3; }
};
