#pragma once

// An axis-aligned rectangle held by its four edges.
struct ZuRect {
    float left = 0.0f, right = 0.0f, top = 0.0f, bottom = 0.0f;

    ZuRect() = default;
    ZuRect(float left, float right, float top, float bottom)
        : left(left), right(right), top(top), bottom(bottom) {}
};
