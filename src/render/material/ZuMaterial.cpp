#include "render/material/ZuMaterial.h"

#include "basesys/ZuCheck.h"
#include "basesys/ZuLiveObjects.h"

#include "basesys/ZuAppMain.h"
#include "basesys/ZuGlobalMgr.h"
#include "render/fbo/ZuFboObject.h"
#include "render/shader/ZuShaderMgr.h"
#include "render/texture/ZuTexture.h"

#include <GLES2/gl2.h>
#include <cstring>

namespace {

const float kIdentity[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};

const char* const kSamplerNames[ZuMaterial::kSlots] = {"aTexture0", "aTexture1", "aTexture2", "aTexture3"};
const char* const kTexSizeNames[ZuMaterial::kSlots] = {"tex0size", "tex1size", "tex2size", "tex3size"};

// Uniform names of the four lights: the first one has no index suffix.
const char* const kLightDirNames[ZuMaterial::kSlots] = {"uLightDir", "uLightDir1", "uLightDir2", "uLightDir3"};
const char* const kLightColorNames[ZuMaterial::kSlots] = {"uLightColor", "uLightColor1", "uLightColor2",
                                                          "uLightColor3"};
const char* const kLightDiffuseNames[ZuMaterial::kSlots] = {"uMatDiffuse", "uMatDiffuse1", "uMatDiffuse2",
                                                            "uMatDiffuse3"};

} // namespace

ZuMaterial::ZuMaterial() {
    reset();
    program = 0;
}

ZuMaterial::ZuMaterial(ZuAppMain* app) : live(ZuLiveObjects::enter(app, ZuLiveObjects::Kind::Material)) {
    reset();
    program = 0;
}

ZuMaterial::ZuMaterial(ZuAppMain* app, const char* key) : live(ZuLiveObjects::enter(app, ZuLiveObjects::Kind::Material)) {
    reset();
    AsynloadShader(app, key);
}

ZuMaterial::~ZuMaterial() {
    releaseSlots();
    ZuLiveObjects::leave(live, ZuLiveObjects::Kind::Material);
}

void ZuMaterial::init() { reset(); }

void ZuMaterial::destroy() { releaseSlots(); }

void ZuMaterial::releaseSlots() {
    for (int i = 0; i < kSlots; i++) qzAssignRetained(texture[i], static_cast<ZuTexture*>(nullptr));
    for (int i = 0; i < kSlots; i++) qzAssignRetained(fbo[i], static_cast<ZuFboObject*>(nullptr));
}

void ZuMaterial::reset() {
    for (int i = 0; i < kSlots; i++) {
        useMainTex[i] = true;
        texSize[i][0] = texSize[i][1] = 0.0f;
        light[i] = ZuMaterialLight();
    }
    blendEnable = false;
    blendSrc = GL_ONE;
    blendDst = GL_ONE_MINUS_SRC_ALPHA;
    cullEnable = false;
    frontFace = GL_CCW;
    cullFace = GL_BACK;
    depthClear = depthTest = false;
    depthFunc = GL_LEQUAL;
    stencilClear = stencilTest = false;
    stencilFunc = GL_ALWAYS;
    stencilRef = 1;
    stencilMask = 1;
    stencilFail = GL_KEEP;
    stencilDepthFail = GL_REPLACE;
    stencilPass = GL_REPLACE;
    const float dir[3] = {0.0f, 0.0f, -1.0f}, red[3] = {1.0f, 0.0f, 0.0f}, white[3] = {1.0f, 1.0f, 1.0f};
    memcpy(light[0].dir, dir, sizeof dir);
    memcpy(light[0].color, red, sizeof red);
    memcpy(light[0].diffuse, white, sizeof white);
    ambient = ZuMaterialAmbient();
    memcpy(matM, kIdentity, sizeof matM);
    memcpy(matV, kIdentity, sizeof matV);
    memcpy(matP, kIdentity, sizeof matP);
    memcpy(matVP, kIdentity, sizeof matVP);
    memcpy(matMVP, kIdentity, sizeof matMVP);
    texcoordClip[0] = texcoordClip[1] = 1.0f;
    ptSize = 5.0f;
    lineWidth = 5.0f;
}

void ZuMaterial::update(float) {}

void ZuMaterial::_refreshInner() {}

