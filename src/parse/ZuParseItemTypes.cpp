#include "parse/ZuParseItemTypes.h"

#include "parse/ZuParse2DAni.h"
#include "parse/ZuParseGatherFilter.h"
#include "parse/ZuParseEffectFilter.h"
#include "parse/ZuParseFaceBeautify.h"
#include "parse/ZuParseMgr.h"
#include "parse/ZuParseOgreAnimoji.h"
#include "parse/ZuParseParticle.h"
#include "parse/ZuParseSound.h"
#include "parse/ZuParseTimeOut.h"

void registerBuiltinItemTypes(ZuParseMgr* mgr, const CfgFilter& filter) {
    mgr->registDictionary("timeout", ZuParseTimeOut::parseTimeOut);
    if (CfgFilter::isOn(filter.gather)) mgr->registDictionary("filterGather", ZuParseGatherFilter::parseGatherFilter);
    mgr->registDictionary("faceBeautify", ZuParseFaceBeautify::parseFaceBeautify);
    mgr->registDictionary("anim", ZuParse2DAni::parse2DAni);
    mgr->registDictionary("EffectFilter", ZuParseEffectFilter::parseEffectFilter);
    mgr->registDictionary("particle", ZuParseParticle::parseParticle);
    if (CfgFilter::isOn(filter.audio)) mgr->registDictionary("audio", ZuParseSound::parseSound);
    mgr->registDictionary("ogreAnimoji", ZuParseOgreAnimoji::parseOgreAnimoji);
}
