#include "HostOptions.h"

#include <cstdarg>
#include <cstdlib>
#include <cstring>
#include <strings.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

// Output names in the order of their type codes.
const char* const kOutputNames[] = {"nv12", "rgba", "nv21", "yv12", "i420", "bgra"};

bool endsWithNoCase(const std::string& text, const char* suffix) {
    size_t n = strlen(suffix);
    return text.size() >= n && strcasecmp(text.c_str() + text.size() - n, suffix) == 0;
}

bool isDirectory(const std::string& path) {
    struct stat info;
    return stat(path.c_str(), &info) == 0 && S_ISDIR(info.st_mode);
}

} // namespace

void HostOptions::printUsage(FILE* to) {
    fprintf(to,
            "usage: qzhost [options] INPUT\n"
            "       qzhost [options] --raw FILE --size WxH [--raw-format FMT]\n"
            "\n"
            "Runs camera frames through the engine on a headless GL context, as a\n"
            "phone app's native layer would, and writes the finished frames.\n"
            "\n"
            "input:\n"
            "  INPUT              a PNG photo, or a folder of numbered PNG frames\n"
            "                     (played in the order of the number in the name).\n"
            "                     JPEG is not read: convert it to PNG first.\n"
            "                     A .y4m file, or '-' for standard input, is a\n"
            "                     YUV4MPEG2 video (4:2:0), pushed as i420 frames.\n"
            "  --raw FILE         raw camera frames, one after another\n"
            "  --size WxH         frame size of --raw (even sides), e.g. 640x480\n"
            "  --raw-format FMT   layout of --raw: nv21 (default), nv12, yv12, i420;\n"
            "                     the frames go to the engine as they are\n"
            "\n"
            "engine:\n"
            "  --camera-format F  format the frames are pushed in: nv21 (default),\n"
            "                     nv12, yv12, i420, rgba, bgra\n"
            "  --output-format F  format read back: rgba (default), bgra, nv12,\n"
            "                     nv21, yv12, i420\n"
            "  --effect DIR       load an effect package (a folder with config.json);\n"
            "                     repeatable, each gets resUID 250, 251... and slot\n"
            "                     0, 1...\n"
            "  --head S,B,FILE    a head picture (PNG) for the first package's\n"
            "                     skeleton S, to ride on its bone B; repeatable\n"
            "  --queue            send the packages through the effect queue instead\n"
            "  --frames N         frames to run (default: 1 for a photo, all frames of\n"
            "                     a folder or raw file; a photo is repeated N times)\n"
            "  --assets DIR       the engine's resource folder, added as a search\n"
            "                     path (default: assets)\n"
            "\n"
            "faces:\n"
            "  --landmarks FILE   68-point landmarks and pupils of the input photo (the\n"
            "                     JSON of tools/facetrack); a tracker record is built\n"
            "                     from it and pushed with every frame. A folder: one\n"
            "                     FRAME.landmarks.json per FRAME.png (as facetrack\n"
            "                     writes them for a clip); a frame without its file\n"
            "                     is pushed with a record without faces\n"
            "  --detect B         the tracker back end the record imitates: as, st,\n"
            "                     fp (default) or self\n"
            "  --show-points      add the face-point debug node: the tracked landmarks\n"
            "                     are drawn as red points\n"
            "  --write-record FILE  also write the record's bytes to FILE\n"
            "\n"
            "output:\n"
            "  --out DIR          write frame_0001.png... (rgba/bgra output) or\n"
            "                     frame_0001.yuv... (YUV output) into DIR\n"
            "  --raw-out FILE     append every output frame's bytes to FILE\n"
            "                     (.yuv and raw bytes are as the engine delivers\n"
            "                     them: bottom row first; PNGs are upright)\n"
            "  --compare          also write compare_0001.png...: the input photo and\n"
            "                     the engine's frame side by side (before, after)\n"
            "  --warmup MS        tick the first frame for MS milliseconds before\n"
            "                     reading back, so that look-up images and other\n"
            "                     background loads have arrived (default 300)\n"
            "  --gif FILE         also record the output as an animated GIF (looping,\n"
            "                     one 256-colour palette a frame)\n"
            "  --gif-width N      width of the GIF, height in proportion (default: the\n"
            "                     input's width, at most 360)\n"
            "  --fps N            the clip's frame rate: the engine's clock moves\n"
            "                     1000/N ms a frame instead of following the wall\n"
            "                     clock, so animations keep the clip's pace (default\n"
            "                     25 with --gif, else the wall clock)\n"
            "  --quiet            no progress bar\n"
            "  --threaded         run the engine on its own frame thread and off-screen\n"
            "                     GL context; qzhost only pushes and fetches frames\n"
            "  --y4m-out FILE     also write the output as a YUV4MPEG2 video (i420);\n"
            "                     '-' writes it to standard output\n"
            "  --help             show this text\n"
            "\n"
            "examples:\n"
            "  qzhost --effect samples/packages/timeout --out out samples/photos/astronaut.png\n"
            "  qzhost --landmarks samples/faces/astronaut.landmarks.json --show-points \\\n"
            "         --out out samples/photos/astronaut.png\n"
            "  qzhost --landmarks samples/faces/astronaut.landmarks.json --detect as \\\n"
            "         --write-record astronaut.as.rec samples/photos/astronaut.png\n"
            "  qzhost --effect samples/packages/filter_pink --compare --out out \\\n"
            "         samples/photos/astronaut.png\n"
            "  qzhost --effect samples/packages/sticker_snow --frames 50 --gif snow.gif \\\n"
            "         samples/photos/astronaut.png\n"
            "  qzhost --raw cam.nv21 --size 640x480 --output-format nv21 --raw-out out.nv21\n"
            "  qzhost --effect samples/packages/filter_pink --y4m-out out.y4m clip.y4m\n");
}

