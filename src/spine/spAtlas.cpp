#include "spine/spAtlas.h"

#include "platform/ZuLog.h"
#include "spine/ZuSpineHooks.h"
#include "spine/spAllocator.h"

#include <string.h>

namespace {

struct Str {
    const char* begin;
    const char* end;
};

struct Reader {
    const char* cur;
    const char* end;
    int line;
};

bool isSpace(char c) { return c == ' ' || c == '\t' || c == '\r'; }

Str trim(Str s) {
    while (s.begin < s.end && isSpace(*s.begin)) s.begin++;
    while (s.end > s.begin && isSpace(s.end[-1])) s.end--;
    return s;
}

bool readLine(Reader* reader, Str* line) {
    if (reader->cur >= reader->end) return false;
    line->begin = reader->cur;
    while (reader->cur < reader->end && *reader->cur != '\n') reader->cur++;
    line->end = reader->cur;
    if (reader->cur < reader->end) reader->cur++;
    reader->line++;
    *line = trim(*line);
    return true;
}

const char* findChar(Str s, char c) {
    for (const char* p = s.begin; p < s.end; p++)
        if (*p == c) return p;
    return nullptr;
}

// "name: value". False when the line is missing or has no ':'.
bool readValue(Reader* reader, Str* value) {
    Str line;
    if (!readLine(reader, &line)) return false;
    const char* colon = findChar(line, ':');
    if (!colon) return false;
    *value = trim(Str{colon + 1, line.end});
    return true;
}

// "name: a, b, c, d": split at the first ':' and then at up to three ','.
// Returns the number of fields, 0 when the line is missing or has no ':'.
int readTuple(Reader* reader, Str tuple[4]) {
    Str line;
    if (!readLine(reader, &line)) return 0;
    const char* colon = findChar(line, ':');
    if (!colon) return 0;
    Str rest = {colon + 1, line.end};
    int i = 0;
    for (; i < 3; i++) {
        const char* comma = findChar(rest, ',');
        if (!comma) break;
        tuple[i] = trim(Str{rest.begin, comma});
        rest.begin = comma + 1;
    }
    tuple[i] = trim(rest);
    return i + 1;
}

bool equals(Str s, const char* text) {
    size_t length = strlen(text);
    return (size_t)(s.end - s.begin) == length && memcmp(s.begin, text, length) == 0;
}

// Decimal integer with saturation; anything after the digits is ignored, as
// atoi would.
int toInt(Str s) {
    const char* p = s.begin;
    bool negative = false;
    if (p < s.end && (*p == '-' || *p == '+')) negative = *p++ == '-';
    long long value = 0;
    while (p < s.end && *p >= '0' && *p <= '9') {
        if (value < 10000000000LL) value = value * 10 + (*p - '0');
        p++;
    }
    if (negative) value = -value;
    if (value > 2147483647LL) return 2147483647;
    if (value < -2147483647LL) return -2147483647;
    return (int)value;
}

// A token matches the last table entry that starts with it (compared over the
// token's own length); 0 when none does.
int indexOf(const char* const* table, int count, Str token) {
    size_t length = (size_t)(token.end - token.begin);
    for (int i = count - 1; i >= 1; i--) {
        if (strlen(table[i]) >= length && memcmp(table[i], token.begin, length) == 0) return i;
    }
    return 0;
}

const char* const kFormatNames[] = {"",       "Alpha",     "Intensity", "LuminanceAlpha",
                                    "RGB565", "RGBA4444",  "RGB888",    "RGBA8888"};
const char* const kFilterNames[] = {"",       "Nearest",              "Linear",
                                    "MipMap", "MipMapNearestNearest", "MipMapLinearNearest",
                                    "MipMapNearestLinear", "MipMapLinearLinear"};

// Size (optional), format, filter and repeat lines of a page. Returns what
// is wrong, or null.
const char* readPageHeader(Reader* reader, spAtlasPage* page) {
    Str tuple[4];
    int count = readTuple(reader, tuple);
    if (count == 2) {
        page->width = toInt(tuple[0]);
        page->height = toInt(tuple[1]);
        count = readTuple(reader, tuple);
    }
    if (count == 0) return "missing format line";
    page->format = (spAtlasFormat)indexOf(kFormatNames, 8, tuple[0]);

    if (readTuple(reader, tuple) != 2) return "bad filter line";
    page->minFilter = (spAtlasFilter)indexOf(kFilterNames, 8, tuple[0]);
    page->magFilter = (spAtlasFilter)indexOf(kFilterNames, 8, tuple[1]);

    Str value;
    if (!readValue(reader, &value)) return "bad repeat line";
    if (equals(value, "x")) page->uWrap = SP_ATLAS_REPEAT;
    else if (equals(value, "y")) page->vWrap = SP_ATLAS_REPEAT;
    else if (equals(value, "xy")) page->uWrap = page->vWrap = SP_ATLAS_REPEAT;
    return nullptr;
}

// Sums of file values may exceed int, hence the wide argument.
float ratio(long long value, int size) { return size > 0 ? (float)((double)value / size) : 0.0f; }

void disposeRegion(spAtlasRegion* region) {
    SP_FREE(region->name);
    SP_FREE(region->splits);
    SP_FREE(region->pads);
    SP_FREE(region);
}

spAtlas* abortAtlas(spAtlas* atlas, const Reader* reader, const char* what) {
    QZLOGE("Atlas: %s at line %d", what, reader->line);
    spAtlas_dispose(atlas);
    return nullptr;
}

} // namespace

