#pragma once

class ZuAppMain;

// The size of a camera's picture as the scene shows it: the record's frame
// with width and height exchanged for a quarter turn. Style passes step one
// picture pixel at a time with it.
class ZuCameraPictureSize {
public:
    // False, and 1 x 1, when there is no configuration or the record holds
    // no usable size.
    static bool of(ZuAppMain* app, const char* cameraName, int* width, int* height);
};
