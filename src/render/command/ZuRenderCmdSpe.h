#pragma once

#include "render/command/ZuRenderCmdNor.h"

// The draw command that holds references on its mesh and material, for
// callers whose mesh may go before the frame replays.
class ZuRenderCmdSpe : public ZuRenderCmdNor {
public:
    ZuRenderCmdSpe() = default;
    ~ZuRenderCmdSpe() override;
    void setMesh(ZuRenderMesh* value) override;
    void setMaterial(ZuMaterial* value) override;
};
