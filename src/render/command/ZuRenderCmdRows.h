#pragma once

#include "render/command/ZuRenderCmdNor.h"

// A draw limited to the bottom rows of the bound target. For a pass whose
// consumer reads only those rows (the packed planar output), the pixels above
// would be shaded for nobody; they keep what the target held.
class ZuRenderCmdRows : public ZuRenderCmdNor {
public:
    ZuRenderCmdRows(ZuRenderMesh* mesh, ZuMaterial* material, int rows)
        : ZuRenderCmdNor(mesh, material), rows(rows) {}
    void render() override;

private:
    int rows;
};
