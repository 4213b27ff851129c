#pragma once

#include "basesys/ZuGBase.h"

class ZuFboMgr;
class ZuTexture;

// A framebuffer drawn into by commands and sampled by materials. It may own a
// second colour texture: swap() exchanges the GL names of the two, so a
// filter reads the previous result from secondTex while it draws the next
// into mainTex, with no copy. GL thread only.
class ZuFboObject : public ZuGBase {
public:
    explicit ZuFboObject(ZuAppMain* app);
    ~ZuFboObject() override;

    virtual bool resetFboWidth(int width, int height);
    virtual bool resetOutFboWidth(int width, int height, unsigned int fboId) { return false; }
    virtual bool resetOutTexFboWidth(int width, int height, unsigned int texId) { return false; }
    virtual void disableFbo();
    virtual void bind();
    virtual void bindNoclear();
    virtual void unbind();
    virtual void swap();

    void setClearColor(float r, float g, float b, float a);
    bool enableDepthBuffer();
    void disableDepthBuffer();
    bool enableStencilBuffer();
    void disableStencilBufer();
    void enableSwapBuffer();
    void disableSwapBuffer();
    // disableFbo and forget the enclosing framebuffer.
    void clear();

    unsigned int getFboID() const { return fboId; }
    ZuTexture* getMainTex() const { return mainTex; }
    ZuTexture* getSecondTex() const { return secondTex; }
    int getFrameWidth() const { return width; }
    int getFrameHeight() const { return height; }
    const float* getClearColor() const { return clearColor; }
    bool isSwapEnabled() const { return swapEnabled; }
    bool isDepthEnabled() const { return depthEnabled; }
    bool isStencilEnabled() const { return stencilEnabled; }

    // Resolves or copies colour, depth and stencil of (0, 0, width, height)
    // into dest with nearest filtering; ES 3 only. False (nothing copied)
    // when either framebuffer is incomplete or the context is ES 2.
    bool blitTo(ZuFboObject* dest, int blitWidth, int blitHeight);

    // The enclosing framebuffer while a bind command holds this one.
    ZuFboObject* prevFbo = nullptr;

    // Set by the pool that owns the entry; framebuffers return to its first id.
    void setOwner(ZuFboMgr* mgr) { owner = mgr; }

    // True when the engine runs its ES 3 paths (configured GL version, or
    // the current context when there is no configuration).
    static bool isGles3(ZuAppMain* app);
    // GL_DEPTH24_STENCIL8, or 16-bit depth alone on an ES 2 context without
    // packed depth-stencil.
    static unsigned int depthStencilFormat();

protected:
    class ZuLiveObjects* live = nullptr;
    void setFirstFboId();
    unsigned int firstFboId() const;
    // The steps of resetFboWidth; texId < 0 makes an own colour texture,
    // else the texture wraps that host name.
    bool buildFramebuffer(int w, int h, long long texId);
    void releaseTexture(ZuTexture*& texture);

    int width = 0;
    int height = 0;
    unsigned int fboId = 0;
    unsigned int depthRb = 0;
    bool swapEnabled = false;
    bool depthEnabled = false;
    bool stencilEnabled = false;
    float clearColor[4] = {1.0f, 1.0f, 1.0f, 1.0f};
    ZuTexture* mainTex = nullptr;
    ZuTexture* secondTex = nullptr;
    ZuFboMgr* owner = nullptr;
};
