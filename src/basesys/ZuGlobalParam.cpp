#include "basesys/ZuGlobalParam.h"

void ZuGlobalParam::setBgTexture(const char* sceneName, BGTexture* texture) {
    m_bgTextures.insert(qz::string(sceneName), texture);
}

BGTexture* ZuGlobalParam::getBgTexture(const char* sceneName) {
    auto* node = m_bgTextures.find(sceneName ? sceneName : "");
    return node ? node->getValue() : nullptr;
}

void ZuGlobalParam::removeBgTexture(const char* sceneName) { m_bgTextures.remove(qz::string(sceneName)); }

void ZuGlobalParam::clear() {
    activeScene = nullptr;
    activeCamera = nullptr;
    activeRenderScene = nullptr;
    m_bgTextures.clear();
}
