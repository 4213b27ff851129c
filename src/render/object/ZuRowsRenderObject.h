#pragma once

#include "render/object/ZuRenderObject.h"

// Makes one ZuRenderCmdRows a frame: its mesh and material drawn over the
// bottom rows of the target only.
class ZuRowsRenderObject : public ZuRenderObject {
public:
    explicit ZuRowsRenderObject(ZuAppMain* app) : ZuRenderObject(app) {}
    void pushCmd(ZuRenderScene* scene, RENDERSTREAMTYPE stream, const char* label) override;

    void setRows(int value) { rows = value; }
    int getRows() const { return rows; }

private:
    int rows = 0;
};
