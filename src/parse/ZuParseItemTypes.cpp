#include "parse/ZuParseItemTypes.h"

#include "parse/ZuParseMgr.h"
#include "parse/ZuParseSound.h"
#include "parse/ZuParseTimeOut.h"

void registerBuiltinItemTypes(ZuParseMgr* mgr, const CfgFilter& filter) {
    mgr->registDictionary("timeout", ZuParseTimeOut::parseTimeOut);
    if (CfgFilter::isOn(filter.audio)) mgr->registDictionary("audio", ZuParseSound::parseSound);
}
