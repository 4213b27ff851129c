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

#include <cstdio>
#include <fstream>
#include <vector>

namespace {

bool openSource(const HostOptions& options, FrameSource& source) {
    if (options.hasRawInput())
        return source.openRaw(options.rawInput, options.rawWidth, options.rawHeight, options.rawFormat);
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

    HostEngine engine;
    if (!engine.start(options.assets)) return 1;
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
    if (options.warmupMs > 0 && frames > 0) {
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

    // Room for the largest output layout, so that a read-back never overruns.
    std::vector<uint8_t> output(static_cast<size_t>(width) * height * 4);
    std::vector<uint8_t> frame, camera;
    ProgressBar progress(frames, !options.quiet);
    int status = 0, fetched = 0;
    for (int index = 1; index <= frames; ++index) {
        if (!source.next(frame)) {
            status = 1;
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
        engine.renderFrame();
        if (engine.fetch(output)) {
            ++fetched;
            std::vector<uint8_t> result(output.begin(), output.begin() + writer.frameBytes());
            if (!writer.write(index, result) || (options.compare && !writer.writeComparison(index, frame))) {
                status = 1;
                break;
            }
        }
        progress.update(index);
    }
    progress.finish();
    if (!writer.close()) status = 1;

    engine.reportPendingEffects();
    if (engine.failedEffects() > 0) status = 1;
    if (fetched == 0) {
        fprintf(stderr, "qzhost: the engine gave back no frame\n");
        status = 1;
    }
    printf("ran %d frame(s), %d read back\n", frames, fetched);
    for (const std::string& path : writer.written()) printf("wrote %s\n", path.c_str());
    engine.stop();
    printf("engine stopped\n");
    return status;
}
