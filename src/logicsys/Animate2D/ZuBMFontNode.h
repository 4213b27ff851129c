#pragma once

#include "basesys/qzArray.h"
#include "basesys/qzString.h"
#include "scene/ZuNode.h"

#include <cstdint>

class ZuBMFontConfiguration;
class ZuMaterial;
class ZuRenderMesh;
class ZuTexture;

// A line of text set in a bitmap font: one quad a glyph, laid left to right
// from the node's position, scaled to the font size asked for.
class ZuBMFontNode : public ZuNode {
public:
    explicit ZuBMFontNode(ZuAppMain* app);

    void zuinit() override;
    void zudestroy() override;
    void update(float delta) override;
    void render() override;

    // Reads the font file and takes its atlas; a file that can't be read
    // leaves the node without a font (logged).
    void init(const char* path);
    // Scales the node from the font's own size; a font of size 0 has no
    // scale to give and draws nothing.
    void setFontSize(int size);
    int getFontSize() const { return fontSize; }
    void setText(const char* text);
    void setText(int value);
    const qz::string& getText() const { return text; }
    int getGlyphCount() const { return glyphCount; }
    ZuBMFontConfiguration* getConfiguration() const { return config; }

private:
    struct Vertex {
        float x, y;
        uint8_t r, g, b, a;
        float u, v;
    };

    ZuBMFontConfiguration* config = nullptr;
    ZuTexture* texture = nullptr;
    ZuMaterial* material = nullptr;
    ZuRenderMesh* mesh = nullptr;
    qz::string text;
    qz::array<Vertex> vertices;
    int fontSize = 0;
    int glyphCount = 0;
};
