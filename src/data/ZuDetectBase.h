#pragma once

#include "basesys/ZuGBase.h"
#include "basesys/qzMap.h"

class ZuDataSwap;
class ZuObject;

// One tracker back end. It copies each pushed record once into its own swap
// buffer and has the back end's generator parse it there; it also names
// landmarks across back ends (standard index to landmark number).
class ZuDetectBase : public ZuGBase {
public:
    explicit ZuDetectBase(ZuAppMain* app, int pointCount = 0);
    ~ZuDetectBase() override;

    virtual void listenData(ZuObject* source) {}
    // Takes one record of length bytes (count at byte 0, faces behind it). A
    // null record means no face. False when the record was refused.
    virtual bool pushData(const char* sceneName, const void* record, int length) { return false; }
    // The landmark of this back end at a standard index 0 to 40; 0 outside.
    virtual int transformIndex(int standardIndex) { return 0; }
    // The side of the face of a standard index: 0 one side, 1 the other, 2 centre.
    virtual int getIndexRegion(int standardIndex) { return 2; }

    int getPointCount() const { return pointCount; }
    ZuDataSwap* getDataSwap() const { return swap; }

    // Range tables for getIndexRegion: pairs of first and last landmark.
    struct Range {
        int first;
        int last;
    };

protected:
    // Fills the standard index table from a 41-entry column.
    void setStandardIndex(const int* landmarks, int count);
    int lookupStandard(int standardIndex) const;
    // 0 when n lies in side0, 1 in side1, else 2.
    static int regionOf(int n, const Range* side0, int count0, const Range* side1, int count1);

    // Checks a record of detectType against its length (faces 0 to 4, length
    // exactly the head plus bodyBytes(count)), copies the body and has the
    // back end's generator parse it under the swap's lock.
    bool copyAndParse(int detectType, const char* sceneName, const void* record, int length,
                      int (*bodyBytes)(int count));

    qz::map<int, int> standardIndex;
    ZuDataSwap* swap = nullptr;
    int pointCount;
};
