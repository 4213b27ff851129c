#pragma once

#include "basesys/ZuRefObject.h"

class ZuRenderMesh;

// The full-screen rectangles every screen pass draws on, with their rotated
// forms and the four quarter-screen debug thumbnails. All use the screen
// rectangle format (position, colour, texture coordinate; 0x1101), white,
// vertices bottom-left, bottom-right, top-left, top-right, indices
// 0, 1, 2, 2, 1, 3.
class ZuRenderData : public ZuRefObject {
public:
    ZuRenderData() = default;
    ~ZuRenderData() override;

    // Makes the eight meshes (their buffers upload at the first draw).
    void init();
    // Releases them; the GL buffers go with the last reference, GL thread only.
    void destroy();

    // A new w x h rectangle centred on the origin; the caller owns the reference.
    static ZuRenderMesh* createRectMesh(float w, float h);
    // A new grid of cols x rows vertices spanning +-halfW, +-halfH, row by row
    // from the bottom; null (and a logged refusal) below 2 x 2 or beyond what
    // 16-bit indices reach.
    static ZuRenderMesh* createRectMesh(float halfW, float halfH, int cols, int rows);

    // The rectangle that turns a camera image upright for a camera angle of 0,
    // 90, 180 or 270 degrees, and the one that turns it back; null for any
    // other angle.
    ZuRenderMesh* meshFollowingAngle(int angle) const;
    ZuRenderMesh* meshUndoingAngle(int angle) const;

    // Kept for callers of the older interface; does nothing.
    void adapt(int, int&, int&, int, int) {}

    ZuRenderMesh* meshFull = nullptr;
    ZuRenderMesh* meshRot90 = nullptr;
    ZuRenderMesh* meshRot180 = nullptr;
    ZuRenderMesh* meshRot270 = nullptr;
    ZuRenderMesh* meshTopLeft = nullptr;
    ZuRenderMesh* meshTopRight = nullptr;
    ZuRenderMesh* meshBottomLeft = nullptr;
    ZuRenderMesh* meshBottomRight = nullptr;
};
