#pragma once

#include "basesys/ZuGBase.h"
#include "basesys/qzMap.h"

#include <cstring>

// The neutral face seen at every whole-degree head pose: for each key of
// yaw + 60 and pitch + 60 (three digits each) a row of the x and y of the
// tracker's 29 key points, on the scale where the face is 500 wide. The
// table is read once and owns its rows.
class ZuPosData : public ZuGBase {
public:
    static constexpr int kKeyLength = 6;
    static constexpr int kRowValues = 58;
    // The engine's table of the neutral face.
    static constexpr const char* kDefaultFile = "shader/animoji_pos/animoji_def_pos.pos";

    // Six key characters and a terminator; compared as bytes.
    struct Key {
        char c[kKeyLength + 1] = {};
        bool operator==(const Key& o) const { return std::memcmp(c, o.c, kKeyLength) == 0; }
        bool operator<(const Key& o) const { return std::memcmp(c, o.c, kKeyLength) < 0; }
    };

    explicit ZuPosData(ZuAppMain* app) : ZuGBase(app) {}
    ~ZuPosData() override { destroy(); }

    // Reads the table through the engine's files. A file that cannot be read
    // leaves the table empty: no pose will find a row.
    void init(const char* file);
    // Frees every row and empties the table.
    void destroy();

    // Parses size bytes of table text. Only lines ended by a line feed count,
    // a key seen again keeps its first row, and a malformed line is skipped.
    void _read(const char* text, int size);

    // The row of the key (six characters), or null.
    const int* getPos(const char* key) const;
    // The row for yaw and pitch as already offset by 60, or null.
    const int* getPos(int yaw, int pitch) const;
    int getRowCount() const { return static_cast<int>(rows.size()); }

    // Three characters and a terminator into out (4 bytes): v behind one "0"
    // for each of v < 100, v < 10, v < 0, cut to three. 5 gives "005", any
    // negative v "000".
    static void _intToChars(int v, char* out);

private:
    // Parses one line of length bytes into key and row; false when malformed.
    static bool parseLine(const char* line, int length, Key* key, int* row);

    qz::map<Key, int*> rows;
};
