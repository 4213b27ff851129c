#pragma once

#include "core/HardwareVertexBuffer.h"

#include <map>
#include <memory>

// Buffers by bind index. Buffers are shared: a clone without copies points
// at the same ones.
class VertexBufferBinding {
public:
    using BufferPtr = std::shared_ptr<HardwareVertexBuffer>;

    void setBinding(uint16_t index, BufferPtr buffer) { bindings[index] = std::move(buffer); }
    void unsetBinding(uint16_t index) { bindings.erase(index); }
    BufferPtr getBuffer(uint16_t index) const {
        auto it = bindings.find(index);
        return it == bindings.end() ? nullptr : it->second;
    }
    bool isBufferBound(uint16_t index) const { return bindings.count(index) != 0; }
    const std::map<uint16_t, BufferPtr>& getBindings() const { return bindings; }
    // Largest bound index + 1.
    uint16_t getNextIndex() const { return bindings.empty() ? 0 : static_cast<uint16_t>(bindings.rbegin()->first + 1); }

private:
    std::map<uint16_t, BufferPtr> bindings;
};
