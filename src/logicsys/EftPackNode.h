#pragma once

class ZuNode;

// A node shown for a limited time, outside any package.
struct EftPackNode {
    float time = 0.0f;  // seconds left
    ZuNode* node = nullptr;  // retained
};
