#pragma once

class ZuNode;

// Hands level, direction and bear value to a shader small-face warp made by
// its type tag (the warps live beside the grid morphs in node/morph/).
class ZuSmallFaceSetup {
public:
    // Returns false when the node is no small-face warp.
    static bool apply(ZuNode* node, float level, bool small, float bearValue);
};