bool HostOptions::fail(const char* format, ...) const {
    va_list args;
    va_start(args, format);
    fputs("qzhost: ", stderr);
    vfprintf(stderr, format, args);
    fputs(" (see --help)\n", stderr);
    va_end(args);
    return false;
}

bool HostOptions::takeValue(int argc, char** argv, int& i, std::string& value) const {
    if (i + 1 >= argc) return fail("%s needs a value", argv[i]);
    value = argv[++i];
    return true;
}

bool HostOptions::takeNumber(int argc, char** argv, int& i, int min, int max, const char* what, int& out) const {
    const char* option = argv[i];
    std::string value;
    if (!takeValue(argc, argv, i, value)) return false;
    char* end = nullptr;
    long number = strtol(value.c_str(), &end, 10);
    if (value.empty() || *end != '\0' || number < min || number > max)
        return fail("%s wants %s from %d to %d, not '%s'", option, what, min, max, value.c_str());
    out = static_cast<int>(number);
    return true;
}

bool HostOptions::hasY4mInput() const {
    if (input == "-") return true;
    return input.size() > 4 && strcasecmp(input.c_str() + input.size() - 4, ".y4m") == 0;
}

HostOptions::Outcome HostOptions::parse(int argc, char** argv) {
    bool ok = true;
    for (int i = 1; i < argc && ok; ++i) {
        std::string arg = argv[i];
        std::string value;
        if (arg == "--help" || arg == "-h") {
            return Outcome::Help;
        } else if (arg == "--frames") {
            ok = takeNumber(argc, argv, i, 1, 100000, "a number", frames);
        } else if (arg == "--assets") {
            ok = takeValue(argc, argv, i, assets);
        } else if (arg == "--raw") {
            ok = takeValue(argc, argv, i, rawInput);
        } else if (arg == "--size") {
            if (!(ok = takeValue(argc, argv, i, value))) break;
            char tail = 0;
            if (sscanf(value.c_str(), "%dx%d%c", &rawWidth, &rawHeight, &tail) != 2 || rawWidth < 2 ||
                rawHeight < 2 || rawWidth > 8192 || rawHeight > 8192 || rawWidth % 2 || rawHeight % 2)
                ok = fail("--size wants WxH with even sides from 2 to 8192, not '%s'", value.c_str());
        } else if (arg == "--raw-format") {
            if (!(ok = takeValue(argc, argv, i, value))) break;
            if (!CameraFrameConverter::parseFormat(value, &rawFormat) || !CameraFrameConverter::isYuv(rawFormat))
                ok = fail("--raw-format wants nv21, nv12, yv12 or i420, not '%s'", value.c_str());
            rawFormatGiven = true;
        } else if (arg == "--camera-format") {
            if (!(ok = takeValue(argc, argv, i, value))) break;
            if (!CameraFrameConverter::parseFormat(value, &cameraFormat))
                ok = fail("--camera-format wants nv21, nv12, yv12, i420, rgba or bgra, not '%s'", value.c_str());
            cameraFormatGiven = true;
        } else if (arg == "--output-format") {
            if (!(ok = takeValue(argc, argv, i, value))) break;
            outputType = -1;
            for (int type = 0; type < 6; ++type)
                if (strcasecmp(value.c_str(), kOutputNames[type]) == 0) outputType = type;
            outputGiven = true;
            if (outputType < 0)
                ok = fail("--output-format wants rgba, bgra, nv12, nv21, yv12 or i420, not '%s'", value.c_str());
            else
                outputName = kOutputNames[outputType];
        } else if (arg == "--effect") {
            if ((ok = takeValue(argc, argv, i, value))) effects.push_back(value);
        } else if (arg == "--head") {
            if (!(ok = takeValue(argc, argv, i, value))) break;
            const size_t first = value.find(','), second = first == std::string::npos ? first : value.find(',', first + 1);
            if (first == 0 || second == std::string::npos || second == first + 1 || second + 1 >= value.size())
                ok = fail("--head wants SKELETON,BONE,FILE.png, not '%s'", value.c_str());
            else
                heads.push_back(value);
        } else if (arg == "--queue") {
            queueEffects = true;
        } else if (arg == "--out") {
            ok = takeValue(argc, argv, i, outDir);
        } else if (arg == "--raw-out") {
            ok = takeValue(argc, argv, i, rawOut);
        } else if (arg == "--landmarks") {
            ok = takeValue(argc, argv, i, landmarks);
        } else if (arg == "--detect") {
            if (!(ok = takeValue(argc, argv, i, value))) break;
            if (!FaceRecordBuilder::parseBackend(value, &detect))
                ok = fail("--detect wants as, st, fp or self, not '%s'", value.c_str());
            detectGiven = true;
        } else if (arg == "--show-points") {
            showPoints = true;
        } else if (arg == "--write-record") {
            ok = takeValue(argc, argv, i, writeRecord);
        } else if (arg == "--warmup") {
            ok = takeNumber(argc, argv, i, 0, 60000, "milliseconds", warmupMs);
        } else if (arg == "--gif") {
            ok = takeValue(argc, argv, i, gifPath);
        } else if (arg == "--gif-width") {
            ok = takeNumber(argc, argv, i, 16, 2048, "pixels", gifWidth);
        } else if (arg == "--fps") {
            ok = takeNumber(argc, argv, i, 1, 120, "frames a second", fps);
        } else if (arg == "--compare") {
            compare = true;
        } else if (arg == "--quiet") {
            quiet = true;
        } else if (arg == "--threaded") {
            threaded = true;
        } else if (arg == "--y4m-out") {
            ok = takeValue(argc, argv, i, y4mOut);
        } else if (arg == "-") {
            if (!input.empty()) ok = fail("one input only: '%s' and '-'", input.c_str());
            input = arg;
        } else if (arg.size() > 1 && arg[0] == '-') {
            ok = fail("unknown option '%s'", arg.c_str());
        } else if (!input.empty()) {
            ok = fail("one input only: '%s' and '%s'", input.c_str(), arg.c_str());
        } else {
            input = arg;
        }
    }
    return ok && check() ? Outcome::Run : Outcome::Error;
}

