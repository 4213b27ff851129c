#include "logicsys/Animate2D/ZuBMFontNode.h"

#include "basesys/ZuAppMain.h"
#include "basesys/ZuGlobalMgr.h"
#include "basesys/ZuGlobalParam.h"
#include "basesys/ZuUtil.h"
#include "logicsys/Animate2D/ZuBMFontConfiguration.h"
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

ZuBMFontNode::ZuBMFontNode(ZuAppMain* app) : ZuNode(app) {
    setType("ZuBMFontNode");
    setRenderOrder(RS_SPRITE);
}

void ZuBMFontNode::zuinit() {
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

void ZuBMFontNode::zudestroy() {
    qzSafeRelease(config);
    qzSafeRelease(texture);
    qzSafeRelease(material);
    qzSafeRelease(mesh);
    ZuNode::zudestroy();
}

void ZuBMFontNode::init(const char* path) {
    ZuBMFontConfiguration* read = ZuBMFontConfiguration::create(app, path);
    if (!read) return;
    qzSafeRelease(config);
    config = read;
    ZuTexMgr* textures = texMgr();
    ZuTexture* atlas = textures ? textures->getTextureSync(config->getAtlasName().c_str()) : nullptr;
    qzAssignRetained(texture, atlas);
    setVisible(true);
    setScaleX(1.0f, 1.0f, 1.0f);
    setFontSize(config->getDefFontSize());
}

void ZuBMFontNode::setFontSize(int size) {
    fontSize = size;
    const int base = config ? config->getDefFontSize() : 0;
    if (base <= 0) return;  // no size to scale from; render skips the node
    const float k = static_cast<float>(size) / static_cast<float>(base);
    setScaleX(k, k, 1.0f);
}

void ZuBMFontNode::setText(const char* newText) {
    if (!newText || !config) return;
    text = newText;
    vertices.clear();
    glyphCount = 0;
    const float pageW = texture ? static_cast<float>(texture->getwidth()) : 0.0f;
    const float pageH = texture ? static_cast<float>(texture->getheight()) : 0.0f;
    const float common = static_cast<float>(config->getCommonHeight());
    float pen = 0.0f;
    const size_t length = strlen(newText);
    for (size_t i = 0; i < length; ++i) {
        int code = static_cast<unsigned char>(newText[i]);
        if (code & 0x80) {
            // Three-byte characters; one cut by the end of the text is dropped.
            code = ZuUtil::FromUTF8(newText + i, length - i);
            i += 2;
            if (code < 0) {
                QZLOGW("bitmap font node %s: broken character in the text; skipped", m_name.c_str());
                continue;
            }
        }
        const _BMFontDef* def = config->getBMFontDef(code);
        if (!def || !(pageW > 0.0f) || !(pageH > 0.0f)) continue;
        const float u0 = def->x / pageW, u1 = (def->x + def->width) / pageW;
        const float v0 = def->y / pageH, v1 = (def->y + def->height) / pageH;
        const float x0 = pen + def->xOffset, x1 = x0 + def->width;
        const float y0 = common - def->height - def->yOffset, y1 = y0 + def->height;
        // The material flips v: the bottom row takes the glyph's top edge.
        const Vertex quad[6] = {{x0, y0, 255, 255, 255, 255, u0, v0}, {x1, y0, 255, 255, 255, 255, u1, v0},
                                {x0, y1, 255, 255, 255, 255, u0, v1}, {x0, y1, 255, 255, 255, 255, u0, v1},
                                {x1, y0, 255, 255, 255, 255, u1, v0}, {x1, y1, 255, 255, 255, 255, u1, v1}};
        for (const Vertex& v : quad) vertices.push_back(v);
        pen += def->width + def->xOffset;
        glyphCount++;
    }
    if (!mesh) return;
    mesh->setVertexNum(static_cast<int>(vertices.size()));
    if (vertices.size() > 0) mesh->setVertexData(&vertices[0], static_cast<int>(vertices.size() * sizeof(Vertex)));
}

void ZuBMFontNode::setText(int value) {
    char digits[16];
    snprintf(digits, sizeof digits, "%d", value);
    setText(digits);
}

void ZuBMFontNode::update(float delta) {
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

void ZuBMFontNode::render() {
    ZuRenderObject* object = getRenderObject();
    ZuRenderScene* scene = getActiveRenderScene();
    if (!object || !scene || !texture || !isVisible() || glyphCount == 0) return;
    if (!config || config->getDefFontSize() <= 0) return;
    object->pushCmd(scene, RS_SPRITE, "zuAniFrame");
}
