#include "operate/ZuOpContextOffDestroy.h"

#include "basesys/ZuAppMain.h"
#include "basesys/ZuAsyncGlobalMgr.h"
#include "platform/ZuContext.h"

void ZuOpContextOffDestroy::process(float) {
    auto* managers = dynamic_cast<ZuAsyncGlobalMgr*>(getApp() ? getApp()->getGlobalMgr() : nullptr);
    if (!managers || !managers->getContext()) return;
    ZuContext* context = managers->getContext();
    context->unbind();
    context->destroyGLSurface();
    context->destroyContextOff();
}
