#pragma once

#include <rapidjson/document.h>

class ZuAppMain;
class ZuParseData;
class ZuParseDataEvent;

// Readers of the key groups that many item types share.
class ZuParse {
public:
    // "id", "type", "subType", "name" (else the id), "resourceType" as
    // strings; "personid", "loop", "reactState", "order" as decimal text in
    // strings (a JSON number for them is ignored). Keys of the wrong JSON
    // type are skipped with a log line naming the package and the item.
    static void parseBase(ZuParseData* data, const rapidjson::Value& item, const char* directory);
    // The arrays "triggeredBy", "terminatedBy" and "reactEvents". A key that
    // is not an array, an element that is not an object and an element key
    // that is not a string are skipped with a log line; the rest is kept.
    static void parseEvent(ZuParseDataEvent* data, const rapidjson::Value& item, const char* directory);
};
