#pragma once

#include "basesys/ZuLock.h"
#include "data/ZuDataGenerate.h"
#include "data/ZuDetectWire.h"

class ZuAppMain;

// Common ground of the four face generators: the engine they read camera
// parameters from, and the lock that keeps listeners from seeing a
// half-written record (taken while records are written and while listeners run).
class ZuDataGenFace : public ZuDataGenerate {
public:
    ZuDataGenFace(ZuAppMain* app, int generatorType);
    ~ZuDataGenFace() override;

    // data holds count face blocks back to back as the detector copied them
    // (the record without its count); count is 0 to 4. A null data means the
    // frame has no face.
    virtual void parseData(const char* sceneName, const void* data, int count) = 0;

    ZuLock& getGenLock() { return genLock; }

protected:
    void _notice(float delta) override;

    // The scene's camera; with windowSize, width and height come from the
    // scene's window when the scene exists.
    ZuDetectWire::Frame cameraFrame(const char* sceneName, bool windowSize) const;

    ZuAppMain* app;
    ZuLock genLock;
};
