#include "basesys/qzString.h"

#include <cstring>

namespace qz {

namespace {

uint32_t boundedLength(const char* s, uint32_t limit) {
    uint32_t n = 0;
    while (n < limit && s[n]) ++n;
    return n;
}

}  // namespace

string::string() {
    text = allocator.allocate(1);
    text[0] = 0;
    allocated = 1;
    used = 1;
}

string::string(const char* source) : string() {
    *this = source;
}

string::string(const char* source, uint32_t length) : string() {
    if (source) assign(source, boundedLength(source, length));
}

string::string(const string& other) : string() {
    *this = other;
}

string::string(int number) : string() {
    const bool negative = number < 0;
    // Via unsigned so the most negative value has a magnitude.
    unsigned long long magnitude =
        negative ? 0ull - static_cast<unsigned long long>(static_cast<long long>(number))
                 : static_cast<unsigned long long>(number);
    fromUnsigned(magnitude, negative);
}

string::string(unsigned int number) : string() {
    fromUnsigned(number, false);
}

string::string(long number) : string(static_cast<long long>(number)) {}

string::string(unsigned long number) : string() {
    fromUnsigned(number, false);
}

string::string(long long number) : string() {
    const bool negative = number < 0;
    unsigned long long magnitude = negative ? 0ull - static_cast<unsigned long long>(number)
                                            : static_cast<unsigned long long>(number);
    fromUnsigned(magnitude, negative);
}

string::string(unsigned long long number) : string() {
    fromUnsigned(number, false);
}

string::~string() {
    allocator.deallocate(text);
}

void string::fromUnsigned(unsigned long long value, bool negative) {
    // 15 bytes hold any 32-bit value; 64-bit ones need up to 21.
    char scratch[24];
    int pos = static_cast<int>(sizeof(scratch)) - 1;
    scratch[pos] = 0;
    do {
        scratch[--pos] = static_cast<char>('0' + value % 10);
        value /= 10;
    } while (value);
    if (negative) scratch[--pos] = '-';
    *this = scratch + pos;
}

// Copies length bytes and a terminator. A larger block is allocated exactly
// and the old one freed only after the copy, so the source may be our text.
void string::assign(const char* source, uint32_t length) {
    const uint32_t need = length + 1;
    if (need > allocated) {
        char* block = allocator.allocate(need);
        std::memcpy(block, source, length);
        allocator.deallocate(text);
        text = block;
        allocated = need;
    } else {
        std::memmove(text, source, length);
    }
    text[length] = 0;
    used = need;
}

string& string::operator=(const string& other) {
    if (this == &other) return *this;
    assign(other.text, other.used - 1);
    return *this;
}

string& string::operator=(const char* source) {
    if (!source) source = "";
    if (source == text) return *this;
    assign(source, static_cast<uint32_t>(std::strlen(source)));
    return *this;
}

string string::operator+(const string& other) const {
    string result(*this);
    result.append(other);
    return result;
}

string string::operator+(const char* source) const {
    string result(*this);
    result.append(source);
    return result;
}

string operator+(const char* source, const string& str) {
    string result(source);
    result.append(str);
    return result;
}

// Grows to exactly the new length; the source may lie in our own buffer.
void string::appendBytes(const char* source, uint32_t length) {
    if (length == 0) return;
    const bool inside = source >= text && source < text + allocated;
    const size_t offset = inside ? static_cast<size_t>(source - text) : 0;
    const uint32_t need = used + length;
    if (need > allocated) reallocate(need);
    if (inside) source = text + offset;
    std::memmove(text + used - 1, source, length);
    used = need;
    text[used - 1] = 0;
}

string& string::append(const string& other) {
    appendBytes(other.text, other.used - 1);
    return *this;
}

string& string::append(const char* source) {
    if (source) appendBytes(source, static_cast<uint32_t>(std::strlen(source)));
    return *this;
}

string& string::append(const char* source, uint32_t length) {
    if (source) appendBytes(source, boundedLength(source, length));
    return *this;
}

string& string::append(char c) {
    if (c) appendBytes(&c, 1);
    return *this;
}

bool string::operator==(const string& other) const {
    // Different lengths can never match, which settles most map probes early.
    if (used != other.used) return false;
    uint32_t i = 0;
    for (; text[i] && other.text[i]; ++i)
        if (text[i] != other.text[i]) return false;
    return text[i] == other.text[i];
}

bool string::operator==(const char* source) const {
    if (!source) return used == 1;
    uint32_t i = 0;
    for (; text[i] && source[i]; ++i)
        if (text[i] != source[i]) return false;
    return !text[i] && !source[i] && i + 1 == used;
}

bool operator<(const char* text, const string& str) {
    // strcmp compares as unsigned bytes, as the member operator does.
    return std::strcmp(text ? text : "", str.c_str()) < 0;
}

bool string::operator<(const string& other) const {
    const uint32_t n = used < other.used ? used : other.used;
    // memcmp compares as unsigned bytes; the terminator takes part, so a
    // prefix compares less.
    const int c = std::memcmp(text, other.text, n);
    if (c != 0) return c < 0;
    return used < other.used;
}

int string::find(const char* what, uint32_t start) const {
    if (!what || !*what) return -1;
    const uint32_t len = static_cast<uint32_t>(std::strlen(what));
    const uint32_t n = size();
    if (len > n) return -1;
    for (uint32_t i = start; i <= n - len && i < n; ++i)
        if (std::memcmp(text + i, what, len) == 0) return static_cast<int>(i);
    return -1;
}

int string::findFirst(char c) const {
    for (uint32_t i = 0; i + 1 < used; ++i)
        if (text[i] == c) return static_cast<int>(i);
    return -1;
}

int string::findLast(char c, int start) const {
    const int last = static_cast<int>(size()) - 1;
    if (start < 0 || start > last) start = last;
    for (int i = start; i >= 0; --i)
        if (text[i] == c) return i;
    return -1;
}

string string::subString(uint32_t begin, int length, bool makeLower) const {
    const uint32_t n = size();
    if (length < 1 || begin >= n) return string();
    uint32_t count = static_cast<uint32_t>(length);
    if (count > n - begin) count = n - begin;
    string result(text + begin, count);
    if (makeLower) result.make_lower();
    return result;
}

string& string::replace(const string& whatIn, const string& withIn) {
    if (whatIn.empty()) return *this;
    // Either argument may be this string, which changes under us.
    const string whatCopy(&whatIn == this ? whatIn : string());
    const string withCopy(&withIn == this ? withIn : string());
    const string& what = &whatIn == this ? whatCopy : whatIn;
    const string& with = &withIn == this ? withCopy : withIn;

    const uint32_t whatLen = what.size();
    const uint32_t withLen = with.size();
    const uint32_t n = size();

    if (withLen <= whatLen) {
        // One forward pass; the write position never overtakes the read one.
        uint32_t r = 0, w = 0;
        while (r < n) {
            if (r + whatLen <= n && std::memcmp(text + r, what.text, whatLen) == 0) {
                std::memcpy(text + w, with.text, withLen);
                w += withLen;
                r += whatLen;
            } else {
                text[w++] = text[r++];
            }
        }
        text[w] = 0;
        used = w + 1;
        return *this;
    }

    uint32_t found = 0;
    for (int pos = find(what.text, 0); pos >= 0;
         pos = find(what.text, static_cast<uint32_t>(pos) + whatLen))
        ++found;
    if (!found) return *this;
    const uint32_t delta = withLen - whatLen;
    const uint32_t need = used + delta * found;
    if (need > allocated) reallocate(need);

    uint32_t start = 0;
    int pos;
    while ((pos = find(what.text, start)) >= 0) {
        const uint32_t p = static_cast<uint32_t>(pos);
        // Tail after the match, terminator included, moves up by delta.
        std::memmove(text + p + withLen, text + p + whatLen, used - p - whatLen);
        std::memcpy(text + p, with.text, withLen);
        used += delta;
        start = p + withLen;
    }
    return *this;
}

string& string::replace(char what, char with) {
    if (!what || !with) return *this;
    for (uint32_t i = 0; i + 1 < used; ++i)
        if (text[i] == what) text[i] = with;
    return *this;
}

string& string::make_lower() {
    for (uint32_t i = 0; i + 1 < used; ++i)
        if (text[i] >= 'A' && text[i] <= 'Z') text[i] = static_cast<char>(text[i] - 'A' + 'a');
    return *this;
}

void string::reserve(uint32_t count) {
    if (count <= allocated) return;
    reallocate(count);
}

void string::reallocate(uint32_t count) {
    if (count < 1) count = 1;
    char* block = allocator.allocate(count);
    const uint32_t keep = used < count ? used : count;
    std::memcpy(block, text, keep);
    allocator.deallocate(text);
    text = block;
    allocated = count;
    if (used > count) used = count;
    text[used - 1] = 0;
}

}  // namespace qz
