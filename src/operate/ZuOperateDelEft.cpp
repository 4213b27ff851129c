#include "operate/ZuOperateDelEft.h"

#include "basesys/ZuGBase.h"
#include "operate/ZuOperateSceneAccess.h"
#include "parse/ZuParseMgr.h"
#include "scene/ZuNodeMgr.h"

void ZuOperateDelEft::process(float) {
    if (ZuNodeMgr* nodes = zuop::nodeMgr(app)) nodes->delNodeByResID(resUID);
    // Skeletons only the pool still holds belonged to the removed stickers.
    if (ZuParseMgr* parser = ZuGBase::parseMgrOf(app)) parser->getSkeletonPool().removeUnuseSke();
}
