#pragma once

#include <rapidjson/document.h>

class ZuAppMain;
class ZuParseData;

// Readers of the key groups that many item types share.
class ZuParse {
public:
    // "id", "type", "subType", "name" (else the id), "resourceType" as
    // strings; "personid", "loop", "reactState", "order" as decimal text in
    // strings (a JSON number for them is ignored). Keys of the wrong JSON
    // type are skipped with a log line naming the package and the item.
    static void parseBase(ZuParseData* data, const rapidjson::Value& item, const char* directory);
};
