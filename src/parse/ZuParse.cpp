#include "parse/ZuParse.h"

#include "parse/ZuParseData.h"
#include "parse/ZuParseDataEvent.h"
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

const char* itemId(const rapidjson::Value& item) {
    auto member = item.FindMember("id");
    return member != item.MemberEnd() && member->value.IsString() ? member->value.GetString() : "";
}

// The elements of the array at key that are objects, each handed to read;
// the rest is reported and skipped.
template <typename Read>
void eachEntry(const rapidjson::Value& item, const char* key, const char* directory, Read read) {
    auto member = item.FindMember(key);
    if (member == item.MemberEnd()) return;
    const char* id = itemId(item);
    if (!member->value.IsArray()) {
        QZLOGW("package %s, item '%s': \"%s\" is not an array; ignored", directory ? directory : "", id, key);
        return;
    }
    for (const rapidjson::Value& entry : member->value.GetArray()) {
        if (entry.IsObject()) {
            read(entry);
            continue;
        }
        QZLOGW("package %s, item '%s': an element of \"%s\" is not an object; skipped",
               directory ? directory : "", id, key);
    }
}

// Copies the string at key of one array element into field.
void entryText(qz::string& field, const rapidjson::Value& entry, const char* arrayKey, const char* key,
               const char* directory, const char* id) {
    auto member = entry.FindMember(key);
    if (member == entry.MemberEnd()) return;
    if (member->value.IsString()) {
        field = member->value.GetString();
        return;
    }
    QZLOGW("package %s, item '%s': \"%s\" in \"%s\" is not a string; skipped", directory ? directory : "", id,
           key, arrayKey);
}

} // namespace

void ZuParse::parseBase(ZuParseData* data, const rapidjson::Value& item, const char* directory) {
    if (!data || !item.IsObject()) return;
    const char* id = itemId(item);
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

void ZuParse::parseEvent(ZuParseDataEvent* data, const rapidjson::Value& item, const char* directory) {
    if (!data || !item.IsObject()) return;
    const char* id = itemId(item);
    eachEntry(item, "triggeredBy", directory, [&](const rapidjson::Value& entry) {
        ZuTriggeredBy trigger;
        entryText(trigger.category, entry, "triggeredBy", "category", directory, id);
        entryText(trigger.dependsOn, entry, "triggeredBy", "dependsOn", directory, id);
        entryText(trigger.event, entry, "triggeredBy", "event", directory, id);
        data->triggeredBy.push_back(trigger);
    });
    eachEntry(item, "terminatedBy", directory, [&](const rapidjson::Value& entry) {
        ZuTerminatedBy terminator;
        entryText(terminator.category, entry, "terminatedBy", "category", directory, id);
        entryText(terminator.dependsOn, entry, "terminatedBy", "dependsOn", directory, id);
        entryText(terminator.event, entry, "terminatedBy", "event", directory, id);
        data->terminatedBy.push_back(terminator);
    });
    eachEntry(item, "reactEvents", directory, [&](const rapidjson::Value& entry) {
        ZuReactEventBy react;
        entryText(react.event, entry, "reactEvents", "event", directory, id);
        entryText(react.animation, entry, "reactEvents", "animation", directory, id);
        entryText(react.loop, entry, "reactEvents", "loop", directory, id);
        entryText(react.next, entry, "reactEvents", "next", directory, id);
        data->reactEvents.push_back(react);
    });
}
