#pragma once

#include "CameraFrameConverter.h"
#include "FaceRecordBuilder.h"

#include <cstdio>
#include <string>
#include <vector>

// The command line of qzhost, checked as a whole before the engine starts,
// so that a typo costs no GL set-up and says what to fix.
class HostOptions {
public:
    enum class Outcome { Run, Help, Error };

    Outcome parse(int argc, char** argv);
    static void printUsage(FILE* to);

    std::string input;      // photo or folder of numbered frames
    std::string rawInput;   // --raw FILE
    int rawWidth = 0;       // --size WxH
    int rawHeight = 0;
    CameraFrameConverter::Format rawFormat = CameraFrameConverter::NV21;
    bool rawFormatGiven = false;

    CameraFrameConverter::Format cameraFormat = CameraFrameConverter::NV21;
    bool cameraFormatGiven = false;
    // Output type codes of ZuAppNative::setOutSteamFormate.
    int outputType = 1;
    std::string outputName = "rgba";
    bool outputGiven = false;

    std::vector<std::string> effects;
    bool queueEffects = false;
    // Head pictures handed to the first package: "SKELETON,BONE,FILE.png".
    std::vector<std::string> heads;

    // Face input: a landmark file turned into one back end's record, pushed
    // with every frame.
    std::string landmarks;  // --landmarks FILE
    FaceRecordBuilder::Backend detect = FaceRecordBuilder::Backend::FP;
    bool detectGiven = false;
    bool showPoints = false;
    bool compare = false;   // --compare: input and output side by side
    int warmupMs = 300;     // --warmup MS: ticks on the first frame before reading
    std::string writeRecord; // --write-record FILE

    std::string outDir;     // --out DIR
    std::string rawOut;     // --raw-out FILE
    std::string gifPath;    // --gif FILE
    int gifWidth = 0;       // --gif-width N; 0: the input's width, at most 360
    int fps = 0;            // --fps N; 0: the wall clock
    int frames = 0;         // 0: every frame of the input
    std::string assets = "assets";
    bool quiet = false;     // no progress bar
    bool threaded = false;  // --threaded: the engine runs its own frame thread and GL context
    std::string y4mOut;     // --y4m-out FILE, "-" for standard output

    bool hasRawInput() const { return !rawInput.empty(); }
    bool hasLandmarks() const { return !landmarks.empty(); }
    // INPUT is a YUV4MPEG2 stream: a .y4m file or "-" (standard input).
    bool hasY4mInput() const;

private:
    bool fail(const char* format, ...) const;
    bool takeValue(int argc, char** argv, int& i, std::string& value) const;
    // An integer option from min to max; what names its unit in the complaint.
    bool takeNumber(int argc, char** argv, int& i, int min, int max, const char* what, int& out) const;
    bool check();
};
