#include "parse/ZuParse.h"

#include "parse/ZuParseData.h"
#include "platform/ZuLog.h"

#include <cstdlib>

namespace {

// The string at key, or null; a present key of another type is reported.
const char* stringKey(const rapidjson::Value& item, const char* key, const char* directory, const char* id) {
    auto member = item.FindMember(key);
    if (member == item.MemberEnd()) return nullptr;
    if (member->value.IsString()) return member->value.GetString();
    QZLOGW("package %s, item '%s': \"%s\" is not a string; skipped", directory ? directory : "", id, key);
    return nullptr;
}

} // namespace

void ZuParse::parseBase(ZuParseData* data, const rapidjson::Value& item, const char* directory) {
    if (!data || !item.IsObject()) return;
    auto idMember = item.FindMember("id");
    const char* id = idMember != item.MemberEnd() && idMember->value.IsString() ? idMember->value.GetString() : "";
    if (const char* text = stringKey(item, "id", directory, id)) data->id = text;
    if (const char* text = stringKey(item, "type", directory, id)) data->type = text;
    if (const char* text = stringKey(item, "subType", directory, id)) data->subType = text;
    // A missing or non-text name falls back to the id without a complaint.
    auto nameMember = item.FindMember("name");
    if (nameMember != item.MemberEnd() && nameMember->value.IsString())
        data->name = nameMember->value.GetString();
    else
        data->name = data->id;
    if (const char* text = stringKey(item, "resourceType", directory, id)) data->resourceType = text;
    if (const char* text = stringKey(item, "personid", directory, id)) data->personID = atoi(text);
    if (const char* text = stringKey(item, "loop", directory, id)) data->loop = atoi(text);
    if (const char* text = stringKey(item, "reactState", directory, id)) data->reactState = atoi(text);
    if (const char* text = stringKey(item, "order", directory, id)) data->order = atoi(text);
}
