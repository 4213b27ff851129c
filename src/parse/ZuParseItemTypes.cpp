#include "parse/ZuParseItemTypes.h"

#include "parse/ZuParse2DAni.h"
#include "parse/ZuParseGatherFilter.h"
#include "parse/ZuParseEffectFilter.h"
#include "parse/ZuParseFaceBeautify.h"
#include "parse/ZuParseMask.h"
#include "parse/ZuParseMgr.h"
#include "parse/ZuParseOgreAnimoji.h"
#include "parse/ZuParseParticle.h"
#include "parse/ZuParseSound.h"
#include "parse/ZuParseSwapFace.h"
#include "parse/ZuParseTimeOut.h"
#include "parse/ZuParseAlphaMatting.h"
#include "parse/ZuParseDistortion.h"
#include "parse/ZuParseFaceMorph.h"
#include "parse/ZuParseMorph.h"

void registerBuiltinItemTypes(ZuParseMgr* mgr, const CfgFilter& filter) {
    mgr->registDictionary("timeout", ZuParseTimeOut::parseTimeOut);
    if (CfgFilter::isOn(filter.gather)) mgr->registDictionary("filterGather", ZuParseGatherFilter::parseGatherFilter);
    mgr->registDictionary("faceBeautify", ZuParseFaceBeautify::parseFaceBeautify);
    mgr->registDictionary("anim", ZuParse2DAni::parse2DAni);
    mgr->registDictionary("EffectFilter", ZuParseEffectFilter::parseEffectFilter);
    mgr->registDictionary("particle", ZuParseParticle::parseParticle);
    if (CfgFilter::isOn(filter.audio)) mgr->registDictionary("audio", ZuParseSound::parseSound);
    mgr->registDictionary("alphaMatting", ZuParseAlphaMatting::parseAlphaMatting);
    // Face masks, swaps and real-face overlays.
    mgr->registDictionary("mask", ZuParseMask::parseMask);
    mgr->registDictionary("swapface", ZuParseSwapFace::parseSwapFace);
    // Face reshaping: grid morphs, shader warps by number, lenses.
    mgr->registDictionary("morph", ZuParseMorph::parseMorph);
    mgr->registDictionary("faceMorph", ZuParseFaceMorph::parseFaceMorph);
    mgr->registDictionary("distortion", ZuParseDistortion::parseDistortion);
    mgr->registDictionary("ogreAnimoji", ZuParseOgreAnimoji::parseOgreAnimoji);
}
