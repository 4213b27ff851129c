#include "node/morph/ZuFaceBearNode.h"

#include <algorithm>
#include <cmath>

ZuFaceBearNode::ZuFaceBearNode(ZuAppMain* app) : ZuFaceMorphNode(app) { setType("ZuFaceBearNode"); }

void ZuFaceBearNode::zuinit() {
    ZuFaceMorphNode::zuinit();
    const float x[8] = {-1, -2, -6, -2, -2, -2, 0, 0};
    const float y[8] = {-1, -2, -2, -2, -2, -2, 0, 0};
    const float reach[8] = {1, 1, 1, 2, 2, 2, 2, 2};
    std::copy(x, x + 8, deltaX);
    std::copy(y, y + 8, deltaY);
    std::copy(reach, reach + 8, reachFactor);
    ddScale = 0.8f;
    bearRatio = 0.85f;
}

void ZuFaceBearNode::setParameter(float value, float* dX, float* dY) {
    ZuFaceMorphNode::setParameter(value, dX, dY);
    strength = 3.0f;
    bearRatio = parameter;
}

void ZuFaceBearNode::reset() {
    ZuFaceMorphNode::reset();
    bearRatio = 0.85f;
}

void ZuFaceBearNode::doBear() {
    if (!squeezeUpright()) squeezeOnSide();
}

// The push grows from the eyes to the chin, fades to nothing at a point as
// far below the chin as the chin is below the eyes, and fades sideways
// within twice the local depth outside the face.
bool ZuFaceBearNode::squeezeUpright() {
    const float* c = contour;
    float x0 = c[0], y0 = c[1], x16 = c[32], y16 = c[33];
    if (x0 == x16) return false;
    float slope = (y16 - y0) / (x16 - x0);
    if (!(slope > -0.5f && slope < 0.5f)) return false;
    float eye = (y0 + y16) * 0.5f, chin = c[17], end = 2.0f * chin - eye;
    float lo = std::min(x0, x16), hi = std::max(x0, x16);
    auto rowOf = [&](float v) { return static_cast<int>((v + 1.0f) * 0.5f * gridHeight); };
    int rowEye = rowOf(eye), rowChin = rowOf(chin), rowEnd = rowOf(end);
    if (rowChin < 3 || rowChin >= gridHeight - 1) return true;  // the chin at the edge: give up
    if (rowChin <= rowEye && rowEnd <= rowChin) {
        rowEye -= 1, rowEnd += 1, rowChin += 1;
    } else if (rowEye <= rowChin && rowChin <= rowEnd) {
        rowEye += 1, rowEnd -= 1, rowChin -= 1;
    } else {
        return false;
    }
    rowEye = std::min(std::max(rowEye, 0), gridHeight);
    rowEnd = std::min(std::max(rowEnd, 0), gridHeight);
    rowChin = std::min(std::max(rowChin, 0), gridHeight - 1);
    float amount = (chin - eye) * (1.0f - bearRatio);
    auto squeezeRow = [&](int row, float m, float t) {
        float u = 2.0f * t;
        for (int col = 0; col <= gridWidth; ++col) {
            float x = col * 2.0f / gridWidth - 1.0f, dl = x - lo, dr = x - hi;
            if (!(t <= 0.0f || (-u <= dl && dr <= u))) continue;
            float mm = m;
            if (dl < 0.0f && dl >= -u) mm -= mm * dl / -u;
            else if (dr > 0.0f && dr <= u) mm -= mm * dr / u;
            working[(col + (gridWidth + 1) * row) * 2 + 1] -= mm;
        }
    };
    int step = rowChin >= rowEye ? 1 : -1;
    if (rowChin != rowEye)
        for (int row = rowEye; row != rowChin; row += step) {
            float y = row * 2.0f / gridHeight - 1.0f;
            squeezeRow(row, amount * (row - rowEye) / (rowChin - rowEye), -(y - eye));
        }
    if (rowEnd != rowChin) {
        step = rowEnd >= rowChin ? 1 : -1;
        for (int row = rowChin;; row += step) {
            float y = row * 2.0f / gridHeight - 1.0f;
            squeezeRow(row, amount * (rowEnd - row) / (rowEnd - rowChin), -((chin - eye) - (y - chin)));
            if (row == rowEnd) break;
        }
    }
    return true;
}

// A face lying on its side: the same with rows and columns exchanged, a
// fixed amount and a narrower sideways fade.
bool ZuFaceBearNode::squeezeOnSide() {
    const float* c = contour;
    float x0 = c[0], y0 = c[1], x16 = c[32], y16 = c[33];
    if (y0 == y16) return false;
    float slope = (x16 - x0) / (y16 - y0);
    if (!(slope > -0.5f && slope < 0.5f)) return false;
    float eye = (c[2] + c[30]) * 0.5f, chin = c[16], end = 2.0f * chin - eye;
    float lo = std::min(y0, y16), hi = std::max(y0, y16);
    auto colOf = [&](float v) { return static_cast<int>((v + 1.0f) * 0.5f * gridWidth); };
    int colEye = colOf(eye), colChin = colOf(chin), colEnd = colOf(end);
    if (!(colChin > 2 && colChin < gridWidth - 1)) return true;
    float sign;
    if (colEye >= colChin && colChin >= colEnd) {
        colEye -= 1, colEnd += 1, colChin += 1, sign = 1.0f;
    } else if (colEye <= colChin && colChin <= colEnd) {
        colEye += 1, colEnd -= 1, colChin += 2, sign = -1.0f;
    } else {
        return false;
    }
    colEye = std::min(std::max(colEye, 0), gridWidth);
    colEnd = std::min(std::max(colEnd, 0), gridWidth);
    colChin = std::min(std::max(colChin, 0), gridWidth - 1);
    float amount = 1.0f - bearRatio;
    auto squeezeColumn = [&](int col, float m, float t) {
        float u = t * 0.5f;
        for (int row = 0; row <= gridHeight; ++row) {
            float y = row * 2.0f / gridHeight - 1.0f, dl = y - lo, dr = y - hi;
            if (!(t <= 0.0f || (-u <= dl && dr <= u))) continue;
            float mm = m;
            if (dl < 0.0f && dl >= -u) mm -= mm * dl / -u;
            else if (dr > 0.0f && dr <= u) mm -= mm * dr / u;
            working[(col + (gridWidth + 1) * row) * 2] += sign * mm;
        }
    };
    int step = colChin >= colEye ? 1 : -1;
    if (colChin != colEye)
        for (int col = colEye; col != colChin; col += step) {
            float x = col * 2.0f / gridWidth - 1.0f;
            squeezeColumn(col, amount * (col - colEye) / (colChin - colEye), -(x - eye));
        }
    if (colEnd != colChin) {
        step = colEnd >= colChin ? 1 : -1;
        for (int col = colChin;; col += step) {
            float x = col * 2.0f / gridWidth - 1.0f;
            squeezeColumn(col, amount * (colEnd - col) / (colEnd - colChin), -((chin - eye) - (x - chin)));
            if (col == colEnd) break;
        }
    }
    return true;
}
