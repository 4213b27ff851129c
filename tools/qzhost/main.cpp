// qzhost: a desktop host that drives the engine the way a phone app's native
// layer does, with a headless GL context instead of a window: camera frames
// in through the facade, finished frames out to files.
#include "CameraFrameConverter.h"
#include "FaceRecordBuilder.h"
#include "FaceRecordSource.h"
#include "FrameSource.h"
#include "HostEngine.h"
#include "HostOptions.h"
#include "OutputWriter.h"
#include "ProgressBar.h"
#include "Y4mWriter.h"

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <unistd.h>
#include <vector>

namespace {

bool openSource(const HostOptions& options, FrameSource& source) {
    if (options.hasRawInput())
        return source.openRaw(options.rawInput, options.rawWidth, options.rawHeight, options.rawFormat);
    if (options.hasY4mInput()) return source.openY4m(options.input);
    return source.openImage(options.input);
}

// Frames to run: --frames, else one for a photo and all for the others;
// never more than a folder or raw file holds.
int framesToRun(const HostOptions& options, const FrameSource& source) {
    if (source.kind() == FrameSource::Kind::Photo) return options.frames > 0 ? options.frames : 1;
    if (options.frames > 0 && options.frames < source.frameCount()) return options.frames;
    return source.frameCount();
}

// Builds the face record from --landmarks for a picture of width x height;
// false after saying why.
// Opens the landmark input; a single file's record is written out on request.
bool openFaces(const HostOptions& options, int width, int height, FaceRecordSource& faces) {
    if (!faces.open(options.landmarks, options.detect, width, height)) return false;
    if (faces.isPerFrame()) {
        printf("faces: per frame from '%s' (FRAME.landmarks.json), sent as %s records\n", options.landmarks.c_str(),
               FaceRecordBuilder::backendName(options.detect));
        return true;
    }
    printf("faces: from '%s', sent as %s records of %zu bytes\n", options.landmarks.c_str(),
           FaceRecordBuilder::backendName(options.detect), faces.singleRecord().size());
    if (options.writeRecord.empty()) return true;
    std::ofstream out(options.writeRecord, std::ios::binary);
    out.write(reinterpret_cast<const char*>(faces.singleRecord().data()),
              static_cast<std::streamsize>(faces.singleRecord().size()));
    if (!out.flush()) {
        fprintf(stderr, "qzhost: cannot write the record file '%s'\n", options.writeRecord.c_str());
        return false;
    }
    printf("wrote %s\n", options.writeRecord.c_str());
    return true;
}

} // namespace

