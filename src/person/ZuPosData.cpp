#include "person/ZuPosData.h"

#include "basesys/DataChunk.h"
#include "basesys/ZuAppMain.h"
#include "basesys/ZuFileMgr.h"
#include "basesys/ZuGlobalMgr.h"
#include "platform/ZuLog.h"

#include <cstdio>

void ZuPosData::init(const char* file) {
    destroy();
    ZuFileMgr* files = fileMgr();
    if (!files || !file) return;
    DataChunk chunk;
    if (!files->loadFileContentStr(&chunk, file) || !chunk.getBuffer() || chunk.getSize() < 1) {
        QZLOGD("animoji: no position table \"%s\"", file ? file : "");
        return;
    }
    // The chunk holds one terminating byte more than the file.
    _read(chunk.getBuffer(), chunk.getSize() - 1);
}

void ZuPosData::destroy() {
    for (qz::map<Key, int*>::Iterator it(rows.getRoot()); !it.atEnd(); ++it) delete[] it->getValue();
    rows.clear();
}

void ZuPosData::_read(const char* text, int size) {
    if (!text || size <= 0) return;
    int skipped = 0;
    int start = 0;
    while (start < size) {
        const void* found = std::memchr(text + start, '\n', static_cast<size_t>(size - start));
        // A last line without its line feed may be cut short: not read.
        if (!found) break;
        const int end = static_cast<int>(static_cast<const char*>(found) - text);
        Key key;
        int row[kRowValues];
        if (parseLine(text + start, end - start, &key, row)) {
            if (!rows.find(key)) {
                int* kept = new int[kRowValues];
                std::memcpy(kept, row, sizeof(row));
                rows.insert(key, kept);
            }
        } else if (end > start) {
            ++skipped;
        }
        start = end + 1;
    }
    if (skipped > 0) QZLOGW("animoji: %d malformed position table lines skipped", skipped);
}

bool ZuPosData::parseLine(const char* line, int length, Key* key, int* row) {
    if (length < kKeyLength + 2) return false;
    for (int i = 0; i < kKeyLength; ++i) {
        if (line[i] < '0' || line[i] > '9') return false;
        key->c[i] = line[i];
    }
    key->c[kKeyLength] = 0;
    int at = kKeyLength + 1; // the separator is not looked at
    for (int v = 0; v < kRowValues; ++v) {
        if (v > 0) {
            if (at >= length || line[at] != ' ') return false;
            ++at;
        }
        bool negative = false;
        if (at < length && line[at] == '-') {
            negative = true;
            ++at;
        }
        // Coordinates are a few thousand at most; more digits is no table of ours.
        int digits = 0;
        long value = 0;
        while (at < length && line[at] >= '0' && line[at] <= '9') {
            if (++digits > 9) return false;
            value = value * 10 + (line[at] - '0');
            ++at;
        }
        if (digits == 0) return false;
        row[v] = static_cast<int>(negative ? -value : value);
    }
    // Nothing may follow the last value.
    return at == length;
}

const int* ZuPosData::getPos(const char* key) const {
    if (!key) return nullptr;
    Key k;
    for (int i = 0; i < kKeyLength; ++i) {
        if (!key[i]) return nullptr;
        k.c[i] = key[i];
    }
    auto* node = rows.find(k);
    return node ? node->getValue() : nullptr;
}

const int* ZuPosData::getPos(int yaw, int pitch) const {
    char key[kKeyLength + 1];
    _intToChars(yaw, key);
    _intToChars(pitch, key + 3);
    return getPos(key);
}

void ZuPosData::_intToChars(int v, char* out) {
    char text[24];
    int n = 0;
    if (v < 100) text[n++] = '0';
    if (v < 10) text[n++] = '0';
    if (v < 0) text[n++] = '0';
    std::snprintf(text + n, sizeof(text) - static_cast<size_t>(n), "%d", v);
    std::memcpy(out, text, 3);
    out[3] = 0;
}
