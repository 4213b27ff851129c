#include "operate/ZuOpContextOffCreate.h"

#include "basesys/ZuAppMain.h"
#include "basesys/ZuAsyncGlobalMgr.h"
#include "platform/ZuContext.h"
#include "platform/ZuLog.h"

void ZuOpContextOffCreate::process(float) {
    auto* managers = dynamic_cast<ZuAsyncGlobalMgr*>(getApp() ? getApp()->getGlobalMgr() : nullptr);
    if (!managers || !managers->getContext()) return;
    if (!managers->getContext()->createContextOff(width, height))
        QZLOGE("off-screen context for '%s' (%dx%d) could not be made", name.c_str(), width, height);
}
