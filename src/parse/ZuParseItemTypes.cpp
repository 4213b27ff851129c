#include "parse/ZuParseItemTypes.h"

#include "parse/ZuParseMgr.h"
#include "parse/ZuParseTimeOut.h"

void registerBuiltinItemTypes(ZuParseMgr* mgr, const CfgFilter&) {
    mgr->registDictionary("timeout", ZuParseTimeOut::parseTimeOut);
}
