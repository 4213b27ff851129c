#include "render/command/ZuRenderScene.h"

#include "platform/ZuLog.h"
#include "render/command/ZuRenderCmd.h"
#include "render/command/ZuRenderStream.h"

#include <GLES2/gl2.h>

ZuRenderScene::ZuRenderScene(const char* name) : name(name ? name : "") { makeStreams(); }

ZuRenderScene::~ZuRenderScene() { dropStreams(); }

void ZuRenderScene::makeStreams() {
    for (int i = 0; i < RS_STREAM_COUNT; i++) streams[i] = new ZuRenderStream();
}

void ZuRenderScene::dropStreams() {
    for (int i = 0; i < RS_STREAM_COUNT; i++) {
        delete streams[i];
        streams[i] = nullptr;
    }
}

void ZuRenderScene::refresh() {
    dropStreams();
    makeStreams();
}

void ZuRenderScene::setWinSize(int width, int height) {
    winWidth = width;
    winHeight = height;
}

ZuRenderStream* ZuRenderScene::getStream(int stream) const {
    return stream >= 0 && stream < RS_STREAM_COUNT ? streams[stream] : nullptr;
}

int ZuRenderScene::pendingCount() const {
    int total = 0;
    for (int i = 0; i < RS_STREAM_COUNT; i++) total += static_cast<int>(streams[i]->size());
    return total;
}

void ZuRenderScene::pushRenderCmd(RENDERSTREAMTYPE stream, ZuRenderCmd* cmd) {
    if (!cmd) return;
    if (stream < 0 || stream >= RS_STREAM_COUNT) {
        QZLOGW("render scene %s: command \"%s\" for stream %d refused (streams are 0 to %d)", name.c_str(),
               cmd->getName(), stream, RS_STREAM_COUNT - 1);
        cmd->release();
        return;
    }
    cmd->setScene(this);
    streams[stream]->push(cmd);
}

void ZuRenderScene::direct_render() {
    if (!visible) {
        for (int i = 0; i < RS_STREAM_COUNT; i++) streams[i]->clear();
        return;
    }
    curFbo = nullptr;
    glViewport(0, 0, winWidth, winHeight);
    glClearColor(clearColor.r, clearColor.g, clearColor.b, clearColor.a);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT | GL_STENCIL_BUFFER_BIT);
    for (int i = 0; i < RS_STREAM_COUNT; i++) streams[i]->replay();
    glFlush();
}
