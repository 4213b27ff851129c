#pragma once

// The sample portrait (or any picture of its size) pushed as the camera
// frame of a 512 x 512 scene, with the AS face record of the portrait, as a
// host drives the engine. Beauty and face reshaping tests read the scene's
// picture.
#include "basesys/Camera.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuAppNative.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuGlobalMgr.h"
#include "data/DETECTTYPE.h"
#include "person/ZuPerson.h"
#include "person/ZuPersonSys.h"
#include "person/ZuPersonTracker.h"
#include "render/fbo/ZuFboObject.h"
#include "render/texture/ZuPngLoader.h"
#include "scene/ZuNode.h"
#include "scene/ZuNodeCreator.h"
#include "scene/ZuNodeMgr.h"
#include "scene/ZuScene.h"
#include "scene/ZuSceneMgr.h"
#include "support/EngineFixture.h"

#include <GLES2/gl2.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace photoscene {

using Bytes = std::vector<uint8_t>;

const int kSize = 512;
const char* const kScene = "s";
const int kResUID = 7;

inline Bytes readFile(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return Bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
}

// Channel c of pixel (x, y) of a kSize picture read back from GL (row 0 at
// the bottom); coordinates clamp to the picture.
inline int at(const Bytes& p, int x, int y, int c) {
    x = std::min(std::max(x, 0), kSize - 1);
    y = std::min(std::max(y, 0), kSize - 1);
    return p[(static_cast<size_t>(y) * kSize + x) * 4 + c];
}
inline double luma(const Bytes& p, int x, int y) {
    return 0.299 * at(p, x, y, 0) + 0.587 * at(p, x, y, 1) + 0.114 * at(p, x, y, 2);
}

// GL_LINEAR at a texture coordinate of a picture read back from GL.
inline void sampleLinear(const Bytes& p, double u, double v, double out[3]) {
    u = std::min(std::max(u, 0.0), 1.0);
    v = std::min(std::max(v, 0.0), 1.0);
    double x = u * kSize - 0.5, y = v * kSize - 0.5;
    int x0 = static_cast<int>(std::floor(x)), y0 = static_cast<int>(std::floor(y));
    double fx = x - x0, fy = y - y0;
    for (int c = 0; c < 3; ++c)
        out[c] = (at(p, x0, y0, c) * (1 - fx) + at(p, x0 + 1, y0, c) * fx) * (1 - fy) +
                 (at(p, x0, y0 + 1, c) * (1 - fx) + at(p, x0 + 1, y0 + 1, c) * fx) * fy;
}

class PhotoSceneFixture : public EngineTest {
protected:
    std::vector<std::string> resourceRoots() const override { return {QZ_SOURCE_DIR "/samples/packages/"}; }
    // The record the face comes from.
    virtual const char* recordPath() const { return QZ_SOURCE_DIR "/samples/faces/astronaut.as.rec"; }
    virtual DETECTTYPE detectType() const { return DETECTTYPE_AS; }
    // Host settings a test needs before the scene exists.
    virtual void beforeScene() {}

    void SetUp() override {
        EngineTest::SetUp();
        config = app->getGlobalMgr()->getConfig();
        host = app->getAppInter();
        nodes = app->getGlobalMgr()->getNodeMgr();
        ASSERT_NO_FATAL_FAILURE(beforeScene());
        ASSERT_NO_FATAL_FAILURE(loadPhoto());
        record = readFile(recordPath());
        ASSERT_FALSE(record.empty());
        Camera* camera = config->getCamera(kScene);
        camera->width = kSize;
        camera->height = kSize;
        camera->angle = 0;
        host->createLogicSceneFull(kScene, kSize, kSize, kSize, kSize);
        host->createBGNode(kScene, 4);  // RGBA frames
        host->setDetectType(detectType());
        frame(false);
        scene = app->getGlobalMgr()->getSceneMgr()->getScene(kScene);
        ASSERT_NE(scene, nullptr);
        frame();
        frame();
    }

    void loadPhoto() {
        Bytes png = readFile(QZ_SOURCE_DIR "/samples/photos/astronaut.png");
        ZuPngLoader loader(app);
        unsigned char* pixels = nullptr;
        ASSERT_TRUE(loader._readPngFromStream(png.data(), static_cast<int>(png.size()), "astronaut.png", &pixels));
        ASSERT_EQ(loader.getWidth(), kSize);
        ASSERT_EQ(loader.getHeight(), kSize);
        int channels = loader.getGlFormat() == GL_RGBA ? 4 : 3;
        photo.assign(static_cast<size_t>(kSize) * kSize * 4, 255);
        for (size_t i = 0; i < static_cast<size_t>(kSize) * kSize; ++i)
            for (int c = 0; c < 3; ++c) photo[i * 4 + c] = pixels[i * channels + c];
        free(pixels);
    }

    // One host frame: camera picture and face record, tick, replay.
    void frame(bool withFace = true) {
        // A record of no faces: a count, and for AS a second word.
        static const uint8_t kNoFaces[8] = {};
        host->pushCameraData(kScene, photo.data(), static_cast<int>(photo.size()));
        if (withFace) host->setDetectData(kScene, record.data(), static_cast<int>(record.size()));
        else host->setDetectData(kScene, kNoFaces, detectType() == DETECTTYPE_AS ? 8 : 4);
        app->update();
        app->directrender("");
    }
    Bytes picture() {
        glBindFramebuffer(GL_FRAMEBUFFER, scene->getFbo()->getFboID());
        Bytes pixels = readPixels(0, 0, kSize, kSize);
        glBindFramebuffer(GL_FRAMEBUFFER, 0);
        return pixels;
    }
    template <class T>
    T* addNode(const char* type, const char* name, int personID = 1) {
        T* node = dynamic_cast<T*>(nodes->getCreator()->createNode(type, kScene, name));
        if (!node) return nullptr;
        node->setresUID(kResUID);
        node->setpersonID(personID);
        scene->addChild(node);
        return node;
    }
    ZuPerson* person() { return app->getGlobalMgr()->getPersonSys()->getPerson(kScene, 1); }
    ZuPersonTracker* tracker() {
        ZuPerson* p = person();
        return p ? p->getTracker() : nullptr;
    }
    // Replaces the camera picture by a smooth grid: cosine bands 32 pixels
    // apart in red across and green up, so every point can be told apart
    // and bilinear sampling stays within a level of the exact value.
    void useGridPicture() {
        for (int row = 0; row < kSize; ++row)
            for (int x = 0; x < kSize; ++x) {
                uint8_t* p = &photo[(static_cast<size_t>(row) * kSize + x) * 4];
                int y = kSize - 1 - row;  // the camera hands the top row first
                p[0] = static_cast<uint8_t>(std::lround(128 + 110 * std::cos(2 * M_PI * x / 32.0)));
                p[1] = static_cast<uint8_t>(std::lround(128 + 110 * std::cos(2 * M_PI * y / 32.0)));
                p[2] = static_cast<uint8_t>((x + y) / 4);
                p[3] = 255;
            }
    }

    ZuConfig* config = nullptr;
    ZuAppNative* host = nullptr;
    ZuNodeMgr* nodes = nullptr;
    ZuScene* scene = nullptr;
    Bytes photo;   // RGBA, top row first, as the camera hands it over
    Bytes record;  // the face record of the photo
};

} // namespace photoscene
