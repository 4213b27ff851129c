#pragma once

#include "basesys/ZuGBase.h"
#include "basesys/qzMap.h"
#include "basesys/qzString.h"

// Hands out GL programs by key. Every cfgShader row gets a cell at init
// without any GL call; a program is compiled and linked on the first
// request for its key, on the GL thread, and kept until destroy().
//
// Failures never stop the engine: an unknown key or a failed compile gives
// 0 (the caller skips its draw) and the next request compiles again; a
// program that compiled but failed to link keeps its id and is not rebuilt.
// Compile and link errors are logged with the compiler's message.
class ZuShaderMgr : public ZuGBase {
public:
    struct ShaderCell {
        qz::string vsText;
        qz::string fsText;
        qz::string name;
        unsigned vsId = 0;
        unsigned fsId = 0;
        unsigned programId = 0; // 0 = not built
    };

    explicit ZuShaderMgr(ZuAppMain* app);
    ~ZuShaderMgr() override;

    void init() { loadAllShader(); }
    void destroy() { clearAllShader(); }

    void loadAllShader();
    // Deletes every program and cached shader; also the step after context loss.
    void clearAllShader();

    // The program of a key; 0 for an unknown key or a failed build. GL thread only.
    unsigned getProgramme(const qz::string& key);
    unsigned getProgramme(const char* key);

    // Exclusive-or with a repeating text key; applying it twice restores the
    // buffer. For scrambled shader files: built-in text needs no decoding.
    static void decoding(char* buffer, int length);

    // Registers a program outside the built-in table (tools, tests); an
    // existing key is kept and false returned.
    bool addShaderCell(const char* key, const char* vsText, const char* fsText);

    // Number of keys known (cells made by init).
    unsigned getCellCount() const { return cells.size(); }

private:
    unsigned loadShader(const qz::string& name, const qz::string& text, qz::map<qz::string, unsigned>& cache,
                        unsigned type);
    unsigned loadShaderFromCharStar(const char* text, const char* name, unsigned type);
    unsigned createProgram(unsigned vs, unsigned fs);

    // Builds the cell's program on first use.
    unsigned programOf(ShaderCell* cell);

    qz::map<qz::string, ShaderCell*> cells;
    qz::map<qz::string, unsigned> vertexShaders;
    qz::map<qz::string, unsigned> fragmentShaders;
};
