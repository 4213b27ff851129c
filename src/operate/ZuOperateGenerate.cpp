#include "operate/ZuOperateGenerate.h"

#include "parse/ZuParseData.h"

#include <vector>

ZuOperateGenerate::ZuOperateGenerate(ZuAppMain* app, ZuParseData* data, const char* scene, int resUID,
                                     const char* path)
    : ZuOperateBase(app), data(data), scene(scene), resUID(resUID), path(path) {
    if (data) data->retain();
}

ZuOperateGenerate::~ZuOperateGenerate() { qzSafeRelease(data); }

void ZuOperateGenerate::process(float) {
    if (!data) return;
    // The item API takes a mutable directory; hand it a copy.
    std::vector<char> directory(path.c_str(), path.c_str() + path.size() + 1);
    data->generate(resUID, scene.c_str(), directory.data());
    data->suspend(scene.c_str());
    qzSafeRelease(data);
}
