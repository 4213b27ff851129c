#pragma once

#include "basesys/qzArray.h"
#include "parse/ZuParseData.h"
#include "parse/ZuReactEventBy.h"
#include "parse/ZuTerminatedBy.h"
#include "parse/ZuTriggeredBy.h"

// A package item that takes part in events: when its node starts, stops and
// switches clips, as read by ZuParse::parseEvent. Nodes turn the entries
// into event patterns when they are built.
class ZuParseDataEvent : public ZuParseData {
public:
    explicit ZuParseDataEvent(ZuAppMain* app) : ZuParseData(app) {}

    qz::array<ZuTerminatedBy> terminatedBy;
    qz::array<ZuTriggeredBy> triggeredBy;
    qz::array<ZuReactEventBy> reactEvents;
};