spAtlas* spAtlas_create(const char* data, int length, const char* dir, void* rendererObject) {
    if (!data || length < 0) return nullptr;
    spAtlas* atlas = SP_NEW(spAtlas);
    atlas->rendererObject = rendererObject;

    size_t dirLength = dir ? strlen(dir) : 0;
    while (dirLength > 0 && (dir[dirLength - 1] == '/' || dir[dirLength - 1] == '\\')) dirLength--;

    Reader reader = {data, data + length, 0};
    spAtlasPage* page = nullptr;
    spAtlasPage* lastPage = nullptr;
    spAtlasRegion* lastRegion = nullptr;
    Str line, tuple[4];
    while (readLine(&reader, &line)) {
        if (line.begin == line.end) {
            page = nullptr;
            continue;
        }
        if (!page) {
            // The page joins the atlas only once its texture exists, so that
            // every page the atlas disposes had its texture created.
            spAtlasPage* fresh = SP_NEW(spAtlasPage);
            fresh->atlas = atlas;
            fresh->name = _spStrDupRange(line.begin, line.end);
            fresh->uWrap = fresh->vWrap = SP_ATLAS_CLAMPTOEDGE;
            const char* problem = readPageHeader(&reader, fresh);
            if (problem) {
                SP_FREE(fresh->name);
                SP_FREE(fresh);
                return abortAtlas(atlas, &reader, problem);
            }
            page = fresh;
            if (lastPage) lastPage->next = page;
            else atlas->pages = page;
            lastPage = page;

            // The page file sits beside the atlas.
            size_t nameLength = strlen(page->name);
            char* path = SP_MALLOC(char, dirLength + nameLength + 2);
            size_t at = 0;
            if (dirLength) {
                memcpy(path, dir, dirLength);
                path[dirLength] = '/';
                at = dirLength + 1;
            }
            memcpy(path + at, page->name, nameLength + 1);
            _spAtlasPage_createTexture(rendererObject, page, path);
            SP_FREE(path);
            continue;
        }

        spAtlasRegion* region = SP_NEW(spAtlasRegion);
        region->page = page;
        region->name = _spStrDupRange(line.begin, line.end);
        if (lastRegion) lastRegion->next = region;
        else atlas->regions = region;
        lastRegion = region;

        Str value;
        if (!readValue(&reader, &value)) return abortAtlas(atlas, &reader, "bad rotate line");
        region->rotate = equals(value, "true");

        if (readTuple(&reader, tuple) != 2) return abortAtlas(atlas, &reader, "bad xy line");
        region->x = toInt(tuple[0]);
        region->y = toInt(tuple[1]);

        if (readTuple(&reader, tuple) != 2) return abortAtlas(atlas, &reader, "bad size line");
        region->width = toInt(tuple[0]);
        region->height = toInt(tuple[1]);

        region->u = ratio(region->x, page->width);
        region->v = ratio(region->y, page->height);
        if (region->rotate) {
            region->u2 = ratio((long long)region->x + region->height, page->width);
            region->v2 = ratio((long long)region->y + region->width, page->height);
        } else {
            region->u2 = ratio((long long)region->x + region->width, page->width);
            region->v2 = ratio((long long)region->y + region->height, page->height);
        }

        int count = readTuple(&reader, tuple);
        if (count == 4) {
            region->splits = SP_MALLOC(int, 4);
            for (int i = 0; i < 4; i++) region->splits[i] = toInt(tuple[i]);
            count = readTuple(&reader, tuple);
            if (count == 4) {
                region->pads = SP_MALLOC(int, 4);
                for (int i = 0; i < 4; i++) region->pads[i] = toInt(tuple[i]);
                count = readTuple(&reader, tuple);
            }
        }
        if (count != 2) return abortAtlas(atlas, &reader, "bad orig line");
        region->originalWidth = toInt(tuple[0]);
        region->originalHeight = toInt(tuple[1]);

        if (readTuple(&reader, tuple) != 2) return abortAtlas(atlas, &reader, "bad offset line");
        region->offsetX = toInt(tuple[0]);
        region->offsetY = toInt(tuple[1]);

        if (!readValue(&reader, &value)) return abortAtlas(atlas, &reader, "bad index line");
        region->index = toInt(value);
    }
    return atlas;
}

spAtlas* spAtlas_createFromFile(const char* path, void* rendererObject) {
    if (!path) return nullptr;
    const char* slash = strrchr(path, '/');
    const char* backslash = strrchr(path, '\\');
    if (backslash > slash) slash = backslash;
    char* dir = slash ? _spStrDupRange(path, slash) : _spStrDup("");

    int length = 0;
    char* data = _spUtil_readFile(rendererObject, path, &length);
    spAtlas* atlas = nullptr;
    if (data) atlas = spAtlas_create(data, length, dir, rendererObject);
    else QZLOGE("Atlas: unable to read %s", path);
    SP_FREE(data);
    SP_FREE(dir);
    return atlas;
}

void spAtlas_dispose(spAtlas* atlas) {
    if (!atlas) return;
    spAtlasPage* page = atlas->pages;
    while (page) {
        spAtlasPage* next = page->next;
        _spAtlasPage_disposeTexture(page);
        SP_FREE(page->name);
        SP_FREE(page);
        page = next;
    }
    spAtlasRegion* region = atlas->regions;
    while (region) {
        spAtlasRegion* next = region->next;
        disposeRegion(region);
        region = next;
    }
    SP_FREE(atlas);
}

spAtlasRegion* spAtlas_findRegion(const spAtlas* atlas, const char* name) {
    if (!atlas || !name) return nullptr;
    for (spAtlasRegion* region = atlas->regions; region; region = region->next)
        if (strcmp(region->name, name) == 0) return region;
    return nullptr;
}
