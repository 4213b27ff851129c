#pragma once

#include "basesys/ZuFileLoader.h"
#include "basesys/qzArray.h"

class ZuFileMgr;

// Tone curves: each curve holds its points as x, y pairs.
typedef qz::array<float> CurveLine;
typedef qz::array<CurveLine*> CurveLines;

// Reader of ".asv" tone-curve files. The file is read, but its curve format
// is not known, so no curves come out of it: tone curves use a look-up
// picture instead.
class ZuAsvLoader : public ZuFileLoader {
public:
    explicit ZuAsvLoader(ZuAppMain* app);
    ~ZuAsvLoader() override;

    // Reads path through the engine's file manager. Returns 0.
    int load(const char* path) override;
    // The same with a given file manager.
    int loadFrom(ZuFileMgr* files, const char* path);

    // Frees the curves, if any.
    void destroy();

    CurveLines* getCurveLines() const { return curveLines; }

protected:
    // Turns the bytes of a curve file into curves. Returns 0: nothing is made.
    virtual int _loadFromContent(const char* path, const char* buffer, int size);

    CurveLines* curveLines = nullptr;
};
