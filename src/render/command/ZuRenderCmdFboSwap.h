#pragma once

#include "render/command/ZuRenderCmd.h"

// Exchanges the bound target's two colour textures: the next draw samples
// what was drawn so far and writes into the other one.
class ZuRenderCmdFboSwap : public ZuRenderCmd {
public:
    void render() override;
};
