#include "render/shader/ZuShaderMgr.h"

#include "platform/ZuLog.h"
#include "render/shader/cfgShader.h"

#include <GLES3/gl3.h>

#include <initializer_list>
#include <vector>

namespace {

// One attribute layout for every program. Names share a location where no
// vertex format carries both.
struct AttributeBinding {
    unsigned location;
    const char* name;
};

const AttributeBinding kAttributes[] = {
    {0, "aPosition"},
    {1, "aNormal"},
    {2, "aTexcoord2"}, {2, "aMorphT1"},
    {3, "aTexcoord3"}, {3, "aBoneID"},
    {4, "aColor"}, {4, "aBoneWeight"},
    {5, "aColor1"}, {5, "aMorphT2"},
    {6, "aTexcoord0"},
    {7, "aTexcoord1"}, {7, "aMorphT3"},
    {8, "aMorphT4"},
    {9, "aMorphT5"},
    {10, "aMorphT6"},
    {11, "aMorphT7"},
    {12, "aMorphT8"},
    {13, "aMorphT9"},
    {14, "aMorphT10"},
};

const char kDecodeKey[] = "7A1D93C2-5E08-4B6F-A3D4-2C9F60E1B758";
const int kDecodeKeyLength = 36;
static_assert(sizeof(kDecodeKey) - 1 == kDecodeKeyLength, "decode key is 36 characters");

} // namespace

ZuShaderMgr::ZuShaderMgr(ZuAppMain* app) : ZuGBase(app) {}

ZuShaderMgr::~ZuShaderMgr() {
    // GL objects are left to destroy(), which runs on the GL thread; here
    // only the CPU side goes.
    for (auto it = qz::map<qz::string, ShaderCell*>::Iterator(cells.getRoot()); !it.atEnd(); ++it)
        delete it->getValue();
    cells.clear();
}

void ZuShaderMgr::loadAllShader() {
    QZLOGD("load shader begin\n");
    const auto& table = cfgShader::table();
    for (auto it = qz::map<qz::string, cfgShader::Sources>::Iterator(table.getRoot()); !it.atEnd(); ++it) {
        if (cells.find(it->getKey())) continue;
        ShaderCell* cell = new ShaderCell();
        cell->name = it->getKey();
        cell->vsText = it->getValue().vs;
        cell->fsText = it->getValue().fs;
        cells.insert(cell->name, cell);
    }
    QZLOGD("load shader end\n");
}

bool ZuShaderMgr::addShaderCell(const char* key, const char* vsText, const char* fsText) {
    if (!key || !*key || !vsText || !fsText) {
        QZLOGW("ZuShaderMgr::addShaderCell: key and both sources are needed");
        return false;
    }
    qz::string name(key);
    if (cells.find(name)) return false;
    ShaderCell* cell = new ShaderCell();
    cell->name = name;
    cell->vsText = vsText;
    cell->fsText = fsText;
    cells.insert(name, cell);
    return true;
}

void ZuShaderMgr::clearAllShader() {
    for (auto it = qz::map<qz::string, ShaderCell*>::Iterator(cells.getRoot()); !it.atEnd(); ++it) {
        ShaderCell* cell = it->getValue();
        if (cell->programId) glDeleteProgram(cell->programId);
        delete cell;
    }
    for (auto* cache : {&vertexShaders, &fragmentShaders}) {
        for (auto it = qz::map<qz::string, unsigned>::Iterator(cache->getRoot()); !it.atEnd(); ++it)
            if (it->getValue()) glDeleteShader(it->getValue());
        cache->clear();
    }
    cells.clear();
}

unsigned ZuShaderMgr::getProgramme(const char* key) {
    if (!key) return 0;
    auto* node = cells.find(key);
    return node ? programOf(node->getValue()) : 0;
}

unsigned ZuShaderMgr::getProgramme(const qz::string& key) {
    auto* node = cells.find(key);
    return node ? programOf(node->getValue()) : 0;
}