int main(int argc, char** argv) {
    HostOptions options;
    switch (options.parse(argc, argv)) {
    case HostOptions::Outcome::Help: HostOptions::printUsage(stdout); return 0;
    case HostOptions::Outcome::Error: return 2;
    case HostOptions::Outcome::Run: break;
    }

    // A video written to standard output owns it: everything qzhost says
    // goes to standard error instead.
    FILE* videoOut = nullptr;
    if (options.y4mOut == "-") {
        const int streamFd = dup(STDOUT_FILENO);
        videoOut = streamFd >= 0 ? fdopen(streamFd, "wb") : nullptr;
        if (!videoOut || dup2(STDERR_FILENO, STDOUT_FILENO) < 0) {
            fprintf(stderr, "qzhost: cannot take standard output for the video\n");
            return 1;
        }
    }

    FrameSource source;
    if (!openSource(options, source)) return 1;
    const int width = source.width();
    const int height = source.height();
    const int frames = framesToRun(options, source);

    FaceRecordSource faces;
    std::vector<uint8_t> faceRecord;
    if (options.hasLandmarks() && !openFaces(options, width, height, faces)) return 1;

    OutputWriter writer;
    if (!writer.open(options.outDir, options.rawOut, width, height, options.outputType)) return 1;

    Y4mWriter video;
    if (!options.y4mOut.empty()) {
        const int fps = options.fps > 0 ? options.fps : source.fps();
        const bool opened = videoOut ? video.open(videoOut, width, height, fps)
                                     : video.open(options.y4mOut, width, height, fps);
        if (!opened) return 1;
    }

    HostEngine engine;
    if (!engine.start(options.assets, options.threaded)) return 1;
    if (options.hasY4mInput())
        printf("input: %dx%d video stream, pushed as %s, read back as %s\n", width, height,
               CameraFrameConverter::formatName(options.cameraFormat), options.outputName.c_str());
    else
        printf("input: %dx%d, %d frame(s), pushed as %s, read back as %s\n", width, height, frames,
               CameraFrameConverter::formatName(options.cameraFormat), options.outputName.c_str());
    engine.setupScene(width, height, options.cameraFormat, options.outputType);
    if (options.hasLandmarks())
        engine.setupFaces(FaceRecordBuilder::detectType(options.detect), options.showPoints);
    if (!engine.setHeads(options.heads)) return 1;
    engine.loadEffects(options.effects, options.queueEffects);
    if (!engine.waitForEffects(options.queueEffects, 5000))
        fprintf(stderr, "qzhost: warning: effects still loading after 5 s; running anyway\n");

    // Images of a look decode on the engine's load thread; a phone shows the
    // look a few frames late, a single photo would never show it. The first
    // frame is therefore ticked for a while before anything is read back.
    // A stream cannot be read twice: its first frame warms up and is kept
    // as the first frame of the run.
    std::vector<uint8_t> heldFrame;
    bool holding = false;
    if (options.warmupMs > 0 && frames > 0 && options.hasY4mInput()) {
        holding = source.next(heldFrame);
        if (holding) engine.settle(heldFrame, nullptr, options.warmupMs);
    } else if (options.warmupMs > 0 && frames > 0) {
        FrameSource warm;
        std::vector<uint8_t> first, firstCamera;
        if (openSource(options, warm) && warm.next(first)) {
            const std::vector<uint8_t>* pushed = &first;
            if (!warm.isRaw()) {
                CameraFrameConverter::convert(first.data(), first.size(), width, height, options.cameraFormat,
                                              firstCamera);
                pushed = &firstCamera;
            }
            const bool withFace = options.hasLandmarks() && faces.recordFor(warm.lastFrameName(), faceRecord);
            engine.settle(*pushed, withFace ? &faceRecord : nullptr, options.warmupMs);
        }
    }

    if (options.fps > 0) engine.useFrameRate(options.fps);
    int gifWidth = 0, gifHeight = 0;
    if (!options.gifPath.empty()) {
        gifWidth = options.gifWidth > 0 ? options.gifWidth : std::min(width, 360);
        gifHeight = std::max(2, static_cast<int>(static_cast<long long>(gifWidth) * height / width));
    }

    // Room for the largest output layout, so that a read-back never overruns.
    std::vector<uint8_t> output(static_cast<size_t>(width) * height * 4);
    std::vector<uint8_t> frame, camera;
    ProgressBar progress(frames, !options.quiet && !options.hasY4mInput());
    int status = 0, fetched = 0, ran = 0;
    for (int index = 1; index <= frames; ++index) {
        if (holding) {
            frame.swap(heldFrame);
            holding = false;
        } else if (!source.next(frame)) {
            // A stream that simply ends is the end of the run; a broken
            // frame is an error, and the frames written so far stay valid.
            if (!source.ended()) status = 1;
            break;
        }
        const std::vector<uint8_t>* pushed = &frame;
        if (!source.isRaw()) {
            CameraFrameConverter::convert(frame.data(), frame.size(), width, height, options.cameraFormat, camera);
            pushed = &camera;
        }
        if (options.hasLandmarks()) {
            if (!faces.recordFor(source.lastFrameName(), faceRecord)) {
                status = 1;
                break;
            }
            engine.pushFaceRecord(faceRecord);
        }
        engine.pushFrame(*pushed);
        ++ran;
        // Started with the first frame, so that the GIF's first picture is it.
        if (index == 1 && gifWidth > 0 && !engine.startGif(options.gifPath, gifWidth, gifHeight)) {
            fprintf(stderr, "qzhost: the engine refused to record '%s'\n", options.gifPath.c_str());
            status = 1;
            break;
        }
        engine.renderFrame();
        if (engine.fetch(output)) {
            ++fetched;
            std::vector<uint8_t> result(output.begin(), output.begin() + writer.frameBytes());
            if (!writer.write(index, result) || (options.compare && !writer.writeComparison(index, frame)) ||
                (!options.y4mOut.empty() && !video.write(result))) {
                status = 1;
                break;
            }
        }
        progress.update(index);
    }
    progress.finish();
    if (!writer.close()) status = 1;
    if (!options.y4mOut.empty()) {
        if (!video.close()) status = 1;
        printf("wrote %d video frame(s) to %s\n", video.framesWritten(),
               options.y4mOut == "-" ? "standard output" : options.y4mOut.c_str());
    }
    if (gifWidth > 0 && status == 0) {
        if (engine.finishGif(120000))
            printf("wrote %s (%dx%d, %d fps)\n", options.gifPath.c_str(), gifWidth, gifHeight, options.fps);
        else {
            fprintf(stderr, "qzhost: the GIF '%s' was not finished\n", options.gifPath.c_str());
            status = 1;
        }
    }

    engine.reportPendingEffects();
    if (engine.failedEffects() > 0) status = 1;
    if (fetched == 0) {
        fprintf(stderr, "qzhost: the engine gave back no frame\n");
        status = 1;
    }
    printf("ran %d frame(s), %d read back%s\n", ran, fetched, options.threaded ? " (threaded engine)" : "");
    for (const std::string& path : writer.written()) printf("wrote %s\n", path.c_str());
    engine.stop();
    printf("engine stopped\n");
    return status;
}
