// The camera path on ES 3, where read-back goes through two pixel buffers:
// a picture that needs no turning takes the short roads (the scene read as
// it is, or converted straight from the scene), and each frame must still
// arrive whole, exactly one frame late.
#include "basesys/Camera.h"
#include "basesys/ZuAppNative.h"
#include "basesys/ZuConfig.h"
#include "support/EngineFixture.h"

#include <cmath>
#include <cstdlib>
#include <vector>

namespace {

const int kW = 8, kH = 16;

using Bytes = std::vector<uint8_t>;

// An RGBA camera frame, rows top first in memory; seed makes frames differ.
Bytes picture(int seed) {
    Bytes bytes(kW * kH * 4);
    for (int y = 0; y < kH; ++y)
        for (int x = 0; x < kW; ++x) {
            uint8_t* p = &bytes[(y * kW + x) * 4];
            p[0] = static_cast<uint8_t>((x * 31 + seed * 70) % 256);
            p[1] = static_cast<uint8_t>((y * 15 + seed * 40) % 256);
            p[2] = static_cast<uint8_t>((x * y * 7 + seed) % 256);
            p[3] = 255;
        }
    return bytes;
}

// The RGBA output of an unturned, unmirrored frame: the background stands
// the rows upright, and read-back hands them bottom first.
Bytes expectedRgba(const Bytes& in) {
    Bytes out(in.size());
    for (int y = 0; y < kH; ++y)
        for (int x = 0; x < kW * 4; ++x) out[y * kW * 4 + x] = in[(kH - 1 - y) * kW * 4 + x];
    return out;
}

int lumaOf(const uint8_t* p) {
    double y = 0.256816 * p[0] / 255.0 + 0.504154 * p[1] / 255.0 + 0.0979137 * p[2] / 255.0 + 0.0625;
    return static_cast<int>(std::lround(y * 255.0));
}

// One scene per output: a scene's output nodes share its two pixel buffers.
class PixelBufferOutputTest : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        app->getGlobalMgr()->getConfig()->glversion = 0x30000;
        host = app->getAppInter();
        for (const char* scene : {"pb_rgba", "pb_nv21"}) {
            Camera* camera = app->getGlobalMgr()->getConfig()->getCamera(scene);
            camera->width = kW;
            camera->height = kH;
            camera->angle = 0;
            host->createLogicSceneFull(scene, 64, 64, kW, kH);
            host->createBGNode(scene, 4);  // RGBA
        }
        host->setOutSteamFormateOnTransNode("pb_rgba", "pb_rgba", 1, true, false);
        host->setOutSteamFormateOnTransNode("pb_nv21", "pb_nv21", 2, true, false);
        frame();
    }
    void push(const Bytes& frameBytes) {
        for (const char* scene : {"pb_rgba", "pb_nv21"})
            host->pushCameraData(scene, frameBytes.data(), static_cast<int>(frameBytes.size()));
        frame();
    }
    Bytes fetch(const char* scene, size_t size) {
        Bytes out(size, 0xEE);
        host->fetchRenderDataOnTransNode(scene, scene, out.data());
        return out;
    }

    ZuAppNative* host = nullptr;
};

} // namespace

TEST_F(PixelBufferOutputTest, UnturnedFramesArriveWholeOneFrameLate) {
    Bytes first = picture(1), second = picture(2);
    push(first);
    EXPECT_NE(fetch("pb_rgba", first.size()), expectedRgba(first)) << "a frame cannot arrive in its own frame";
    push(second);
    EXPECT_EQ(fetch("pb_rgba", first.size()), expectedRgba(first));
    frame();
    EXPECT_EQ(fetch("pb_rgba", second.size()), expectedRgba(second));

    // The planar output of the same frame: its luma plane, rows bottom first.
    Bytes nv21 = fetch("pb_nv21", kW * kH * 3 / 2);
    Bytes upright = expectedRgba(second);
    for (int i = 0; i < kW * kH; ++i)
        ASSERT_LE(std::abs(nv21[i] - lumaOf(&upright[i * 4])), 2) << "luma " << i;
}
