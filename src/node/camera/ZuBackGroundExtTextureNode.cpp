#include "node/camera/ZuBackGroundExtTextureNode.h"

#include "node/camera/BGExtTexture.h"
#include "render/material/ZuMaterial.h"
#include "render/object/ZuRenderObject.h"
#include "render/texture/ZuTexture.h"

ZuBackGroundExtTextureNode::ZuBackGroundExtTextureNode(ZuAppMain* app) : ZuBackGroundNode(app) {
    setType("ZuBackGroundExtTextureNode");
}

void ZuBackGroundExtTextureNode::zuinit() {
    inFormat = PF_BGRA;
    if (!bgTexture) bgTexture = new BGExtTexture();
    ZuBackGroundNode::zuinit();
}

void ZuBackGroundExtTextureNode::setExtTexture(ZuTexture* texture) {
    if (!bgTexture || !texture) return;
    if (texture->getid() > 0) {
        setVisible(true);
        // The host's texture may still have mipmap sampling, which without
        // mipmaps samples black: give it the engine's sampling parameters.
        texture->apply();
    }
    bgTexture->setRGBATexture(texture);
    // Always the program of the host's layout: the conversion material starts
    // with the planar program, which would misread an RGBA texture.
    if (ZuMaterial* conversion = bgTexture->getMaterial())
        conversion->AsynloadShader(app, inFormat == PF_RGBA ? "rgba" : "bgra");
}

void ZuBackGroundExtTextureNode::updateTextureId(int id) {
    ZuTexture* texture = bgTexture ? bgTexture->getRGBATexture() : nullptr;
    if (!texture || id <= 0) return;
    setVisible(true);
    texture->setid(id);
    texture->apply();
}

void ZuBackGroundExtTextureNode::update(float dt) {
    if (isVisible()) ZuBackGroundNode::update(dt);
}

void ZuBackGroundExtTextureNode::render() {
    if (isVisible()) ZuBackGroundNode::render();
}
