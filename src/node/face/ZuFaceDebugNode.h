#pragma once

#include "scene/ZuNode.h"

class ZuMaterial;
class ZuRenderMesh;

// Development aids that draw face data in red over the picture with the
// "debugFacePt" program: the common drawing of points and line segments
// given in landmark pixels (y up), scaled onto the scene camera's plane.
// Subclasses fill the vertices each update; they carry no state that other
// parts read.
class ZuFaceDebugNode : public ZuNode {
public:
    ZuFaceDebugNode(ZuAppMain* app, unsigned drawMethod);

    void zuinit() override;
    void zudestroy() override;
    void render() override;

protected:
    // Hands this update's vertices (x, y pairs) to the draw; 0 draws nothing.
    void setVertices(const float* xy, int vertices);
    // Label of the recorded draw command.
    virtual const char* commandLabel() const = 0;
    ZuMaterial* getMaterial() const { return material; }

private:
    // Width and height of the space the landmarks are in: the frame after
    // the camera's turn, as the detectors convert them.
    bool landmarkFrame(float* width, float* height) const;

    unsigned drawMethod;
    ZuMaterial* material = nullptr;
    ZuRenderMesh* mesh = nullptr;
    int vertexCount = 0;
};
