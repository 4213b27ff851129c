#pragma once

class Camera;
class ZuFboObject;
class ZuMaterial;
class ZuRenderObject;
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
    // The node's own target, named after its uid, with a swap texture and the
    // clear colour; retained for the caller. Null without a framebuffer pool.
    static ZuFboObject* claimTarget(ZuAppMain* app, int uid, int width, int height, float r, float g, float b,
                                    float a);
    // Shows target as a thumbnail in the window's top-left quarter.
    static void placeDebugThumbnail(ZuRenderData* data, ZuRenderObject* object, ZuMaterial* material,
                                    ZuFboObject* target);
};
