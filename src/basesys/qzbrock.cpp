#include "basesys/qzbrock.h"

#include "basesys/CBrockHelp.h"
#include "basesys/ZuAppMainAsync.h"

#include <GLES2/gl2.h>
#include <cstring>

void qzbrock::afterStart(int width, int height) {
    if (chromaStride(width) != width / 2 && help->repack == 1) help->create(width, height);
}

void qzbrock::beforeStop() {
    // The host reads its buffer right after the stop: what is queued must land.
    glFinish();
}

void qzbrock::processFrame(void* data, int width, int height) {
    if (chromaStride(width) != width / 2 && help->repack == 1) {
        if (help->getRepackSize() < width * height * 3 / 2) return;
        swapBuffer(engine, scene.c_str(), static_cast<unsigned char*>(data), width, height,
                   static_cast<unsigned char*>(help->getRepackBuffer()), help->syncMode);
        return;
    }
    ZuSceneFacade::processFrame(data, width, height);
}

void qzbrock::swapBuffer(ZuAppMainAsync* engine, const char* scene, unsigned char* data, int width, int height,
                         unsigned char* scratch, int syncMode) {
    if (!scratch || !engine || !data) return;
    const int stride = chromaStride(width);
    const int half = width / 2;
    const int chromaRows = height / 2;
    unsigned char* packedU = scratch + width * height;
    unsigned char* packedV = packedU + half * chromaRows;
    const unsigned char* paddedU = data + width * height;
    const unsigned char* paddedV = paddedU + stride * chromaRows;

    std::memcpy(scratch, data, static_cast<size_t>(width) * height);
    for (int row = 0; row < chromaRows; ++row) {
        std::memcpy(packedU + row * half, paddedU + row * stride, static_cast<size_t>(half));
        std::memcpy(packedV + row * half, paddedV + row * stride, static_cast<size_t>(half));
    }
    engine->pushCameraData(scene, scratch);
    if (syncMode == 1) engine->syncRender();
    engine->fetchRenderData(scene, scratch);

    const int paddedRows = (chromaRows + 15) & ~15;
    std::memset(data, 0, static_cast<size_t>(width) * height + 2 * static_cast<size_t>(stride) * paddedRows);
    std::memcpy(data, scratch, static_cast<size_t>(width) * height);
    unsigned char* outU = data + width * height;
    unsigned char* outV = outU + stride * chromaRows;
    for (int row = 0; row < chromaRows; ++row) {
        std::memcpy(outU + row * stride, packedU + row * half, static_cast<size_t>(half));
        std::memcpy(outV + row * stride, packedV + row * half, static_cast<size_t>(half));
    }
}
