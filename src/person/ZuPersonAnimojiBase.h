#pragma once

#include "basesys/ZuGBase.h"
#include "person/MORPHINDEX.h"
#include "person/ZuPoint.h"

class ZuPosData;

// Turns the landmarks of one face into blend-shape weights. This base keeps
// the raw measures and the 52 weights and turns the one into the other; a
// back end's tracker takes the measures in detect.
class ZuPersonAnimojiBase : public ZuGBase {
public:
    // The raw measures, each on a scale of about 0 to 100. They keep their
    // value between calls unless a measuring step sets them.
    struct Measures {
        float blinkR = 0, blinkL = 0, lastBlinkR = 0, lastBlinkL = 0, changeR = 0, changeL = 0;
        float wideR = 0, wideL = 0, eyesWide = 0;
        float mouthOpen = 0, shrinkMouth = 0, smileL = 0, smileR = 0, grinUp = 0, grinDown = 0;
        float eyesLeft = 0, eyesRight = 0, eyesUp = 0, eyesDown = 0;
        float browR = 0, browL = 0;
        float nose = 0, sniff = 0;
        float nuZui = 0, xiaNuZui = 0;
        float rollUpper = 0, rollLower = 0;
        float cheekPuffR = 0, cheekPuffL = 0;
    };

    explicit ZuPersonAnimojiBase(ZuAppMain* app) : ZuGBase(app) {}
    ~ZuPersonAnimojiBase() override = default;

    // The position table is borrowed from the manager that owns it.
    void setPosData(ZuPosData* table) { posData = table; }

    // Points are the 106 working points; angles in degrees.
    virtual void detect(ZuPoint* points, float motion, float roll, float yaw, float pitch) {}
    // 0 outside 0..51.
    virtual float getValue(MORPHINDEX index) const;
    virtual const float* getValues() const { return values; }
    virtual bool getHeadKeepMoving() const { return headKeepMoving; }

    const Measures& getMeasures() const { return m; }

    // The weights from the measures: clamped to 0..100, scaled to 0..1 and
    // smoothed against the previous weights.
    void update();

protected:
    ZuPosData* posData = nullptr;
    bool headKeepMoving = false;
    float values[MORPHINDEX_COUNT] = {};
    float previousValues[MORPHINDEX_COUNT] = {};
    Measures m;
};
