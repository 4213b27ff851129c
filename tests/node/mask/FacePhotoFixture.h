#pragma once

// The sample photo as a camera frame with its ST face record, for the face
// mask and swap tests: records can be rebuilt with moved points, and the
// photo can carry a second face.
#include "basesys/Camera.h"
#include "basesys/ZuAppNative.h"
#include "basesys/ZuConfig.h"
#include "data/DETECTTYPE.h"
#include "person/ZuPerson.h"
#include "person/ZuPersonSys.h"
#include "render/fbo/ZuFboObject.h"
#include "render/texture/ZuPngLoader.h"
#include "render/texture/ZuPngWriter.h"
#include "scene/ZuNodeCreator.h"
#include "scene/ZuNodeMgr.h"
#include "scene/ZuScene.h"
#include "scene/ZuSceneMgr.h"
#include "support/EngineFixture.h"
#include "support/WireRecord.h"

#include <GLES2/gl2.h>

#include <cmath>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

using Bytes = std::vector<uint8_t>;

inline Bytes readBytes(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return Bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
}

// One face of an ST record: wire coordinates, y from the top.
struct StFace {
    float roll = 0, yaw = 0, pitch = 0;
    int32_t left = 0, top = 0, right = 0, bottom = 0;
    std::vector<float> xy; // 106 pairs, whole pixels on the wire
};

inline std::vector<StFace> parseStRecord(const Bytes& r) {
    auto f32 = [&](size_t at) { float v; std::memcpy(&v, &r[at], 4); return v; };
    auto i32 = [&](size_t at) { int32_t v; std::memcpy(&v, &r[at], 4); return v; };
    std::vector<StFace> faces;
    if (r.size() < 4) return faces;
    const int n = i32(0);
    size_t at = 4;
    for (int f = 0; f < n && at + 28 + 106 * 8 <= r.size(); ++f) {
        StFace face;
        face.roll = f32(at), face.yaw = f32(at + 4), face.pitch = f32(at + 8);
        face.left = i32(at + 12), face.top = i32(at + 16), face.right = i32(at + 20), face.bottom = i32(at + 24);
        at += 28;
        for (int i = 0; i < 212; ++i, at += 4) face.xy.push_back(static_cast<float>(i32(at)));
        faces.push_back(face);
    }
    return faces;
}

inline Bytes stRecord(const std::vector<StFace>& faces) {
    WireRecord r;
    r.i32(static_cast<int>(faces.size()));
    for (const StFace& face : faces) {
        r.f32(face.roll), r.f32(face.yaw), r.f32(face.pitch);
        r.i32(face.left), r.i32(face.top), r.i32(face.right), r.i32(face.bottom);
        for (float v : face.xy) r.i32(static_cast<int32_t>(std::lround(v)));
    }
    return r.bytes;
}

class FacePhotoFixture : public EngineTest {
protected:
    static constexpr int kSize = 512;
    static constexpr const char* kScene = "m";

    std::vector<std::string> resourceRoots() const override { return {sourceAssets()}; }
    // The photo and its ST record, under samples/.
    virtual const char* photoFile() const { return "photos/astronaut.png"; }
    virtual const char* recordFile() const { return "faces/astronaut.st.rec"; }
    // ST records can be rebuilt with moved points; others are sent as read.
    virtual int detectType() const { return DETECTTYPE_ST; }

    void SetUp() override {
        EngineTest::SetUp();
        config = app->getGlobalMgr()->getConfig();
        host = app->getAppInter();
        nodes = app->getGlobalMgr()->getNodeMgr();
        photo = loadPhoto((std::string(QZ_SOURCE_DIR "/samples/") + photoFile()).c_str());
        ASSERT_EQ(photo.size(), static_cast<size_t>(kSize) * kSize * 4);
        record = readBytes(std::string(QZ_SOURCE_DIR "/samples/") + recordFile());
        ASSERT_FALSE(record.empty());
        if (detectType() == DETECTTYPE_ST) {
            faces = parseStRecord(record);
            ASSERT_FALSE(faces.empty());
            record = stRecord(faces);
        }
        Camera* camera = config->getCamera(kScene);
        camera->width = kSize;
        camera->height = kSize;
        camera->angle = 0;
        host->createLogicSceneFull(kScene, kSize, kSize, kSize, kSize);
        host->createBGNode(kScene, 4); // RGBA frames
        host->setDetectType(static_cast<DETECTTYPE>(detectType()));
        frame();
        scene = app->getGlobalMgr()->getSceneMgr()->getScene(kScene);
        ASSERT_NE(scene, nullptr);
        frame();
    }

    Bytes loadPhoto(const char* path) {
        Bytes png = readBytes(path);
        ZuPngLoader loader(app);
        unsigned char* pixels = nullptr;
        if (!loader._readPngFromStream(png.data(), static_cast<int>(png.size()), path, &pixels)) return {};
        const int w = loader.getWidth(), h = loader.getHeight();
        const int channels = loader.getGlFormat() == GL_RGBA ? 4 : 3;
        Bytes rgba(static_cast<size_t>(w) * h * 4, 255);
        for (size_t i = 0; i < static_cast<size_t>(w) * h; ++i)
            for (int c = 0; c < 3; ++c) rgba[i * 4 + c] = pixels[i * channels + c];
        free(pixels);
        return rgba;
    }

    // One host frame: picture and record, tick, replay.
    void frame() {
        host->pushCameraData(kScene, photo.data(), static_cast<int>(photo.size()));
        host->setDetectData(kScene, record.data(), static_cast<int>(record.size()));
        app->update();
        app->directrender("");
    }
    // The scene's picture, row 0 at the bottom.
    Bytes picture() {
        glBindFramebuffer(GL_FRAMEBUFFER, scene->getFbo()->getFboID());
        Bytes pixels = readPixels(0, 0, kSize, kSize);
        glBindFramebuffer(GL_FRAMEBUFFER, 0);
        return pixels;
    }
    // With QZ_TEST_DUMP set, the picture goes to that folder as NAME.png.
    void dump(const Bytes& pic, const std::string& name) {
        const char* folder = std::getenv("QZ_TEST_DUMP");
        if (!folder) return;
        Bytes top(pic.size());
        for (int y = 0; y < kSize; ++y)
            std::memcpy(&top[static_cast<size_t>(kSize - 1 - y) * kSize * 4], &pic[static_cast<size_t>(y) * kSize * 4],
                        kSize * 4);
        ZuPngWriter(app).write((std::string(folder) + "/" + name + ".png").c_str(), kSize, kSize, top.data());
    }
    ZuPerson* person(int id) { return app->getGlobalMgr()->getPersonSys()->getPerson(kScene, id); }

    template <class T>
    T* addNode(const char* type, const char* name, int personID) {
        T* node = dynamic_cast<T*>(nodes->getCreator()->createNode(type, kScene, name));
        if (!node) return nullptr;
        node->setresUID(7);
        node->setpersonID(personID);
        scene->addChild(node);
        return node;
    }

    ZuConfig* config = nullptr;
    ZuAppNative* host = nullptr;
    ZuNodeMgr* nodes = nullptr;
    ZuScene* scene = nullptr;
    Bytes photo;  // RGBA, top row first
    std::vector<StFace> faces;
    Bytes record;
};
