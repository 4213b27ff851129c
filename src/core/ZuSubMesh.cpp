#include "core/ZuSubMesh.h"

#include "core/VertexData.h"
#include "core/ZuOgrePieceModel.h"

#include <algorithm>
#include <cfloat>
#include <cmath>
#include <cstring>
#include <vector>

ZuSubMesh::~ZuSubMesh() = default;

ZuTexture* ZuSubMesh::getTexture() const {
    return parent ? parent->getTexture(materialName) : nullptr;
}

void ZuSubMesh::resetWorkingData() {
    if (vertexData) workingVertexData.reset(vertexData->clone(true));
}

uint16_t ZuSubMesh::rationaliseBoneAssignments(uint32_t vertexCount, BoneAssignments& assignments) {
    uint16_t maxBones = 0;
    for (uint32_t v = 0; v < vertexCount; ++v) {
        size_t count = assignments.count(v);
        if (count > maxBones) maxBones = static_cast<uint16_t>(std::min<size_t>(count, 0xFFFF));
        if (count > 4) {
            // The lightest go first; which of two equal weights goes is the sort's choice.
            while (assignments.count(v) > 4) {
                auto range = assignments.equal_range(v);
                auto lightest = range.first;
                for (auto it = range.first; it != range.second; ++it)
                    if (it->second.weight < lightest->second.weight) lightest = it;
                assignments.erase(lightest);
            }
        }
        auto range = assignments.equal_range(v);
        float total = 0.0f;
        for (auto it = range.first; it != range.second; ++it) total += it->second.weight;
        if (range.first != range.second && std::fabs(total - 1.0f) > FLT_EPSILON && total > 0.0f)
            for (auto it = range.first; it != range.second; ++it) it->second.weight /= total;
    }
    return std::min<uint16_t>(maxBones, 4);
}

void ZuSubMesh::_compileBoneAssignments() {
    if (!vertexData) return;
    uint16_t maxBones = rationaliseBoneAssignments(vertexData->vertexCount, boneAssignments);
    if (maxBones == 0) return;
    // Always four slots: the shader reads four.
    const uint16_t blendCount = 4;
    VertexDeclaration& decl = vertexData->vertexDeclaration;
    VertexBufferBinding& bind = vertexData->vertexBufferBinding;
    uint16_t source;
    if (const VertexElement* old = decl.findElementBySemantic(VES_BLEND_INDICES)) {
        source = old->source;
        bind.unsetBinding(source);
        decl.removeElement(VES_BLEND_INDICES);
        decl.removeElement(VES_BLEND_WEIGHTS);
    } else {
        source = bind.getNextIndex();
    }
    auto buffer = std::make_shared<HardwareVertexBuffer>(4 + 4 * blendCount, vertexData->vertexCount);
    bind.setBinding(source, buffer);
    const VertexElement* first = decl.getElement(0);
    if (first && first->semantic == VES_POSITION) {
        size_t at = 1;
        while (at < decl.getElementCount() && decl.getElement(at)->source == first->source) ++at;
        decl.insertElement(at, source, 0, VET_UBYTE4, VES_BLEND_INDICES);
        decl.insertElement(at + 1, source, 4, VET_FLOAT4, VES_BLEND_WEIGHTS);
    } else {
        decl.addElement(source, 0, VET_UBYTE4, VES_BLEND_INDICES);
        decl.addElement(source, 4, VET_FLOAT4, VES_BLEND_WEIGHTS);
    }
    uint8_t* out = buffer->getData();
    for (uint32_t v = 0; v < vertexData->vertexCount; ++v, out += buffer->getVertexSize()) {
        uint8_t indices[4] = {0, 0, 0, 0};
        float weights[4] = {0.0f, 0.0f, 0.0f, 0.0f};
        auto range = boneAssignments.equal_range(v);
        if (range.first == range.second) weights[0] = 1.0f; // unassigned: bone 0 alone
        int slot = 0;
        for (auto it = range.first; it != range.second && slot < 4; ++it, ++slot) {
            indices[slot] = static_cast<uint8_t>(it->second.boneIndex);
            weights[slot] = it->second.weight;
        }
        std::memcpy(out, indices, 4);
        std::memcpy(out + 4, weights, 16);
    }
    workingVertexData.reset(vertexData->clone(true));
}
