#pragma once

// Switches for whole item types of effect packages, from the "filter" object
// of the engine configuration. A flag is on only when it equals 1.
class CfgFilter {
public:
    int mask2d = 1;   // "2dmask"
    int mask3d = 1;   // "3dmask"
    int bone2d = 1;   // "2dbone"
    int bone3d = 1;   // "3dbone"
    int frame2d = 1;  // "2dframe"
    int distort = 1;  // "distorb"
    int gpuMorph = 1; // "gpumorph"
    int morph = 1;    // "morph"
    int gather = 1;   // no key: always on
    int particle = 1; // "particle"
    int sky = 1;      // "sky"
    int audio = 1;    // "audio"
    int pet = 1;      // "pet"
    int swapface = 1; // "swapface"

    static bool isOn(int flag) { return flag == 1; }
};
