#pragma once

// Pixel formats of camera frames pushed by the host.
enum CAMERAIMAGEFORMATE {
    CIF_GRAY = 0, // one plane
    CIF_YV12 = 1, // Y, then V, then U
    CIF_I420 = 2, // Y, then U, then V
    CIF_NV12 = 3, // Y, then interleaved U V
    CIF_NV21 = 4, // Y, then interleaved V U
    CIF_BGRA = 5,
    CIF_RGB = 6,
    CIF_RGBA = 7,
    CIF_NONE = 8,
};

// The format's name as logs show it ("NV21"); "unknown" outside the list.
inline const char* cameraFormatName(int format) {
    static const char* const names[] = {"GRAY", "YV12", "I420", "NV12", "NV21", "BGRA", "RGB", "RGBA", "NONE"};
    return format >= 0 && format <= CIF_NONE ? names[format] : "unknown";
}

// Bytes of one frame of that format and size; 0 for CIF_NONE and unknown values.
inline int cameraFrameSize(int format, int width, int height) {
    if (width <= 0 || height <= 0) return 0;
    switch (format) {
    case CIF_GRAY: return width * height;
    case CIF_YV12:
    case CIF_I420:
    case CIF_NV12:
    case CIF_NV21: return static_cast<int>(width * height * 1.5);
    case CIF_BGRA:
    case CIF_RGBA: return static_cast<int>(width * height * 4.0);
    case CIF_RGB: return static_cast<int>(width * height * 3.0);
    default: return 0;
    }
}
