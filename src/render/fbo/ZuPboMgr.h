#pragma once

#include "basesys/ZuGBase.h"
#include "basesys/qzMap.h"
#include "basesys/qzString.h"

class ZuPboObject;

// Pixel buffers by name, one reference per entry. Nothing ages: owners give
// their buffers back with destroyPboObject. GL thread only.
class ZuPboMgr : public ZuGBase {
public:
    explicit ZuPboMgr(ZuAppMain* app);
    ~ZuPboMgr() override;

    void init() {}
    void destroy() {}
    void update(float dt) {}

    // An existing name is returned unchanged; a new buffer is sized and
    // returned without an extra reference.
    ZuPboObject* createPboObject(const char* name, int width, int height);
    ZuPboObject* getPboObject(const char* name);
    void destroyPboObject(ZuPboObject* pbo);
    int size() const { return static_cast<int>(pbos.size()); }

private:
    qz::map<qz::string, ZuPboObject*> pbos;
};
