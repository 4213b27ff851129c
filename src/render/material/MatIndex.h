#pragma once

#include "basesys/ZuObject.h"
#include "render/math/ZuMat4.h"

// One named matrix of a ZuMatSet, with whether its object shows.
class MatIndex : public ZuObject {
public:
    MatIndex() = default;
    ~MatIndex() override;

    // Takes ownership of matrix (deleted with the entry).
    void setMatrix(ZuMat4* matrix);
    ZuMat4* getMatrix() const { return mat; }
    void setVisible(bool value) { visible = value; }
    bool getVisible() const { return visible; }

private:
    ZuMat4* mat = nullptr;
    bool visible = true;
};
