#pragma once

#include "basesys/ZuRefObject.h"

class ZuAppMain;
class ZuFboObject;
class ZuTexture;

// A directional light as the 3D shaders see it.
struct ZuMaterialLight {
    bool enable = false;
    float dir[3] = {0.0f, 0.0f, 0.0f};
    float color[3] = {0.0f, 0.0f, 0.0f};
    float diffuse[3] = {0.0f, 0.0f, 0.0f};
};

struct ZuMaterialAmbient {
    bool enable = false;
    float color[3] = {0.0f, 0.0f, 0.0f};
    float strength[3] = {0.0f, 0.0f, 0.0f};
};

// One draw's complete GL state: program, up to four texture sources,
// matrices, blend, cull, depth, stencil and lights. Nothing is cached between
// draws: refreshMaterial() sets all of it in one fixed order right before the
// mesh draws, so a draw never depends on what the previous one left behind.
// Its result decides whether the draw happens: no program, or a texture still
// loading, keeps this pass out of the frame until it is ready.
//
// Nothing is copied when a command is recorded: a material shared by several
// commands of a frame draws all of them with its last state. GL thread only.
class ZuMaterial : public ZuRefObject {
public:
    static const int kSlots = 4;

    ZuMaterial();
    // reset(), then AsynloadShader(app, key).
    ZuMaterial(ZuAppMain* app, const char* key);
    // reset() and no program yet; counted among the engine's live materials.
    explicit ZuMaterial(ZuAppMain* app);
    // Releases the texture and framebuffer slots.
    ~ZuMaterial() override;

    virtual void init();
    // Releases the texture and framebuffer slots (textures first) before the
    // material goes; the destructor does the same, so owners only release.
    virtual void destroy();
    // Every field back to its default; the program and slots stay.
    virtual void reset();
    virtual void update(float dt);
    // Sets the whole state for the next draw; false means skip the draw.
    virtual bool refreshMaterial();
    // Subclass uniforms; the program is current when it runs.
    virtual void _refreshInner();

    // Takes the program of key now (GL thread) and caches the shared uniform
    // locations. Calling again switches program; the program already held
    // keeps its locations. A null app does nothing.
    void AsynloadShader(ZuAppMain* app, const char* key);

    void setTexture0(ZuTexture* texture) { setTextureIndex(0, texture); }
    void setTexture1(ZuTexture* texture) { setTextureIndex(1, texture); }
    void setTexture2(ZuTexture* texture) { setTextureIndex(2, texture); }
    void setTexture3(ZuTexture* texture) { setTextureIndex(3, texture); }
    ZuTexture* getTexture0() const { return texture[0]; }
    ZuTexture* getTexture(int slot) const;
    void setTextureIndex(int slot, ZuTexture* texture);

    // A framebuffer in a slot hides the slot's texture; useMainTex picks which
    // of its two colour textures is sampled.
    void setTexture0FBO(ZuFboObject* fbo, bool useMainTex = true) { setTextureFBOIndex(0, fbo, useMainTex); }
    void setTexture1FBO(ZuFboObject* fbo, bool useMainTex = true) { setTextureFBOIndex(1, fbo, useMainTex); }
    void setTexture2FBO(ZuFboObject* fbo, bool useMainTex = true) { setTextureFBOIndex(2, fbo, useMainTex); }
    void setTexture3FBO(ZuFboObject* fbo, bool useMainTex = true) { setTextureFBOIndex(3, fbo, useMainTex); }
    ZuFboObject* getTextureFBO(int slot) const;
    void setTextureFBOIndex(int slot, ZuFboObject* fbo, bool useMainTex);

    void setModelMatrix(const float* m);
    void setViewMatrix(const float* m);
    void setProjectMatrix(const float* m);
    void setVPMatrix(const float* m);
    void setMVP(const float* m);
    const float* getModelMatrix() const { return matM; }
    const float* getMVP() const { return matMVP; }

    // Multiplies the centred texture coordinate: -1 mirrors an axis.
    void setTexcoordFlip(float x, float y);
    void setTexSizeIndex(int slot, float width, float height);
    void setPointSize(float size) { ptSize = size; }
    void setLineWidth(float width) { lineWidth = width; }

    void setBlend(bool enable, unsigned src, unsigned dst);
    void setBlendEnable(bool enable) { blendEnable = enable; }
    void setCull(bool enable, unsigned front, unsigned face);
    void setDepthTest(bool enable) { depthTest = enable; }
    void setDepthFunc(unsigned func) { depthFunc = func; }
    void setDepthClear(bool clear) { depthClear = clear; }
    void setStencilClear(bool clear) { stencilClear = clear; }
    void setStencilTest(bool enable) { stencilTest = enable; }
    void setStencilFunc(unsigned func, unsigned ref, unsigned mask);
    void setStencilOp(unsigned fail, unsigned depthFail, unsigned pass);

    ZuMaterialLight& getLight(int index) { return light[index & 3]; }
    ZuMaterialAmbient& getAmbient() { return ambient; }

    unsigned getProgram() const { return program; }
    // The GL name the last refresh resolved for a slot (kept when the slot empties).
    unsigned getTexId(int slot) const { return slot >= 0 && slot < kSlots ? texId[slot] : 0; }
    bool getBlendEnable() const { return blendEnable; }
    bool getDepthTest() const { return depthTest; }

protected:
    // The slots' references, dropped by destroy and by the destructor.
    void releaseSlots();
    // The location of a uniform of the current program, looked up in GL once
    // per program and then kept: refreshes run for every draw of every frame.
    int uniformLocation(const char* name);
    void uploadVec3(const char* name, const float* value);
    // Applies step 3 of the refresh: shared uniforms at their cached locations.
    void uploadSharedUniforms();
    // Resolves the slots' GL names; false when a texture is still loading.
    bool resolveTextures();
    void bindTextures();
    void applyRasterState();
    void uploadLights();

    class ZuLiveObjects* live = nullptr;
    unsigned program = 0;
    bool useMainTex[kSlots];
    bool blendEnable;
    unsigned blendSrc, blendDst;
    bool cullEnable;
    unsigned frontFace, cullFace;
    bool depthClear, depthTest;
    unsigned depthFunc;
    bool stencilClear, stencilTest;
    unsigned stencilFunc, stencilRef, stencilMask;
    unsigned stencilFail, stencilDepthFail, stencilPass;
    ZuMaterialLight light[kSlots];
    ZuMaterialAmbient ambient;
    ZuFboObject* fbo[kSlots] = {nullptr, nullptr, nullptr, nullptr};
    ZuTexture* texture[kSlots] = {nullptr, nullptr, nullptr, nullptr};
    float matM[16], matV[16], matP[16], matVP[16], matMVP[16];
    float texcoordClip[2];
    float ptSize;
    float lineWidth;
    float texSize[kSlots][2];
    unsigned texId[kSlots] = {0, 0, 0, 0};
    int locM = -1, locV = -1, locP = -1, locVP = -1, locMVP = -1;
    int locTex[kSlots] = {-1, -1, -1, -1};
    int locClip = -1, locPtSize = -1;
    int locTexSize[kSlots] = {-1, -1, -1, -1};

private:
    struct CachedUniform {
        char name[24];
        int location;
    };
    static const int kCachedUniforms = 24;
    CachedUniform cachedUniforms[kCachedUniforms];
    int cachedCount = 0;
};
