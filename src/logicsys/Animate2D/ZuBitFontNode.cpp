#include "logicsys/Animate2D/ZuBitFontNode.h"

#include "basesys/ZuAppMain.h"
#include "basesys/ZuGlobalMgr.h"
#include "basesys/ZuGlobalParam.h"
#include "event/ZuAnimateSyncPositionEvent.h"
#include "platform/ZuLog.h"
#include "render/ZuRenderCamera.h"
#include "render/command/RENDERSTREAMTYPE.h"
#include "render/material/ZuMaterial.h"
#include "render/mesh/ZuRenderMesh.h"
#include "render/object/ZuRenderObject.h"
#include "render/texture/ZuTexMgr.h"
#include "render/texture/ZuTexture.h"

#include <GLES2/gl2.h>
#include <cstdio>
#include <cstring>

namespace {
const char kCharSet[] = "0123456789:.+-x%";
const int kCharSetSize = 16;
} // namespace

ZuBitFontNode::ZuBitFontNode(ZuAppMain* app) : ZuNode(app) {
    setType("ZuBitFontNode");
    setRenderOrder(RS_SPRITE);
}

void ZuBitFontNode::zuinit() {
    ZuRenderObject* object = new ZuRenderObject(app);
    setRenderObject(object);
    object->release();
    material = new ZuMaterial(app, "NormalV2CT1");
    material->setBlend(true, GL_ONE, GL_ONE_MINUS_SRC_ALPHA);
    material->setDepthTest(false);
    mesh = new ZuRenderMesh();
    mesh->setVertexType(VF_POS2 | VF_COLOR0 | VF_TEX0);
    mesh->setVertexPoolType(GL_DYNAMIC_DRAW);
    mesh->setDrawMethod(GL_TRIANGLES);
}

void ZuBitFontNode::zudestroy() {
    unlistenEvent();
    qzSafeRelease(texture);
    qzSafeRelease(material);
    qzSafeRelease(mesh);
    ZuNode::zudestroy();
}

void ZuBitFontNode::init(const char* textureName, float characterWidth) {
    charWidth = charHeight = characterWidth;
    ZuTexMgr* textures = texMgr();
    ZuTexture* strip = textures && textureName ? textures->getTextureSync(textureName, true, false) : nullptr;
    if (!strip) {
        QZLOGW("bit font node %s: no texture '%s'", m_name.c_str(), textureName ? textureName : "");
        return;
    }
    strip->retain();
    qzSafeRelease(texture);
    texture = strip;
    if (material) material->setTexture0(texture);
    setVisible(true);
    // The material flips v, so a cell's bottom edge takes v 0.
    for (int i = 0; i < kCharSetSize; ++i)
        cells[i] = {static_cast<float>(i) / kCharSetSize, 0.0f, static_cast<float>(i + 1) / kCharSetSize, 1.0f};
    text = "";
    const float ax = 0.0f, ay = 0.0f;
    for (int place = 0; place < kMaxChars; ++place) writeChar(place, 0, ax, ay);
    upload();
}

void ZuBitFontNode::writeChar(int place, int glyph, float ax, float ay) {
    const FontTexcoords& c = cells[glyph];
    const float x0 = charWidth * place - ax, x1 = charWidth * (place + 1) - ax;
    const float y0 = -ay, y1 = charHeight - ay;
    const Vertex corners[6] = {{x0, y0, 255, 255, 255, 255, c.u0, c.v0}, {x1, y0, 255, 255, 255, 255, c.u1, c.v0},
                               {x0, y1, 255, 255, 255, 255, c.u0, c.v1}, {x0, y1, 255, 255, 255, 255, c.u0, c.v1},
                               {x1, y0, 255, 255, 255, 255, c.u1, c.v0}, {x1, y1, 255, 255, 255, 255, c.u1, c.v1}};
    memcpy(&buffer[place * kVerticesPerChar], corners, sizeof corners);
}

void ZuBitFontNode::collapse(int place) {
    for (int k = 0; k < kVerticesPerChar; ++k) {
        buffer[place * kVerticesPerChar + k].x = 0.0f;
        buffer[place * kVerticesPerChar + k].y = 0.0f;
    }
}

void ZuBitFontNode::upload() {
    if (!mesh) return;
    mesh->setVertexType(VF_POS2 | VF_COLOR0 | VF_TEX0);
    mesh->setVertexNum(kMaxChars * kVerticesPerChar);
    mesh->setVertexData(buffer, sizeof buffer);
}

void ZuBitFontNode::setText(const char* newText) {
    if (!newText) return;
    const size_t length = strlen(newText);
    if (length > static_cast<size_t>(kMaxChars) || text == newText) return;
    const float w = charWidth * static_cast<float>(length);
    const float h = charHeight;
    const int column = static_cast<int>(anchor) / 3, row = static_cast<int>(anchor) % 3;
    const float ax = column * w / 2.0f, ay = row * h / 2.0f;
    for (size_t i = 0; i < length; ++i) {
        const char* found = strchr(kCharSet, newText[i]);
        // A glyph outside the strip leaves the place as it stood.
        if (found && newText[i] != '\0') writeChar(static_cast<int>(i), static_cast<int>(found - kCharSet), ax, ay);
    }
    for (int place = static_cast<int>(length); place < kMaxChars; ++place) collapse(place);
    upload();
    text = newText;
}

void ZuBitFontNode::setText(int value) {
    char digits[16];
    snprintf(digits, sizeof digits, "%d", value);
    setText(digits);
}

void ZuBitFontNode::syncPos(const char* spineName, const char* boneName) {
    syncSpine = spineName ? spineName : "";
    syncBone = boneName ? boneName : "";
    listenEvent();
    setCanProcEvent(true);
}

bool ZuBitFontNode::procEvent(ZuEvent* event) {
    if (!event || event->type != ZU_EVENT_ANIMATE_SYNC_POSITION) return true;
    auto* moved = dynamic_cast<ZuAnimateSyncPositionEvent*>(event);
    // The skeleton's name takes no part: any skeleton's bone of this name leads.
    if (moved && moved->second == syncBone) setPositionX(moved->x, moved->y, 0.0f);
    return true;
}

void ZuBitFontNode::update(float delta) {
    ZuNode::update(delta);
    ZuRenderObject* object = getRenderObject();
    if (!isVisible() || !texture || !material || !object) return;
    material->setTexcoordFlip(1.0f, -1.0f);
    material->setModelMatrix(getAbsoluteMat().m);
    ZuGlobalParam* param = app ? app->getGlobalParam() : nullptr;
    if (param && param->activeCamera) material->setVPMatrix(param->activeCamera->getVPMat());
    material->setTexture0(texture);
    object->setMaterial(material);
    object->setMesh(mesh);
}

void ZuBitFontNode::render() {
    ZuRenderObject* object = getRenderObject();
    ZuRenderScene* scene = getActiveRenderScene();
    if (!object || !scene || !texture || !isVisible()) return;
    object->pushCmd(scene, RS_SPRITE, "zuAniFrame");
}
