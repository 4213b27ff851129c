#include "operate/ZuOperateChangeDetectDataType.h"

#include "basesys/ZuAppMain.h"
#include "basesys/ZuConfig.h"
#include "basesys/ZuGlobalMgr.h"
#include "data/ZuDataMgr.h"
#include "data/ZuDetectMgr.h"
#include "person/ZuPersonSys.h"

void ZuOperateChangeDetectDataType::process(float) {
    ZuGlobalMgr* managers = app ? app->getGlobalMgr() : nullptr;
    if (!managers) return;
    if (managers->getConfig()) managers->getConfig()->setDetectType(type);
    if (managers->getDetectMgr()) managers->getDetectMgr()->init(type);
    if (managers->getDataMgr()) managers->getDataMgr()->setDetectDataType(type);
    if (managers->getPersonSys()) managers->getPersonSys()->setDetectType(static_cast<DETECTTYPE>(type));
}
