#pragma once

class ZuNode;

// Hands level, direction and bear value to a shader small-face warp made by
// its type tag. The warps' classes live beside the grid morphs; where a
// build has none of them the node keeps its own defaults.
class ZuSmallFaceSetup {
public:
    // Returns false when the node is no warp this build knows.
    static bool apply(ZuNode* node, float level, bool small, float bearValue);
};
