#include "operate/ZuOperateScreenExpand.h"

#include "node/filter/ZuTimedFilter.h"
#include "node/filter/ZuMaterialScreenExpand.h"

void ZuOperateScreenExpand::process(float) {
    auto* material = new ZuMaterialScreenExpand(app);
    material->init();
    ZuTimedFilter::show(app, scene.c_str(), RS_FILTER_LATE, material, 0.5f);
    material->release();
}
