#pragma once

#include "basesys/ZuSceneFacade.h"

enum BROCK_CAMERA_FORMATE { BROCK_CAMERA_NV21 = 0, BROCK_CAMERA_NV12 = 1, BROCK_CAMERA_YV12 = 2, BROCK_CAMERA_I420 = 3 };

// The one-scene facade on the scene "brock". Its host's cameras pad chroma
// rows to 16 bytes: such frames are packed into the scratch frame, drawn,
// and unpacked back into the host's memory.
class qzbrock : public ZuSceneFacade {
public:
    qzbrock() : ZuSceneFacade("brock") {}
    ~qzbrock() override = default;

    // Packs data (chroma rows at the padded stride) into scratch, runs the
    // frame, then writes the picture back into data at the same strides.
    // Nothing without a scratch frame.
    static void swapBuffer(ZuAppMainAsync* engine, const char* scene, unsigned char* data, int width, int height,
                           unsigned char* scratch, int syncMode);

protected:
    void afterStart(int width, int height) override;
    void beforeStop() override;
    void processFrame(void* data, int width, int height) override;
};
