#include "logicsys/Animate2D/ZuBMFontConfiguration.h"

#include "basesys/ZuGBase.h"
#include "basesys/DataChunk.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuFileMgr.h"
#include "basesys/ZuGlobalMgr.h"
#include "platform/ZuLog.h"

#include <cstdio>
#include <cstring>

namespace {

const size_t kMaxLine = 512;

bool startsWith(const char* line, const char* prefix) { return strncmp(line, prefix, strlen(prefix)) == 0; }

// Reads the value after key, searched from *from; moves *from past the key.
// False when the key is missing or its value unreadable.
template <class T>
bool readAfter(const char*& from, const char* key, const char* format, T* value) {
    const char* at = strstr(from, key);
    if (!at) return false;
    from = at + strlen(key);
    return sscanf(from, format, value) == 1;
}

} // namespace

ZuBMFontConfiguration* ZuBMFontConfiguration::create(ZuAppMain* app, const char* path) {
    ZuFileMgr* files = ZuGBase::fileMgrOf(app);
    DataChunk chunk;
    if (!path || !files || !files->loadFileContentStr(&chunk, path)) {
        QZLOGW("bitmap font '%s': file not found", path ? path : "");
        return nullptr;
    }
    auto* config = new ZuBMFontConfiguration();
    if (!config->parseConfigFile(chunk.buffer, path)) {
        QZLOGW("bitmap font '%s': no \"char\" line; no font", path);
        config->release();
        return nullptr;
    }
    return config;
}

bool ZuBMFontConfiguration::parseConfigFile(const char* text, const char* path) {
    if (!text) return false;
    char line[kMaxLine + 1];
    int number = 0;
    for (const char* at = text; *at;) {
        const char* end = strchr(at, '\n');
        const size_t length = end ? static_cast<size_t>(end - at) : strlen(at);
        // Longer lines are read up to the limit; the rest of them is dropped.
        const size_t kept = length < kMaxLine ? length : kMaxLine;
        memcpy(line, at, kept);
        line[kept] = '\0';
        parseLine(line, ++number, path);
        at += length;
        if (*at == '\n') ++at;
    }
    return charCount > 0;
}

void ZuBMFontConfiguration::parseLine(const char* line, int number, const char* path) {
    const char* from = line;
    if (startsWith(line, "info face")) {
        readAfter(from, "size=", "%d", &defFontSize);
        from = line;
        const char* at = strstr(line, "padding=");
        if (at && sscanf(at + 8, "%d,%d,%d,%d", &padding[0], &padding[1], &padding[2], &padding[3]) != 4)
            QZLOGW("bitmap font '%s', line %d: \"padding\" unreadable", path, number);
    } else if (startsWith(line, "common lineHeight")) {
        readAfter(from, "lineHeight=", "%d", &commonHeight);
    } else if (startsWith(line, "page id")) {
        const char* open = strchr(line, '"');
        const char* close = open ? strchr(open + 1, '"') : nullptr;
        if (!close) {
            QZLOGW("bitmap font '%s', line %d: page without a quoted file name", path, number);
            return;
        }
        qz::string dir(path ? path : "");
        const int slash = dir.findLast('/');
        atlasName = slash >= 0 ? qz::string(dir.c_str(), static_cast<uint32_t>(slash + 1)) : qz::string("");
        atlasName += qz::string(open + 1, static_cast<uint32_t>(close - open - 1));
    } else if (startsWith(line, "chars c")) {
        return;
    } else if (startsWith(line, "char")) {
        parseChar(line, number, path);
    } else if (startsWith(line, "kerning first")) {
        int first = 0, second = 0, amount = 0;
        if (!readAfter(from, "first=", "%d", &first) || !readAfter(from, "second=", "%d", &second) ||
            !readAfter(from, "amount=", "%d", &amount)) {
            QZLOGW("bitmap font '%s', line %d: kerning pair cut short; skipped", path, number);
            return;
        }
        kerning.set((first << 16) | (second & 0xffff), amount);
    }
}

void ZuBMFontConfiguration::parseChar(const char* line, int number, const char* path) {
    _BMFontDef def;
    const char* from = line;
    if (!readAfter(from, "id=", "%u", &def.charID)) {
        QZLOGW("bitmap font '%s', line %d: \"char\" without an id; skipped", path, number);
        return;
    }
    // Keys follow one another; a line cut short keeps zeros for the rest.
    const bool whole = readAfter(from, "x=", "%f", &def.x) && readAfter(from, "y=", "%f", &def.y) &&
                       readAfter(from, "width=", "%f", &def.width) &&
                       readAfter(from, "height=", "%f", &def.height) &&
                       readAfter(from, "xoffset=", "%hd", &def.xOffset) &&
                       readAfter(from, "yoffset=", "%hd", &def.yOffset) &&
                       readAfter(from, "xadvance=", "%hd", &def.xAdvance);
    if (!whole) QZLOGW("bitmap font '%s', line %d: glyph %u cut short; missing values are 0", path, number, def.charID);
    defs.set(static_cast<int>(def.charID), def);
    charCount++;
}

const _BMFontDef* ZuBMFontConfiguration::getBMFontDef(int id) const {
    auto* node = defs.find(id);
    return node ? &node->getValue() : nullptr;
}

int ZuBMFontConfiguration::getKerning(int first, int second) const {
    auto* node = kerning.find((first << 16) | (second & 0xffff));
    return node ? node->getValue() : 0;
}