void ZuMaterial::AsynloadShader(ZuAppMain* app, const char* key) {
    if (!app) return;
    ZuGlobalMgr* globalMgr = app->getGlobalMgr();
    ZuShaderMgr* shaderMgr = globalMgr ? globalMgr->getShaderMgr() : nullptr;
    unsigned next = shaderMgr && key ? shaderMgr->getProgramme(key) : 0;
    // Hosts switch to the program they already have on every frame: the
    // locations found for it still hold.
    if (next && next == program) return;
    program = next;
    cachedCount = 0;
    if (!program) {
        locM = locV = locP = locVP = locMVP = locClip = locPtSize = -1;
        for (int i = 0; i < kSlots; i++) locTexSize[i] = locTex[i] = -1;
        return;
    }
    locM = glGetUniformLocation(program, "aMatrixM");
    locV = glGetUniformLocation(program, "aMatrixV");
    locP = glGetUniformLocation(program, "aMatrixP");
    locVP = glGetUniformLocation(program, "aMatrixVP");
    locMVP = glGetUniformLocation(program, "aMatrixMVP");
    locClip = glGetUniformLocation(program, "texcoordClip");
    for (int i = 0; i < kSlots; i++) {
        locTexSize[i] = glGetUniformLocation(program, kTexSizeNames[i]);
        locTex[i] = glGetUniformLocation(program, kSamplerNames[i]);
    }
    locPtSize = glGetUniformLocation(program, "ptsize");
}

int ZuMaterial::uniformLocation(const char* name) {
    if (!program || !name) return -1;
    for (int i = 0; i < cachedCount; i++)
        if (std::strcmp(cachedUniforms[i].name, name) == 0) return cachedUniforms[i].location;
    int location = glGetUniformLocation(program, name);
    size_t length = std::strlen(name);
    // A full table or a long name still works, looked up on every draw.
    if (cachedCount < kCachedUniforms && length < sizeof cachedUniforms[0].name) {
        std::memcpy(cachedUniforms[cachedCount].name, name, length + 1);
        cachedUniforms[cachedCount].location = location;
        cachedCount++;
    }
    return location;
}

void ZuMaterial::uploadVec3(const char* name, const float* value) {
    int location = uniformLocation(name);
    if (location >= 0) glUniform3fv(location, 1, value);
}

ZuTexture* ZuMaterial::getTexture(int slot) const {
    return slot >= 0 && slot < kSlots ? texture[slot] : nullptr;
}

void ZuMaterial::setTextureIndex(int slot, ZuTexture* value) {
    QZ_REQUIRE(slot >= 0 && slot < kSlots, "texture slot %d of 0..%d", slot, kSlots - 1);
    qzAssignRetained(texture[slot], value);
}

ZuFboObject* ZuMaterial::getTextureFBO(int slot) const {
    return slot >= 0 && slot < kSlots ? fbo[slot] : nullptr;
}

void ZuMaterial::setTextureFBOIndex(int slot, ZuFboObject* value, bool mainTex) {
    QZ_REQUIRE(slot >= 0 && slot < kSlots, "framebuffer slot %d of 0..%d", slot, kSlots - 1);
    qzAssignRetained(fbo[slot], value);
    useMainTex[slot] = mainTex;
}

void ZuMaterial::setModelMatrix(const float* m) { if (m) memcpy(matM, m, sizeof matM); }
void ZuMaterial::setViewMatrix(const float* m) { if (m) memcpy(matV, m, sizeof matV); }
void ZuMaterial::setProjectMatrix(const float* m) { if (m) memcpy(matP, m, sizeof matP); }
void ZuMaterial::setVPMatrix(const float* m) { if (m) memcpy(matVP, m, sizeof matVP); }
void ZuMaterial::setMVP(const float* m) { if (m) memcpy(matMVP, m, sizeof matMVP); }

void ZuMaterial::setTexcoordFlip(float x, float y) {
    texcoordClip[0] = x;
    texcoordClip[1] = y;
}

void ZuMaterial::setTexSizeIndex(int slot, float width, float height) {
    if (slot < 0 || slot >= kSlots) return;
    texSize[slot][0] = width;
    texSize[slot][1] = height;
}

void ZuMaterial::setBlend(bool enable, unsigned src, unsigned dst) {
    blendEnable = enable;
    blendSrc = src;
    blendDst = dst;
}

void ZuMaterial::setCull(bool enable, unsigned front, unsigned face) {
    cullEnable = enable;
    frontFace = front;
    cullFace = face;
}

