#pragma once

#include "basesys/qzString.h"
#include "scene/ZuNode.h"

#include <cstdint>

class ZuMaterial;
class ZuRenderMesh;
class ZuTexture;

// Where the text's origin sits on it: left, centre or right in x (ax of 0,
// w/2, w) crossed with bottom, middle or top in y (ay of 0, h/2, h).
enum BITFONT_ATCH_PT {
    BITFONT_ATCH_LB = 0, BITFONT_ATCH_LC, BITFONT_ATCH_LT,
    BITFONT_ATCH_CB, BITFONT_ATCH_CC, BITFONT_ATCH_CT,
    BITFONT_ATCH_RB, BITFONT_ATCH_RC, BITFONT_ATCH_RT,
};

// The corners of one glyph cell on the strip.
struct FontTexcoords {
    float u0, v0, u1, v1;
};

// A score of up to ten characters cut from one strip of sixteen glyphs
// ("0123456789:.+-x%" in equal cells across the picture). Places past the
// text's end collapse to the origin, so a shorter score hides the rest.
class ZuBitFontNode : public ZuNode {
public:
    static const int kMaxChars = 10;
    static const int kVerticesPerChar = 6;

    explicit ZuBitFontNode(ZuAppMain* app);

    bool procEvent(ZuEvent* event) override;
    void zuinit() override;
    void zudestroy() override;
    void update(float delta) override;
    void render() override;

    // The strip picture and the glyph size (square cells of this side).
    void init(const char* textureName, float characterWidth);
    // Ignored when longer than ten characters or the same as shown.
    void setText(const char* text);
    void setText(int value);
    const qz::string& getText() const { return text; }
    void setAtcPt(BITFONT_ATCH_PT anchor) { this->anchor = anchor; }
    // Follows a skeleton's bone: position events naming this bone move the node.
    void syncPos(const char* spineName, const char* boneName);

    ZuTexture* getTexture() const { return texture; }

private:
    struct Vertex {
        float x, y;
        uint8_t r, g, b, a;
        float u, v;
    };
    void writeChar(int place, int glyph, float ax, float ay);
    void collapse(int place);
    void upload();

    ZuTexture* texture = nullptr;
    ZuMaterial* material = nullptr;
    ZuRenderMesh* mesh = nullptr;
    qz::string text;
    float charWidth = 64.0f;
    float charHeight = 64.0f;
    BITFONT_ATCH_PT anchor = BITFONT_ATCH_LB;
    FontTexcoords cells[16] = {};
    Vertex buffer[kMaxChars * kVerticesPerChar] = {};
    qz::string syncSpine;
    qz::string syncBone;
};
