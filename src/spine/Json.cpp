#include "spine/Json.h"

#include "spine/spAllocator.h"
#include "spine/spMath.h"

#include <math.h>
#include <stdio.h>
#include <string.h>

namespace {

// Deeper documents are refused: the parser recurses per level and skeleton
// files nest about seven levels.
const int kMaxDepth = 128;

thread_local char t_error[160];

struct Parser {
    const char* begin;
    const char* p;
    const char* end;
    int depth;
    bool failed;
};

void fail(Parser* parser, const char* what) {
    if (parser->failed) return;
    parser->failed = true;
    if (parser->p >= parser->end)
        snprintf(t_error, sizeof(t_error), "%s: unexpected end of input at offset %d", what,
                 (int)(parser->end - parser->begin));
    else
        snprintf(t_error, sizeof(t_error), "%s at offset %d", what, (int)(parser->p - parser->begin));
}

void skipWhite(Parser* parser) {
    while (parser->p < parser->end) {
        char c = *parser->p;
        if (c != ' ' && c != '\t' && c != '\n' && c != '\r') break;
        parser->p++;
    }
}

bool match(Parser* parser, const char* word) {
    size_t length = strlen(word);
    if ((size_t)(parser->end - parser->p) < length || memcmp(parser->p, word, length) != 0) return false;
    parser->p += length;
    return true;
}

int hexValue(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

bool readHex4(Parser* parser, unsigned* out) {
    if (parser->end - parser->p < 4) return false;
    unsigned value = 0;
    for (int i = 0; i < 4; i++) {
        int digit = hexValue(parser->p[i]);
        if (digit < 0) return false;
        value = value * 16 + (unsigned)digit;
    }
    parser->p += 4;
    *out = value;
    return true;
}

char* putUtf8(char* out, unsigned code) {
    if (code < 0x80) {
        *out++ = (char)code;
    } else if (code < 0x800) {
        *out++ = (char)(0xC0 | (code >> 6));
        *out++ = (char)(0x80 | (code & 0x3F));
    } else if (code < 0x10000) {
        *out++ = (char)(0xE0 | (code >> 12));
        *out++ = (char)(0x80 | ((code >> 6) & 0x3F));
        *out++ = (char)(0x80 | (code & 0x3F));
    } else {
        *out++ = (char)(0xF0 | (code >> 18));
        *out++ = (char)(0x80 | ((code >> 12) & 0x3F));
        *out++ = (char)(0x80 | ((code >> 6) & 0x3F));
        *out++ = (char)(0x80 | (code & 0x3F));
    }
    return out;
}

// Reads a quoted string at p (which points at the opening quote). The decoded
// text is never longer than the quoted source, so the source span bounds the
// block.
char* parseString(Parser* parser) {
    parser->p++;
    const char* start = parser->p;
    const char* scan = start;
    while (scan < parser->end && *scan != '"') {
        if (*scan == '\\') scan++;
        scan++;
    }
    if (scan >= parser->end) {
        parser->p = parser->end;
        fail(parser, "Unterminated string");
        return nullptr;
    }
    char* text = SP_MALLOC(char, (scan - start) + 1);
    char* out = text;
    while (*parser->p != '"') {
        char c = *parser->p++;
        if (c != '\\') {
            *out++ = c;
            continue;
        }
        c = *parser->p++;
        switch (c) {
        case '"': *out++ = '"'; break;
        case '\\': *out++ = '\\'; break;
        case '/': *out++ = '/'; break;
        case 'b': *out++ = '\b'; break;
        case 'f': *out++ = '\f'; break;
        case 'n': *out++ = '\n'; break;
        case 'r': *out++ = '\r'; break;
        case 't': *out++ = '\t'; break;
        case 'u': {
            unsigned code;
            if (!readHex4(parser, &code)) {
                fail(parser, "Bad \\u escape");
                SP_FREE(text);
                return nullptr;
            }
            if (code >= 0xD800 && code < 0xDC00 && parser->end - parser->p >= 6 && parser->p[0] == '\\' &&
                parser->p[1] == 'u') {
                const char* save = parser->p;
                parser->p += 2;
                unsigned low;
                if (readHex4(parser, &low) && low >= 0xDC00 && low < 0xE000)
                    code = 0x10000 + ((code - 0xD800) << 10) + (low - 0xDC00);
                else
                    parser->p = save;
            }
            out = putUtf8(out, code);
            break;
        }
        default:
            parser->p--;
            fail(parser, "Bad escape in string");
            SP_FREE(text);
            return nullptr;
        }
    }
    parser->p++;
    *out = 0;
    return text;
}

bool parseNumber(Parser* parser, Json* item) {
    const char* p = parser->p;
    const char* end = parser->end;
    bool negative = false;
    if (p < end && *p == '-') {
        negative = true;
        p++;
    }
    if (p >= end || *p < '0' || *p > '9') {
        fail(parser, "Bad number");
        return false;
    }
    // Mantissa digits beyond 19 only shift the decimal exponent.
    double mantissa = 0;
    int digits = 0, exponent = 0;
    while (p < end && *p >= '0' && *p <= '9') {
        if (digits < 19) {
            mantissa = mantissa * 10 + (*p - '0');
            if (mantissa != 0) digits++;
        } else {
            exponent++;
        }
        p++;
    }
    if (p < end && *p == '.') {
        p++;
        if (p >= end || *p < '0' || *p > '9') {
            parser->p = p;
            fail(parser, "Bad fraction");
            return false;
        }
        while (p < end && *p >= '0' && *p <= '9') {
            if (digits < 19) {
                mantissa = mantissa * 10 + (*p - '0');
                if (mantissa != 0) digits++;
                exponent--;
            }
            p++;
        }
    }
    if (p < end && (*p == 'e' || *p == 'E')) {
        p++;
        bool negativeExponent = false;
        if (p < end && (*p == '+' || *p == '-')) negativeExponent = *p++ == '-';
        if (p >= end || *p < '0' || *p > '9') {
            parser->p = p;
            fail(parser, "Bad exponent");
            return false;
        }
        int value = 0;
        while (p < end && *p >= '0' && *p <= '9') {
            if (value < 100000) value = value * 10 + (*p - '0');
            p++;
        }
        exponent += negativeExponent ? -value : value;
    }
    if (exponent > 400) exponent = 400;
    if (exponent < -400) exponent = -400;
    double number = mantissa;
    if (exponent != 0 && mantissa != 0) {
        // Two steps keep 10^-400 and the like from underflowing to zero early.
        if (exponent < -300) {
            number *= pow(10.0, -300);
            exponent += 300;
        }
        number *= pow(10.0, exponent);
    }
    if (negative) number = -number;
    item->type = Json_Number;
    item->valueFloat = (float)number;
    item->valueInt = spFloatToInt(number);
    parser->p = p;
    return true;
}

bool parseValue(Parser* parser, Json* item);

bool parseArray(Parser* parser, Json* item) {
    item->type = Json_Array;
    parser->p++;
    skipWhite(parser);
    if (parser->p < parser->end && *parser->p == ']') {
        parser->p++;
        return true;
    }
    Json* last = nullptr;
    for (;;) {
        Json* child = SP_NEW(Json);
        if (last) last->next = child;
        else item->child = child;
        last = child;
        item->size++;
        skipWhite(parser);
        if (!parseValue(parser, child)) return false;
        skipWhite(parser);
        if (parser->p >= parser->end) break;
        if (*parser->p == ',') {
            parser->p++;
            continue;
        }
        if (*parser->p == ']') {
            parser->p++;
            return true;
        }
        break;
    }
    fail(parser, "Expected ',' or ']' in array");
    return false;
}

bool parseObject(Parser* parser, Json* item) {
    item->type = Json_Object;
    parser->p++;
    skipWhite(parser);
    if (parser->p < parser->end && *parser->p == '}') {
        parser->p++;
        return true;
    }
    Json* last = nullptr;
    for (;;) {
        skipWhite(parser);
        if (parser->p >= parser->end || *parser->p != '"') {
            fail(parser, "Expected member name");
            return false;
        }
        Json* child = SP_NEW(Json);
        if (last) last->next = child;
        else item->child = child;
        last = child;
        item->size++;
        child->name = parseString(parser);
        if (!child->name) return false;
        skipWhite(parser);
        if (parser->p >= parser->end || *parser->p != ':') {
            fail(parser, "Expected ':' after member name");
            return false;
        }
        parser->p++;
        skipWhite(parser);
        if (!parseValue(parser, child)) return false;
        skipWhite(parser);
        if (parser->p >= parser->end) break;
        if (*parser->p == ',') {
            parser->p++;
            continue;
        }
        if (*parser->p == '}') {
            parser->p++;
            return true;
        }
        break;
    }
    fail(parser, "Expected ',' or '}' in object");
    return false;
}

bool parseValue(Parser* parser, Json* item) {
    if (parser->p >= parser->end) {
        fail(parser, "Expected a value");
        return false;
    }
    char c = *parser->p;
    if (c == '"') {
        item->type = Json_String;
        item->valueString = parseString(parser);
        return item->valueString != nullptr;
    }
    if (c == '-' || (c >= '0' && c <= '9')) return parseNumber(parser, item);
    if (c == '[' || c == '{') {
        if (++parser->depth > kMaxDepth) {
            fail(parser, "Nesting too deep");
            return false;
        }
        bool ok = c == '[' ? parseArray(parser, item) : parseObject(parser, item);
        parser->depth--;
        return ok;
    }
    if (match(parser, "true")) {
        item->type = Json_True;
        item->valueInt = 1;
        item->valueFloat = 1;
        return true;
    }
    if (match(parser, "false")) {
        item->type = Json_False;
        return true;
    }
    if (match(parser, "null")) {
        item->type = Json_NULL;
        return true;
    }
    fail(parser, "Unexpected character");
    return false;
}

} // namespace

Json* Json_createWithLength(const char* value, int length) {
    t_error[0] = 0;
    if (!value || length < 0) {
        snprintf(t_error, sizeof(t_error), "No text");
        return nullptr;
    }
    Parser parser = {value, value, value + length, 0, false};
    if (parser.end - parser.p >= 3 && memcmp(parser.p, "\xEF\xBB\xBF", 3) == 0) parser.p += 3;
    Json* root = SP_NEW(Json);
    skipWhite(&parser);
    bool ok = parseValue(&parser, root);
    if (ok) {
        skipWhite(&parser);
        if (parser.p < parser.end) {
            fail(&parser, "Unexpected text after the document");
            ok = false;
        }
    }
    if (!ok) {
        Json_dispose(root);
        return nullptr;
    }
    return root;
}

Json* Json_create(const char* value) {
    if (!value) return Json_createWithLength(nullptr, -1);
    size_t length = strlen(value);
    if (length > (size_t)0x7fffffff) {
        snprintf(t_error, sizeof(t_error), "Text too long");
        return nullptr;
    }
    return Json_createWithLength(value, (int)length);
}

void Json_dispose(Json* json) {
    while (json) {
        Json* next = json->next;
        if (json->child) Json_dispose(json->child);
        SP_FREE(json->valueString);
        SP_FREE(json->name);
        SP_FREE(json);
        json = next;
    }
}

Json* Json_getItem(Json* object, const char* name) {
    if (!object || !name) return nullptr;
    for (Json* child = object->child; child; child = child->next) {
        if (!child->name) continue;
        const char* a = child->name;
        const char* b = name;
        while (*a && *b) {
            char x = *a, y = *b;
            if (x >= 'A' && x <= 'Z') x = (char)(x - 'A' + 'a');
            if (y >= 'A' && y <= 'Z') y = (char)(y - 'A' + 'a');
            if (x != y) break;
            a++;
            b++;
        }
        if (!*a && !*b) return child;
    }
    return nullptr;
}

const char* Json_getString(Json* object, const char* name, const char* defaultValue) {
    Json* item = Json_getItem(object, name);
    return item && item->type == Json_String ? item->valueString : defaultValue;
}

float Json_getFloat(Json* object, const char* name, float defaultValue) {
    Json* item = Json_getItem(object, name);
    if (!item) return defaultValue;
    if (item->type == Json_Number || item->type == Json_True || item->type == Json_False) return item->valueFloat;
    return defaultValue;
}

int Json_getInt(Json* object, const char* name, int defaultValue) {
    Json* item = Json_getItem(object, name);
    if (!item) return defaultValue;
    if (item->type == Json_Number || item->type == Json_True || item->type == Json_False) return item->valueInt;
    return defaultValue;
}

const char* Json_getError(void) {
    return t_error;
}
