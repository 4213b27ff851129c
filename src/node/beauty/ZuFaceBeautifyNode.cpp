#include "node/beauty/ZuFaceBeautifyNode.h"

#include "basesys/Camera.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuGlobalMgr.h"
#include "data/ZuDataSwap.h"
#include "node/beauty/ZuFaceBeautifyMaterial.h"
#include "node/face/ZuNodePerson.h"
#include "person/ZuPerson.h"
#include "platform/ZuLog.h"
#include "render/fbo/ZuFboObject.h"
#include "render/object/ZuRenderPickReadDataObject.h"
#include "render/texture/ZuTexMgr.h"
#include "render/texture/ZuTexture.h"
#include "scene/ZuScene.h"

#include <GLES2/gl2.h>
#include <algorithm>
#include <cstring>

namespace {

// Landmark pairs (106-point layout) whose thirds fall on the cheeks.
const int kPairs[6][2] = {{2, 66}, {3, 66}, {4, 66}, {71, 16}, {71, 14}, {71, 15}};

} // namespace

ZuFaceBeautifyNode::ZuFaceBeautifyNode(ZuAppMain* app) : ZuFilter(app) { setType("ZuFaceBeautifyNode"); }

void ZuFaceBeautifyNode::zuinit() {
    ZuFilter::zuinit();
    material = new ZuFaceBeautifyMaterial(app);
    material->init();
    pixelSwap = new ZuDataSwap();
    pixelSwap->aplly(kSamples * 4);
    pointSwap = new ZuDataSwap();
    pointSwap->aplly(kSamples * 2 * static_cast<int>(sizeof(float)));
    pickObject = new ZuRenderPickReadDataObject(app);
    pickObject->setSwaps(pixelSwap, pointSwap);
    lookup = ZuTexMgr::createInternalTexture(app, ZuFaceBeautifyMaterial::kLevels, 1, GL_RGB);
    material->setLookupTexture(lookup);
}

void ZuFaceBeautifyNode::zudestroy() {
    ZuFilter::zudestroy();
    qzSafeRelease(pickObject);
    qzSafeRelease(material);
    qzSafeRelease(pixelSwap);
    qzSafeRelease(pointSwap);
    if (lookup) lookup->zudestroy();
    qzSafeRelease(lookup);
}

void ZuFaceBeautifyNode::pickupPoint(float ax, float ay, float bx, float by, float out[4]) {
    float x1 = ax + (bx - ax) / 3.0f;
    float x2 = x1 + (bx - ax) / 3.0f;
    float lowY = std::min(ay, by);
    float dy = (std::max(ay, by) - lowY) / 3.0f;
    float y1 = lowY + dy;
    out[0] = x1;
    out[1] = y1;
    out[2] = x2;
    out[3] = y1 + dy;
}

const float* ZuFaceBeautifyNode::getSamplePoints() const {
    return pointSwap && pointSwap->getData() ? reinterpret_cast<const float*>(pointSwap->getData()) : nullptr;
}

// Landmarks are camera pixels; the read happens in the scene framebuffer.
void ZuFaceBeautifyNode::computeSamplePoints(ZuPerson* person) {
    if (!person || !pointSwap || !pointSwap->getData()) return;
    float scaleX = 1.0f, scaleY = 1.0f;
    ZuConfig* config = app->getGlobalMgr()->getConfig();
    const Camera* camera = config ? config->getCamera(getSceneName().c_str()) : nullptr;
    ZuFboObject* fbo = currentSceneFbo();
    if (camera && fbo && camera->width > 0 && camera->height > 0) {
        bool turned = camera->angle == 90 || camera->angle == 270;
        scaleX = static_cast<float>(fbo->getFrameWidth()) / static_cast<float>(turned ? camera->height : camera->width);
        scaleY = static_cast<float>(fbo->getFrameHeight()) / static_cast<float>(turned ? camera->width : camera->height);
    }
    float points[kSamples * 2];
    for (int i = 0; i < 6; ++i) {
        int a = kPairs[i][0], b = kPairs[i][1];
        pickupPoint(person->getFaceDataX(a) * scaleX, person->getFaceDataY(a) * scaleY,
                    person->getFaceDataX(b) * scaleX, person->getFaceDataY(b) * scaleY, &points[i * 4]);
    }
    std::memcpy(pointSwap->getData(), points, sizeof points);
}

void ZuFaceBeautifyNode::averageLastRead() {
    if (!pixelSwap || !pixelSwap->getData()) return;
    const unsigned char* pixels = pixelSwap->getData();
    int sums[4] = {0, 0, 0, 0};
    for (int i = 0; i < kSamples; ++i)
        for (int c = 0; c < 4; ++c) sums[c] += pixels[i * 4 + c];
    material->setColorAverage(sums[0] / kSamples, sums[1] / kSamples, sums[2] / kSamples, sums[3] / kSamples);
}

void ZuFaceBeautifyNode::update(float dt) {
    ZuFilter::update(dt);
    if (!material) return;
    elapsed += dt;
    ZuPerson* person = ZuNodePerson::of(this, 1);
    bool present = person && person->getExist();
    if (!sampled || (present && elapsed > kSamplePeriod)) {
        computeSamplePoints(person);
        // The previous period's read, if there was one.
        if (sampled) averageLastRead();
    }
    bindPicture(material);
}

void ZuFaceBeautifyNode::render() {
    if (!isVisible()) return;
    if (!material || !material->getProgram() || !pickObject) return;
    ZuPerson* person = ZuNodePerson::of(this, 1);
    ZuScene* scene = getActiveScene();
    if (person && person->getExist() && (elapsed > kSamplePeriod || !sampled) && scene) {
        elapsed = 0.0f;
        sampled = true;
        pickObject->pushCmd(scene->getRenderScene(), RS_BEAUTY_READ, "FaceBeautify pick");
    }
    if (sampled) pushPass(RS_FILTER, "FaceBeautify swap", "FaceBeautify");
}

void ZuFaceBeautifyNode::updateSmooth(float value) {
    if (material) material->setSmooth(value);
}

void ZuFaceBeautifyNode::updateCurveAdjust(float value) {
    if (material) material->updateCurveAdjust(value);
}

void ZuFaceBeautifyNode::updateGainAdjust(float value) {
    if (material) material->setGainAdjust(value);
}
