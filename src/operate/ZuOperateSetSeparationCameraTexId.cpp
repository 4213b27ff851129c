#include "operate/ZuOperateSetSeparationCameraTexId.h"

void ZuOperateSetSeparationCameraTexId::process(float) {
    qz::string renderName = scene;
    renderName += "_separationbg_render";
    makeBackground("ZuSeparationBackgroundNode", renderName.c_str(), false);
}