void ZuMaterial::setStencilFunc(unsigned func, unsigned ref, unsigned mask) {
    stencilFunc = func;
    stencilRef = ref;
    stencilMask = mask;
}

void ZuMaterial::setStencilOp(unsigned fail, unsigned depthFail, unsigned pass) {
    stencilFail = fail;
    stencilDepthFail = depthFail;
    stencilPass = pass;
}

// The order below is part of the contract: a subclass's _refreshInner may
// rely on the program, textures and raster state all being set already.
bool ZuMaterial::refreshMaterial() {
    if (!program) return false;
    glUseProgram(program);
    uploadSharedUniforms();
    if (!resolveTextures()) return false;
    bindTextures();
    applyRasterState();
    uploadLights();
    _refreshInner();
    return true;
}

void ZuMaterial::uploadSharedUniforms() {
    if (locM >= 0) glUniformMatrix4fv(locM, 1, GL_FALSE, matM);
    if (locV >= 0) glUniformMatrix4fv(locV, 1, GL_FALSE, matV);
    if (locP >= 0) glUniformMatrix4fv(locP, 1, GL_FALSE, matP);
    if (locVP >= 0) glUniformMatrix4fv(locVP, 1, GL_FALSE, matVP);
    if (locMVP >= 0) glUniformMatrix4fv(locMVP, 1, GL_FALSE, matMVP);
    if (locClip >= 0) glUniform2fv(locClip, 1, texcoordClip);
    for (int i = 0; i < kSlots; i++)
        if (locTexSize[i] >= 0) glUniform2fv(locTexSize[i], 1, texSize[i]);
    if (locPtSize >= 0) glUniform1f(locPtSize, ptSize);
}

// A framebuffer source wins over the slot's texture and is never asked
// whether it is loaded. A texture that is still loading refuses the draw; a
// slot with no source keeps the name of its last refresh.
bool ZuMaterial::resolveTextures() {
    for (int i = 0; i < kSlots; i++) {
        if (fbo[i]) {
            ZuTexture* source = useMainTex[i] ? fbo[i]->getMainTex() : fbo[i]->getSecondTex();
            if (source) texId[i] = static_cast<unsigned>(source->getid());
        } else if (texture[i]) {
            if (!texture[i]->getbLoad()) return false;
            texture[i]->commit();
            texId[i] = static_cast<unsigned>(texture[i]->getid());
        }
    }
    return true;
}

void ZuMaterial::bindTextures() {
    for (int i = 0; i < kSlots; i++) {
        if (!texId[i]) continue;
        glActiveTexture(GL_TEXTURE0 + i);
        glBindTexture(GL_TEXTURE_2D, texId[i]);
        if (locTex[i] >= 0) glUniform1i(locTex[i], i);
    }
    glActiveTexture(GL_TEXTURE0);
}

void ZuMaterial::applyRasterState() {
    if (cullEnable) {
        glEnable(GL_CULL_FACE);
        glFrontFace(frontFace);
        glCullFace(cullFace);
    } else {
        glDisable(GL_CULL_FACE);
    }
    if (blendEnable) {
        glEnable(GL_BLEND);
        glBlendFunc(blendSrc, blendDst);
    } else {
        glDisable(GL_BLEND);
    }
    if (stencilClear) {
        glClearStencil(0);
        glClear(GL_STENCIL_BUFFER_BIT);
    }
    if (stencilTest) {
        glEnable(GL_STENCIL_TEST);
        glStencilFunc(stencilFunc, static_cast<GLint>(stencilRef), stencilMask);
        glStencilOp(stencilFail, stencilDepthFail, stencilPass);
    } else {
        glDisable(GL_STENCIL_TEST);
    }
    if (depthClear) glClear(GL_DEPTH_BUFFER_BIT);
    if (depthTest) {
        glEnable(GL_DEPTH_TEST);
        glDepthFunc(depthFunc);
    } else {
        glDisable(GL_DEPTH_TEST);
    }
    glLineWidth(lineWidth);
}

void ZuMaterial::uploadLights() {
    for (int i = 0; i < kSlots; i++) {
        if (!light[i].enable) continue;
        uploadVec3(kLightDirNames[i], light[i].dir);
        uploadVec3(kLightColorNames[i], light[i].color);
        uploadVec3(kLightDiffuseNames[i], light[i].diffuse);
    }
    if (ambient.enable) {
        uploadVec3("uAmbientLightColor", ambient.color);
        uploadVec3("uAmbientLightStrength", ambient.strength);
    }
}
