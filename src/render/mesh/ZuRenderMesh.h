#pragma once

#include "basesys/ZuRefObject.h"

class ZuDataDoubleSwap;

// Vertex format: a set of the bits below. Interleaved attributes lie in the
// order of the bits as listed; each bit has a fixed attribute location
// (shared by every program, see ZuShaderMgr) and byte size.
typedef unsigned int VFTYPE;
enum : unsigned int {
    VF_POS2 = 0x1,           // location 0, 2 floats
    VF_POS3 = 0x2,           // location 0, 3 floats
    VF_NORMAL = 0x10,        // location 1, 3 floats
    VF_COLOR0 = 0x100,       // location 4, 4 unsigned bytes, not normalised
    VF_COLOR1 = 0x200,       // location 5, separate buffers only
    VF_TEX0 = 0x1000,        // location 6, 2 floats
    VF_TEX1 = 0x2000,        // location 7, 2 floats
    VF_TEX2 = 0x4000,        // location 2, separate buffers only
    VF_BONE_ID = 0x10000,    // location 3, 4 floats
    VF_BONE_WEIGHT = 0x20000,// location 4, 4 floats
    VF_MORPH4 = 0x40000,     // locations 2, 5, 7, 8: 4 targets of 3 floats
    VF_MORPH_ARRAY = 0x80000,// 10 selectable targets of 3 floats
};

// A GL primitive mode (GL_TRIANGLES, GL_LINES...).
typedef unsigned int DRAWMETHOD;

// Stride of the interleaved formats the engine uses; 0 for any other.
int getVertexFormateSize(VFTYPE type);

// Vertex and index data in CPU memory and in GL buffers. Writers replace the
// data at any time in the update tick (no GL call); the upload happens at
// draw time on the GL thread, from the half of a double buffer that the
// writer is not filling. Indices are 16-bit.
//
// A draw never reads past what was uploaded: vertex counts are clamped to
// the vertex buffer, index counts to the index buffer, and indices that
// point past the vertices refuse the draw. Attribute arrays enabled for a
// draw are disabled after it, so nothing leaks into the next draw.
class ZuRenderMesh : public ZuRefObject {
public:
    static const int kMorphSlots = 10;

    ZuRenderMesh();
    // Deletes the GL buffers: must run on the GL thread.
    ~ZuRenderMesh() override;

    // Uploads if needed and draws drawMethod over vertexCount vertices, or
    // over indexCount indices once index data was set. Nothing when invisible.
    virtual void render();
    // Draws the first count vertices as lines or points (debug geometry).
    virtual void renderGeometry(int count, bool lines);
    // Uploads changed halves and points the attributes at the bound buffer.
    virtual void uploadData();

    void setVertexType(VFTYPE type) { vertexType = type; }
    VFTYPE getVertexType() const { return vertexType; }
    void setVertexNum(int count) { vertexCount = count < 0 ? 0 : count; }
    int getVertexNum() const { return vertexCount; }
    // Stride of the current vertex format.
    int getVertexSize() const { return getVertexFormateSize(vertexType); }
    void setDrawMethod(DRAWMETHOD method) { drawMethod = method; }
    DRAWMETHOD getDrawMethod() const { return drawMethod; }
    void setVisible(bool v) { visible = v; }
    bool getVisible() const { return visible; }

    // Only GL_STREAM_DRAW, GL_STATIC_DRAW and GL_DYNAMIC_DRAW are accepted.
    void setVertexPoolType(unsigned pool);
    void setIndexPoolType(unsigned pool);
    unsigned getVertexPoolType() const { return vertexPool; }
    unsigned getIndexPoolType() const { return indexPool; }

    // Copies the data into the next half; any thread of the update tick.
    void setVertexData(const void* data, int bytes);
    void setIndexData(const void* data, int bytes, int count);

    ZuDataDoubleSwap* getSwapVertexData() const { return vertexData; }
    ZuDataDoubleSwap* getSwapIndexData() const { return indexData; }
    int getIndexNum() const { return indexCount; }
    bool getUseIndex() const { return useIndex; }
    int getVertexState() const { return vertexState; }
    int getIndexState() const { return indexState; }
    unsigned getVbo() const { return vbo; }
    unsigned getIbo() const { return ibo; }

    // Morph targets read by VF_MORPH_ARRAY, by slot.
    void addEnableMorphTarget(int target);
    void addEnableMorphTarget(int slot, int target);
    void clearEnabledMorphTarget();
    int getEnabledMorphTarget(int slot) const;

protected:
    // Index half of uploadData, shared with the per-attribute variant.
    void uploadIndexData();
    // Enables one attribute array (and remembers it for disableAttributes).
    void enableAttribute(unsigned location, int components, unsigned glType, int stride,
                         unsigned bufferOffset);
    void disableAttributes();
    // Issues the draw with the attributes bound by uploadData.
    void drawBound(DRAWMETHOD mode, int count, bool allowIndex);
    // Warns once per mesh, so a broken mesh does not flood the log each frame.
    void warnOnce(const char* message);

    VFTYPE vertexType = VF_POS3;
    unsigned vbo = 0;
    unsigned ibo = 0;
    int indexCount = 0;
    int vertexCount = 0;
    unsigned vertexPool;
    unsigned indexPool;
    bool useIndex = false;
    DRAWMETHOD drawMethod;
    ZuDataDoubleSwap* vertexData = nullptr;
    ZuDataDoubleSwap* indexData = nullptr;
    int vertexState = 0; // 0 no data, 1 uploaded, 2 changed in place, 3 changed and grown
    int indexState = 0;
    int enabledMorph[kMorphSlots] = {};
    int morphCount = 0;
    bool visible = true;

    // What the GL buffers hold, for bounds checks at draw time.
    int vboBytes = 0;
    int iboBytes = 0;
    int maxIndex = -1;           // largest index among the uploaded ones
    int drawableVertices = 0;    // vertices the bound attributes can supply
    unsigned enabledAttribs = 0; // bit per location enabled for this draw
    bool warned = false;

private:
    static bool validPool(unsigned pool);
    // setVertexData and setIndexData share the double-buffer steps.
    static void writeHalves(ZuDataDoubleSwap*& swap, int& state, const void* data, int bytes);
    // One half of uploadData: exchange, then (re)fill the GL buffer.
    static void uploadHalf(ZuDataDoubleSwap* swap, int& state, unsigned& buffer, int& bufferBytes,
                           unsigned target, unsigned pool);
};
