#include "parse/ZuSmallFaceSetup.h"

#include "scene/ZuNode.h"

// The warps come from the small-face family; each header is optional so
// that the item parsers build before that family is part of the engine.
#if __has_include("node/morph/ZuSmallFaceNode.h")
#include "node/morph/ZuSmallFaceNode.h"
#define QZ_HAS_SMALL_FACE 1
#endif
#if __has_include("node/morph/ZuKejiSmallShortFaceNode.h")
#include "node/morph/ZuKejiSmallShortFaceNode.h"
#define QZ_HAS_KEJI_FACE 1
#endif
#if __has_include("node/morph/ZuPigFaceNode.h")
#include "node/morph/ZuPigFaceNode.h"
#define QZ_HAS_PIG_FACE 1
#endif

bool ZuSmallFaceSetup::apply(ZuNode* node, float level, bool small, float bearValue) {
    (void)level, (void)small, (void)bearValue;
#ifdef QZ_HAS_KEJI_FACE
    if (auto* keji = dynamic_cast<ZuKejiSmallShortFaceNode*>(node)) {
        keji->setSceneName(node->getSceneName().c_str());
        keji->setSmallLevel(level);
        keji->setIsSmall(small);
        keji->setBearValue(bearValue);
        return true;
    }
#endif
#ifdef QZ_HAS_PIG_FACE
    if (auto* pig = dynamic_cast<ZuPigFaceNode*>(node)) {
        pig->setSceneName(node->getSceneName().c_str());
        pig->setSmallLevel(level);
        pig->setIsSmall(small);
        return true;
    }
#endif
#ifdef QZ_HAS_SMALL_FACE
    if (auto* face = dynamic_cast<ZuSmallFaceNode*>(node)) {
        face->setSceneName(node->getSceneName().c_str());
        face->setSmallLevel(level);
        face->setIsSmall(small);
        return true;
    }
#endif
    return false;
}
