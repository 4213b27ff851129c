#include "operate/ZuOperateFilterOut.h"

#include "node/filter/ZuTimedFilter.h"
#include "render/material/ZuMaterial.h"

ZuOperateFilterOut::ZuOperateFilterOut(ZuAppMain* app, const char* scene, int, ZuMaterial* material, float seconds)
    : ZuOperateBase(app), scene(scene ? scene : ""), material(material), seconds(seconds) {
    if (material) material->retain();
}

ZuOperateFilterOut::~ZuOperateFilterOut() { qzSafeRelease(material); }

void ZuOperateFilterOut::process(float) {
    if (!material) return;
    ZuTimedFilter::show(app, scene.c_str(), RS_FILTER_EARLY, material, seconds);
    qzSafeRelease(material);
}
