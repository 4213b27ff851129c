#pragma once

#include "basesys/qzString.h"
#include "operate/ZuOperateBase.h"

class ZuTexture;

// Reads and decodes one image into its texture's CPU copy, then raises a
// ZuTextureEvent with the texture's uid. Runs on the load thread (or in place
// for a synchronous load). The GL upload is left to the texture's commit.
//
// The operation holds a reference on the texture so that the object outlives
// a removal from the cache while the decode runs. That reference must not be
// dropped on the load thread, where the last release would delete GL state:
// after a decode there, the operation queues itself once on the frame queue
// and lets go of the texture on the render thread.
class ZuOperateTexLoad : public ZuOpLoadBase {
public:
    ZuOperateTexLoad(ZuAppMain* app, ZuTexture* texture, const char* path);
    ~ZuOperateTexLoad() override;

    void process(float delta) override;

    // True when path ends in ".png", the only format decoded.
    static bool isDecodable(const char* path);

private:
    void decode();

    ZuTexture* texture;
    qz::string path;
    bool decoded = false;
};
