#pragma once

class ZuAppMain;
class ZuNode;
class ZuRenderCamera;

// The picture that live landmarks are measured in, for nodes that draw on
// them: its size (the scene camera's after rotation; FP records are
// converted in the scene's window size) and the model matrix that lays those
// pixels onto the plane the scene camera shows.
class ZuFaceFrame {
public:
    // False when the node has no camera or the size is not positive.
    static bool size(const ZuNode* node, float* width, float* height);
    // Scales frame pixels onto the camera plane; identity when unknown.
    static void modelMatrix(const ZuRenderCamera* camera, float frameW, float frameH, float out[16]);
    // Frame pixel (x, y) of a w x h frame as 0..1 coordinates of the camera
    // picture, which keeps the camera's orientation: the landmarks' turn by
    // angle (0, 90, 180, 270) undone.
    static void toCamera(float x, float y, float w, float h, int angle, float* u, float* v);
    // The scene camera of the moment, or null.
    static ZuRenderCamera* camera(ZuAppMain* app);
};
