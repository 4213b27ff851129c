#pragma once

#include "basesys/CfgFilter.h"

class ZuParseMgr;

// The package item types the engine builds, each registered unless the
// configuration switches its family off. Item types join this list in
// ZuParseItemTypes.cpp as their nodes are written.
void registerBuiltinItemTypes(ZuParseMgr* mgr, const CfgFilter& filter);
