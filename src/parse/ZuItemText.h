#pragma once

#include <rapidjson/document.h>

// Readers for item keys that hold numbers as text ("0.5"), as the reshaping
// items write them. Each logs what it cannot read, naming the package, the
// item and the key, and leaves the output alone then.
class ZuItemText {
public:
    // A key holding a number as text. Absent: false, silently unless
    // required. Present but not text, or text that is no number: logged.
    static bool number(const rapidjson::Value& item, const char* key, const char* directory, float& out,
                       bool required = false);
    // An array of exactly count such texts; false (logged) when it is
    // present and not that.
    static bool numbers(const rapidjson::Value& item, const char* key, const char* directory, float* out,
                        int count);
    // The item's "id" for log lines, "" when it has none.
    static const char* idOf(const rapidjson::Value& item);
};
