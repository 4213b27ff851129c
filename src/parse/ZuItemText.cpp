#include "parse/ZuItemText.h"

#include "platform/ZuLog.h"

#include <cmath>
#include <cstdlib>

namespace {

bool parseNumber(const char* text, float& out) {
    char* end = nullptr;
    double value = std::strtod(text, &end);
    if (end == text || !std::isfinite(value)) return false;
    out = static_cast<float>(value);
    return true;
}

} // namespace

const char* ZuItemText::idOf(const rapidjson::Value& item) {
    if (!item.IsObject()) return "";
    auto id = item.FindMember("id");
    return id != item.MemberEnd() && id->value.IsString() ? id->value.GetString() : "";
}

bool ZuItemText::number(const rapidjson::Value& item, const char* key, const char* directory, float& out,
                        bool required) {
    const char* dir = directory ? directory : "";
    auto member = item.FindMember(key);
    if (member == item.MemberEnd()) {
        if (required) QZLOGW("package %s, item '%s': \"%s\" is missing", dir, idOf(item), key);
        return false;
    }
    float value = 0.0f;
    if (!member->value.IsString() || !parseNumber(member->value.GetString(), value)) {
        QZLOGW("package %s, item '%s': \"%s\" is not text holding a number", dir, idOf(item), key);
        return false;
    }
    out = value;
    return true;
}

bool ZuItemText::numbers(const rapidjson::Value& item, const char* key, const char* directory, float* out,
                         int count) {
    auto member = item.FindMember(key);
    if (member == item.MemberEnd()) return false;
    const char* dir = directory ? directory : "";
    if (!member->value.IsArray() || member->value.Size() != static_cast<unsigned>(count)) {
        QZLOGW("package %s, item '%s': \"%s\" is not an array of %d numbers", dir, idOf(item), key, count);
        return false;
    }
    float values[16];
    if (count > 16) return false;
    for (int i = 0; i < count; ++i) {
        const rapidjson::Value& entry = member->value[i];
        if (!entry.IsString() || !parseNumber(entry.GetString(), values[i])) {
            QZLOGW("package %s, item '%s': \"%s\" entry %d is not text holding a number", dir, idOf(item), key, i);
            return false;
        }
    }
    for (int i = 0; i < count; ++i) out[i] = values[i];
    return true;
}
