#include "basesys/StringUtil.h"

namespace {
const char kBlank[] = " \t\r";
}

void StringUtil::trim(std::string& text, bool left, bool right) {
    if (right) text.erase(text.find_last_not_of(kBlank) + 1);
    if (left) text.erase(0, text.find_first_not_of(kBlank));
}

std::vector<std::string> StringUtil::split(const std::string& text, const std::string& delimiters,
                                           unsigned int maxSplits, bool preserveDelimiters) {
    std::vector<std::string> parts;
    parts.reserve(maxSplits ? maxSplits + 1 : 10);

    unsigned int splits = 0;
    size_t start = text.find_first_not_of(delimiters);
    while (start != std::string::npos) {
        if (maxSplits && splits == maxSplits) {
            parts.push_back(text.substr(start));
            break;
        }
        size_t stop = text.find_first_of(delimiters, start);
        parts.push_back(text.substr(start, stop - start));
        if (stop == std::string::npos) break;

        size_t next = text.find_first_not_of(delimiters, stop);
        if (preserveDelimiters && next != std::string::npos)
            parts.push_back(text.substr(stop, next - stop));
        start = next;
        ++splits;
    }
    return parts;
}
