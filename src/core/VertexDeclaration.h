#pragma once

#include "core/VertexElement.h"

#include <cstddef>
#include <vector>

// The ordered list of elements that describes a vertex.
class VertexDeclaration {
public:
    virtual ~VertexDeclaration() = default;
    virtual const VertexElement& addElement(uint16_t source, uint32_t offset, uint16_t type,
                                            uint16_t semantic, uint16_t index = 0);
    // Past the end it appends.
    const VertexElement& insertElement(size_t position, uint16_t source, uint32_t offset, uint16_t type,
                                       uint16_t semantic, uint16_t index = 0);
    void removeElement(uint16_t semantic, uint16_t index = 0);
    const VertexElement* getElement(size_t position) const;
    size_t getElementCount() const { return elements.size(); }
    const std::vector<VertexElement>& getElements() const { return elements; }
    // Sum of the element sizes of one source.
    uint32_t getVertexSize(uint16_t source) const;
    // First match, or null.
    const VertexElement* findElementBySemantic(uint16_t semantic, uint16_t index = 0) const;
    std::vector<VertexElement> findElementsBySource(uint16_t source) const;

private:
    std::vector<VertexElement> elements;
};