bool HostOptions::check() {
    if (hasRawInput()) {
        if (!input.empty()) return fail("give either INPUT or --raw, not both");
        if (rawWidth == 0) return fail("--raw needs --size WxH");
        // Raw frames are pushed as they are: the camera format is theirs.
        if (cameraFormatGiven && cameraFormat != rawFormat)
            return fail("--camera-format %s differs from --raw-format %s; raw frames are pushed unconverted",
                        CameraFrameConverter::formatName(cameraFormat), CameraFrameConverter::formatName(rawFormat));
        cameraFormat = rawFormat;
        if (access(rawInput.c_str(), R_OK) != 0) return fail("cannot read the raw file '%s'", rawInput.c_str());
    } else {
        if (rawWidth != 0 || rawFormatGiven) return fail("--size and --raw-format belong to --raw");
        if (input.empty()) return fail("no input: give a PNG photo, a folder of PNG frames or --raw FILE");
        if (endsWithNoCase(input, ".jpg") || endsWithNoCase(input, ".jpeg"))
            return fail("'%s' is a JPEG, which qzhost cannot decode; convert it to PNG first", input.c_str());
        if (input != "-" && access(input.c_str(), R_OK) != 0) return fail("cannot read the input '%s'", input.c_str());
    }
    if (hasY4mInput()) {
        // YUV4MPEG2 frames are 4:2:0 planar and go to the engine unconverted.
        if (cameraFormatGiven && cameraFormat != CameraFrameConverter::I420)
            return fail("a YUV4MPEG2 input is pushed as i420; leave out --camera-format");
        cameraFormat = CameraFrameConverter::I420;
        if (compare) return fail("--compare needs a photo or PNG frames, not a video stream");
    }
    if (!y4mOut.empty()) {
        if (outputGiven && outputType != 4) return fail("--y4m-out writes i420 frames; leave out --output-format");
        outputType = 4;
        outputName = "i420";
    }
    if (threaded && !gifPath.empty())
        return fail("--gif records on the frames qzhost drives itself; leave out --threaded");
    for (const std::string& effect : effects)
        if (!isDirectory(effect) || access((effect + "/config.json").c_str(), R_OK) != 0)
            return fail("the effect package '%s' is not a folder with a config.json", effect.c_str());
    if (compare && (outDir.empty() || hasRawInput() || (outputType != 1 && outputType != 5)))
        return fail("--compare needs --out DIR, a photo or PNG frames, and rgba or bgra output");
    if (!hasLandmarks() && (detectGiven || showPoints || !writeRecord.empty()))
        return fail("--detect, --show-points and --write-record need --landmarks FILE");
    if (hasLandmarks() && access(landmarks.c_str(), R_OK) != 0)
        return fail("cannot read the landmark file '%s'", landmarks.c_str());
    if (hasLandmarks() && isDirectory(landmarks) && !writeRecord.empty())
        return fail("--write-record needs one landmark file, not the folder '%s'", landmarks.c_str());
    if (!outDir.empty() && !isDirectory(outDir) && mkdir(outDir.c_str(), 0755) != 0)
        return fail("cannot make the output folder '%s'", outDir.c_str());
    if (!gifPath.empty() && outputType != 1 && outputType != 5)
        return fail("--gif records the picture: it needs rgba or bgra output");
    if (gifWidth != 0 && gifPath.empty()) return fail("--gif-width belongs to --gif");
    // A GIF's delays follow the clip, not this machine's speed.
    if (!gifPath.empty() && fps == 0) fps = 25;
    if (access(assets.c_str(), R_OK) != 0) return fail("cannot read the assets folder '%s'", assets.c_str());
    if (assets.back() != '/') assets += '/';
    return true;
}
