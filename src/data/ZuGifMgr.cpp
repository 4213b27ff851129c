#include "data/ZuGifMgr.h"

#include "basesys/ZuAppMain.h"
#include "basesys/ZuAppNative.h"
#include "basesys/ZuConditionVariable.h"
#include "node/output/ZuDataOutputScaleTexNode.h"
#include "platform/GifWrap.h"
#include "platform/ZuLog.h"
#include "render/fbo/ZuFboObject.h"
#include "scene/ZuNodeMgr.h"

#include <GLES2/gl2.h>

#include <cmath>
#include <cstring>

namespace {
// RGBA, as the engine's output nodes take it.
const int kPixelFormatRgba = 2;
} // namespace

ZuGifMgr::ZuGifMgr(ZuAppMain* app) : ZuGBase(app) {}

ZuGifMgr::~ZuGifMgr() {
    destroy();
}

void ZuGifMgr::init() {
    if (!gif) gif = new GifWrap();
}

void ZuGifMgr::destroy() {
    raise(running, false);
    recording = false;
    if (thread) {
        thread->join();
        delete thread;
        thread = nullptr;
    }
    delete gif; // finishes a file still open
    gif = nullptr;
    delete signal;
    signal = nullptr;
    frames.clear();
    startPending = false;
}

qz::string ZuGifMgr::scaleNodeName(const char* scene) {
    return qz::string(scene) + "_outTextureScale";
}

void ZuGifMgr::startRecordGif(const char* scene, const char* file, int w, int h) {
    if (recording || startPending || stopRequest) return;
    if (!scene || !file || !*file || w <= 0 || h <= 0) {
        QZLOGW("gif: recording refused (scene %s, path %s, %d x %d)", scene ? scene : "(none)",
               file ? file : "(none)", w, h);
        return;
    }
    startPending = true;
    const qz::string nodeName = scaleNodeName(scene);
    ZuNodeMgr* nodes = nodeMgr();
    // Not inverted: the scene's framebuffer holds the picture upright in GL
    // terms, which the worker's row flip turns into a file's top-first rows.
    if (nodes && !nodes->getNode(nodeName.c_str()))
        app->getAppInter()->createOutputTextureScaleNode(scene, nodeName.c_str(), kPixelFormatRgba, false, false, w,
                                                         h);
    sceneName = scene;
    path = file;
    width = w;
    height = h;
}

void ZuGifMgr::stopRecordGif() {
    if (!recording || !gif) return;
    raise(stopRequest, true);
}

void ZuGifMgr::raise(std::atomic<bool>& flag, bool value) {
    if (!signal) {
        flag = value;
        return;
    }
    {
        std::lock_guard<std::mutex> guard(signal->lock());
        flag = value;
    }
    signal->notify_all();
}

size_t ZuGifMgr::pendingFrames() {
    if (!signal) return 0;
    std::lock_guard<std::mutex> guard(signal->lock());
    return frames.size();
}

ZuFboObject* ZuGifMgr::sourceFbo() const {
    ZuNodeMgr* nodes = nodeMgr();
    if (!nodes) return nullptr;
    auto* node = dynamic_cast<ZuDataOutputScaleTexNode*>(nodes->getNode(scaleNodeName(sceneName.c_str()).c_str()));
    return node ? node->getFbo() : nullptr;
}

void ZuGifMgr::update(float delta) {
    if (startPending) {
        startPending = false;
        // The node is made by an operation, which may still be on its way:
        // without it the recording does not start.
        if (!sourceFbo() || recording || !gif) return;
        if (!gif->startGif(path.c_str(), width, height)) return;
        encoded = 0;
        pendingDelayMs = 0.0f;
        recording = true;
        if (!signal) signal = new ZuConditionVariable();
        if (!thread) {
            running = true;
            thread = new std::thread(&ZuGifMgr::run, this);
        }
        return;
    }
    if (recording && !stopRequest) readFrame(delta);
}

void ZuGifMgr::readFrame(float delta) {
    ZuFboObject* fbo = sourceFbo();
    if (!fbo || fbo->getFrameWidth() <= 0 || fbo->getFrameHeight() <= 0) return;
    // The tick runs before this frame's replay: what the framebuffer holds is
    // the picture shown for the last delta, which is therefore its delay. A
    // picture shown for less than a centisecond (a host that ticks twice a
    // frame) is left out and its time handed to the next.
    pendingDelayMs += delta;
    const int delayCs = static_cast<int>(std::floor(pendingDelayMs / 10.0f + 0.5f));
    if (delayCs <= 0) return;
    pendingDelayMs -= delayCs * 10.0f;
    Frame frame;
    frame.width = fbo->getFrameWidth();
    frame.height = fbo->getFrameHeight();
    frame.delayCs = delayCs;
    frame.pixels.resize(static_cast<size_t>(frame.width) * frame.height * 4);

    GLint previous = 0;
    glGetIntegerv(GL_FRAMEBUFFER_BINDING, &previous);
    glBindFramebuffer(GL_FRAMEBUFFER, fbo->getFboID());
    glPixelStorei(GL_PACK_ALIGNMENT, 4);
    glReadPixels(0, 0, frame.width, frame.height, GL_RGBA, GL_UNSIGNED_BYTE, frame.pixels.data());
    glBindFramebuffer(GL_FRAMEBUFFER, static_cast<GLuint>(previous));
    {
        std::lock_guard<std::mutex> guard(signal->lock());
        frames.push_back(std::move(frame));
    }
    signal->notify_all();
}

void ZuGifMgr::encode(const Frame& frame, std::vector<uint8_t>& topFirst) {
    const int w = gif->getWidth();
    const int h = gif->getHeight();
    topFirst.resize(static_cast<size_t>(w) * h * 4);
    if (frame.width == w && frame.height == h) {
        const size_t stride = static_cast<size_t>(w) * 4;
        for (int row = 0; row < h; ++row)
            std::memcpy(&topFirst[row * stride], &frame.pixels[(h - 1 - row) * stride], stride);
    } else {
        // A framebuffer of another size than the recording's is scaled to it
        // (nearest pixel), so the file keeps the size the host asked for.
        for (int row = 0; row < h; ++row) {
            const int srcRow = frame.height - 1 - static_cast<int>(static_cast<long long>(row) * frame.height / h);
            for (int col = 0; col < w; ++col) {
                const int srcCol = static_cast<int>(static_cast<long long>(col) * frame.width / w);
                std::memcpy(&topFirst[(static_cast<size_t>(row) * w + col) * 4],
                            &frame.pixels[(static_cast<size_t>(srcRow) * frame.width + srcCol) * 4], 4);
            }
        }
    }
    if (gif->pushFrame(topFirst.data(), frame.delayCs)) ++encoded;
}

void ZuGifMgr::finishRecording() {
    {
        std::lock_guard<std::mutex> guard(signal->lock());
        frames.clear(); // what was still queued is dropped
    }
    gif->stopGif();
    recording = false;
    stopRequest = false;
}

void ZuGifMgr::run() {
    std::vector<uint8_t> topFirst;
    while (running) {
        signal->wait([this] { return !running || stopRequest || !frames.empty(); });
        if (!running) break;
        Frame frame;
        bool have = false;
        {
            std::lock_guard<std::mutex> guard(signal->lock());
            if (!frames.empty() && !stopRequest) {
                frame = std::move(frames.front());
                frames.pop_front();
                have = true;
            }
        }
        if (have) encode(frame, topFirst);
        if (stopRequest) finishRecording();
    }
}
