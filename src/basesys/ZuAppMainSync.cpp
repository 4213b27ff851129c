#include "basesys/ZuAppMainSync.h"

#include "basesys/ZuCheck.h"
#include "basesys/ZuGlobalMgr.h"
#include "operate/ZuOpContextOffCreate.h"
#include "operate/ZuOpContextOffDestroy.h"
#include "operate/ZuOperateMgr.h"

void ZuAppMainSync::createOffGLContext(const char* name, int width, int height) {
    ZuOperateMgr* operations = globalMgr ? globalMgr->getOperateMgr() : nullptr;
    QZ_REQUIRE(state != ZU_ENG_STATE_STOPPING && operations, "createOffGLContext: the engine is stopping or not started");
    auto* op = new ZuOpContextOffCreate(this, name, width, height);
    operations->pushOperate(op);
    op->release();
}

void ZuAppMainSync::destroyOffGLContext(const char* name) {
    ZuOperateMgr* operations = globalMgr ? globalMgr->getOperateMgr() : nullptr;
    QZ_REQUIRE(state != ZU_ENG_STATE_STOPPING && operations, "destroyOffGLContext: the engine is stopping or not started");
    auto* op = new ZuOpContextOffDestroy(this, name);
    operations->pushOperate(op);
    op->release();
}
