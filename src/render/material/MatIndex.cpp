#include "render/material/MatIndex.h"

MatIndex::~MatIndex() { delete mat; }

void MatIndex::setMatrix(ZuMat4* matrix) {
    if (matrix == mat) return;
    delete mat;
    mat = matrix;
}