unsigned ZuShaderMgr::programOf(ShaderCell* cell) {
    if (cell->programId == 0) {
        cell->vsId = loadShader(cell->name, cell->vsText, vertexShaders, GL_VERTEX_SHADER);
        cell->fsId = loadShader(cell->name, cell->fsText, fragmentShaders, GL_FRAGMENT_SHADER);
        // A failed compile leaves the key unbuilt, so the next request tries
        // again; the stage that did compile stays cached.
        if (cell->vsId && cell->fsId) cell->programId = createProgram(cell->vsId, cell->fsId);
        if (cell->programId) {
            QZLOGD("shader success: create program %s(%u) vs:(%u) fs:(%u) sucess\n", cell->name.c_str(),
                   cell->programId, cell->vsId, cell->fsId);
        } else {
            QZLOGE("shader error:create program %s !\n", cell->name.c_str());
        }
    }
    return cell->programId;
}

unsigned ZuShaderMgr::loadShader(const qz::string& name, const qz::string& text,
                                 qz::map<qz::string, unsigned>& cache, unsigned type) {
    if (auto* hit = cache.find(name)) return hit->getValue();
    unsigned id = loadShaderFromCharStar(text.c_str(), name.c_str(), type);
    if (id) cache.insert(name, id);
    return id;
}

unsigned ZuShaderMgr::loadShaderFromCharStar(const char* text, const char* name, unsigned type) {
    GLuint shader = glCreateShader(type);
    if (!shader) {
        QZLOGE("shader error in program: %s\n", name);
        QZLOGE("shader error: \n glCreateShader failed (0x%x)", glGetError());
        return 0;
    }
    glShaderSource(shader, 1, &text, nullptr);
    glCompileShader(shader);
    GLint compiled = GL_FALSE;
    glGetShaderiv(shader, GL_COMPILE_STATUS, &compiled);
    if (compiled) return shader;

    QZLOGE("shader error in program: %s\n", name);
    GLint length = 0;
    glGetShaderiv(shader, GL_INFO_LOG_LENGTH, &length);
    if (length > 0) {
        std::vector<char> log(static_cast<size_t>(length) + 1, '\0');
        glGetShaderInfoLog(shader, length, nullptr, log.data());
        QZLOGE("shader error: \n %s", log.data());
    } else {
        QZLOGE("shader error: \n (the compiler gave no message)");
    }
    // The key is retried on every request; a kept failed object would pile up.
    glDeleteShader(shader);
    return 0;
}

unsigned ZuShaderMgr::createProgram(unsigned vs, unsigned fs) {
    GLuint program = glCreateProgram();
    if (!program) return 0;
    glAttachShader(program, vs);
    glAttachShader(program, fs);
    GLint maxAttribs = 0;
    glGetIntegerv(GL_MAX_VERTEX_ATTRIBS, &maxAttribs);
    for (const AttributeBinding& binding : kAttributes) {
        // ES 2 promises only 8 locations; names past the device's limit are
        // left to the linker rather than raising GL errors.
        if (static_cast<GLint>(binding.location) < maxAttribs)
            glBindAttribLocation(program, binding.location, binding.name);
    }
    glLinkProgram(program);
    GLint linked = GL_FALSE;
    glGetProgramiv(program, GL_LINK_STATUS, &linked);
    if (!linked) {
        char log[1000] = {0};
        glGetProgramInfoLog(program, sizeof log, nullptr, log);
        QZLOGE("link status:%s, error: %d\n", log, static_cast<int>(glGetError()));
    } else {
        glUseProgram(program);
    }
    // Kept even when the link failed: the key stays bound to it and is not
    // rebuilt every frame.
    return program;
}

void ZuShaderMgr::decoding(char* buffer, int length) {
    if (!buffer || length <= 0) return;
    for (int i = 0; i < length; ++i) buffer[i] = static_cast<char>(buffer[i] ^ kDecodeKey[i % kDecodeKeyLength]);
}
