#include "operate/ZuOperateSetSeparationCameraFormate.h"

void ZuOperateSetSeparationCameraFormate::process(float) {
    qz::string renderName = scene;
    renderName += "_separationbg_render";
    makeBackground("ZuSeparationBackgroundNode", renderName.c_str());
}
