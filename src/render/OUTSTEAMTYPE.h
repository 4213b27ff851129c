#pragma once

// Output formats a host can read finished frames in. The YUV forms carry 1.5
// bytes per pixel, packed four plane bytes to an RGBA pixel before read-back.
enum OUTSTEAMTYPE : int {
    OST_NV12 = 0,
    OST_RGBA = 1,
    OST_NV21 = 2,
    OST_YV12 = 3,
    OST_I420 = 4,
    OST_BGRA = 5,
};

// Rows of the packed framebuffer that hold a YUV frame: 0.375 of the height, at least one.
inline int zuYuvReadRows(int height) {
    int rows = static_cast<int>(height * 0.375);
    return rows < 1 ? 1 : rows;
}

inline bool zuIsPackedRgbFormat(int format) { return format == OST_RGBA || format == OST_BGRA; }
