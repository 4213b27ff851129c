#include "basesys/ZuAppMainWrapTN.h"

#include "basesys/ZuCheck.h"
#include "node/beauty/ZuFaceBeautifyExpand01Node.h"
#include "operate/ZuOperateMgr.h"
#include "operate/ZuOperateUpdateBGTexture.h"

void ZuAppMainWrapTN::setFaceBeautifyAdjust(float smooth, float, float, float, const char* nodeName) {
    if (auto* beauty = exactNode<ZuFaceBeautifyExpand01Node>(nodeName)) beauty->updateSmooth(smooth);
}

void ZuAppMainWrapTN::setBackgroundTexture(const char* nodeName, int texture, int width, int height) {
    ZuOperateMgr* operations = ZuGBase::operateMgrOf(this);
    QZ_REQUIRE(operations && state == ZU_ENG_STATE_RUNNING && nodeName, "setBackgroundTexture: the engine is not running");
    auto* op = new ZuOperateUpdateBGTexture(this, nodeName, texture, width, height);
    operations->pushOperate(op);
    op->release();
}
