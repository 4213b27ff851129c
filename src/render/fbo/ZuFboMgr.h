#pragma once

#include "basesys/ZuGBase.h"
#include "basesys/qzMap.h"
#include "basesys/qzString.h"

class ZuFboObject;

// The pool of framebuffers by name, one reference per entry. Creators return
// an existing entry unchanged, whatever type or size is asked; a new one is
// returned without an extra reference, so a caller that keeps it retains it.
//
// Ageing (update, once per tick): an entry that the pool alone holds is
// cleared and freed. The commands recorded this frame hold the framebuffers
// they bind or copy until they have replayed, so one let go by its node
// during recording still survives that frame's replay.
class ZuFboMgr : public ZuGBase {
public:
    explicit ZuFboMgr(ZuAppMain* app);
    ~ZuFboMgr() override;

    void init() {}
    void destroy() {}
    void update(float dt);

    ZuFboObject* createFboTexture(const char* name, int width, int height, bool swap);
    // For names made from an owner's uid: uids are reused, so a target left
    // in the pool by the uid's previous owner (not yet aged out) is taken
    // over and resized instead of being handed out at its old size.
    ZuFboObject* acquireFboTexture(const char* name, int width, int height, bool swap);
    ZuFboObject* createMSAAFbo(const char* name, int width, int height, bool swap);
    ZuFboObject* createOutFboTexture(const char* name, int width, int height, unsigned int fboId, bool swap);
    ZuFboObject* createOutTexFboTexture(const char* name, int width, int height, unsigned int texId, bool swap);
    ZuFboObject* getFboTexture(const char* name);
    // Immediate form of ageing: clears and drops the pool's reference.
    void destroyFboTexture(ZuFboObject* fbo);

    void setFirstFboId();
    unsigned int getFirstFboId() const { return firstFboId; }
    int size() const { return static_cast<int>(fbos.size()); }

private:
    ZuFboObject* lookup(const char* name);
    void insert(const char* name, ZuFboObject* fbo);

    qz::map<qz::string, ZuFboObject*> fbos;
    unsigned int firstFboId = 0;
    bool firstFboSet = false;
};
