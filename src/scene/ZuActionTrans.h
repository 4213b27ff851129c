#pragma once

#include "scene/ZuActionBase.h"

// Debugging aid: puts a node at (400, 400). Ends at once like the base.
class ZuActionTrans : public ZuActionBase {
public:
    void run(ZuNode* node, float delta) override;
};
