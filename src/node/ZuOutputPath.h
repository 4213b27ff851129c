#pragma once

class Camera;
class ZuAppMain;
class ZuRenderData;
class ZuRenderMesh;

// What every output node looks up on its way from the scene target to the
// host: the shared full-screen meshes, the scene's camera record, and the
// mesh that orients the picture for a camera angle.
class ZuOutputPath {
public:
    static ZuRenderData* renderData(ZuAppMain* app);
    // Null when the engine has no configuration.
    static Camera* camera(ZuAppMain* app, const char* sceneName);
    // The turn that takes back the one the background applied, so the host
    // gets its frame in the camera's own orientation.
    static ZuRenderMesh* meshUndoingAngle(ZuRenderData* data, int angle);
    // The turn the background applied, for hosts that want the upright picture.
    static ZuRenderMesh* meshFollowingAngle(ZuRenderData* data, int angle);
};
