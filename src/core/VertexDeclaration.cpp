#include "core/VertexDeclaration.h"

const VertexElement& VertexDeclaration::addElement(uint16_t source, uint32_t offset, uint16_t type,
                                                   uint16_t semantic, uint16_t index) {
    elements.emplace_back(source, offset, type, semantic, index);
    return elements.back();
}

const VertexElement& VertexDeclaration::insertElement(size_t position, uint16_t source, uint32_t offset,
                                                      uint16_t type, uint16_t semantic, uint16_t index) {
    if (position >= elements.size()) return addElement(source, offset, type, semantic, index);
    return *elements.insert(elements.begin() + static_cast<long>(position),
                            VertexElement(source, offset, type, semantic, index));
}

void VertexDeclaration::removeElement(uint16_t semantic, uint16_t index) {
    for (auto it = elements.begin(); it != elements.end(); ++it) {
        if (it->semantic == semantic && it->index == index) {
            elements.erase(it);
            return;
        }
    }
}

const VertexElement* VertexDeclaration::getElement(size_t position) const {
    return position < elements.size() ? &elements[position] : nullptr;
}

uint32_t VertexDeclaration::getVertexSize(uint16_t source) const {
    uint32_t size = 0;
    for (const VertexElement& e : elements)
        if (e.source == source) size += e.getSize();
    return size;
}

const VertexElement* VertexDeclaration::findElementBySemantic(uint16_t semantic, uint16_t index) const {
    for (const VertexElement& e : elements)
        if (e.semantic == semantic && e.index == index) return &e;
    return nullptr;
}

std::vector<VertexElement> VertexDeclaration::findElementsBySource(uint16_t source) const {
    std::vector<VertexElement> out;
    for (const VertexElement& e : elements)
        if (e.source == source) out.push_back(e);
    return out;
}
