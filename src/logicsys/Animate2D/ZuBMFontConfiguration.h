#pragma once

#include "basesys/ZuRefObject.h"
#include "basesys/qzMap.h"
#include "basesys/qzString.h"

#include <cstdint>

class ZuAppMain;

// One glyph of a bitmap font: where it lies on the atlas and how it sits on
// the line.
struct _BMFontDef {
    unsigned charID = 0;
    float x = 0.0f, y = 0.0f, width = 0.0f, height = 0.0f;
    int16_t xOffset = 0, yOffset = 0, xAdvance = 0;
};

// A bitmap-font description read from its text file: the glyphs, the atlas
// page, the line height, padding and kerning pairs.
class ZuBMFontConfiguration : public ZuRefObject {
public:
    // Null (logged) when the file can't be read or describes no glyph.
    static ZuBMFontConfiguration* create(ZuAppMain* app, const char* path);
    // Reads the text of a font file found at path (for the atlas's folder).
    // False when no glyph was read.
    bool parseConfigFile(const char* text, const char* path);

    const qz::string& getAtlasName() const { return atlasName; }
    int getCommonHeight() const { return commonHeight; }
    int getDefFontSize() const { return defFontSize; }
    const _BMFontDef* getBMFontDef(int id) const;
    bool isExist(int id) const { return getBMFontDef(id) != nullptr; }
    int getKerning(int first, int second) const;
    int getPadding(int side) const { return padding[side & 3]; } // top, right, bottom, left
    int getCharCount() const { return charCount; }

private:
    void parseLine(const char* line, int number, const char* path);
    void parseChar(const char* line, int number, const char* path);

    qz::map<int, _BMFontDef> defs;
    qz::map<int, int> kerning;
    qz::string atlasName;
    int commonHeight = 0;
    int padding[4] = {0, 0, 0, 0};
    int defFontSize = 0;
    int charCount = 0;
};
