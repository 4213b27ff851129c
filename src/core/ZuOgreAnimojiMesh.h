#pragma once

#include "render/mesh/ZuRenderMeshDvid.h"

#include <vector>

// A character mesh: the per-attribute buffers of ZuRenderMeshDvid plus bone
// indices, bone weights and the per-tick morph offsets. The three extra
// buffers are kept in processor memory by their setters (any time in the
// tick) and uploaded at draw time: a grown buffer with glBufferData, one of
// the same size with glBufferSubData.
class ZuOgreAnimojiMesh : public ZuRenderMeshDvid {
public:
    ZuOgreAnimojiMesh() = default;
    ~ZuOgreAnimojiMesh() override;

    void uploadData() override;

    // Four floats a vertex each.
    void setBoneData(const void* data, int bytes) { stage(bone, data, bytes); }
    void setBoneWeightData(const void* data, int bytes) { stage(boneWeight, data, bytes); }
    // Three floats a vertex: offsets added to the position before skinning.
    void setMorphData(const void* data, int bytes) { stage(morph, data, bytes); }

    // The scratch the node sums the morphs into, bytes long.
    void setVertexBufferLength(int bytes);
    int getVertexBufferLength() const { return static_cast<int>(scratch.size() * sizeof(float)); }
    float* getMorphScratch() { return scratch.data(); }

    // 0 no data, 1 uploaded, 2 changed in place, 3 changed and grown.
    int getMorphState() const { return morph.state; }

private:
    struct Extra {
        std::vector<unsigned char> data;
        unsigned id = 0;
        int glBytes = 0;
        int state = 0;
    };
    static void stage(Extra& extra, const void* data, int bytes);
    void upload(Extra& extra, unsigned location, int components);

    Extra bone, boneWeight, morph;
    std::vector<float> scratch;
};
