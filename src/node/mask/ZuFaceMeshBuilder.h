#pragma once

#include <string>
#include <vector>

// Authors the face mesh files of one tracker back end from the landmarks of
// its standard face: the landmarks, extended by the synthetic points the
// live face gets every frame (forehead half circle, then for the full face
// the lip curves, the outline around the contour and the design image's four
// corners), triangulated by DelaunayTriangle with the mouth cut open. The
// same landmarks always give the same text, so the shipped files can be
// checked against a fresh build.
class ZuFaceMeshBuilder {
public:
    struct Backend {
        const char* name;  // "as", "st", "fp", "zu"
        int landmarks;     // how many tracker points the layout uses
        int innerLipsFirst, innerLipsLast;
    };
    // The four back ends; null for an unknown name.
    static const Backend* backend(const char* name);

    // Extended points of the standard face, x, y pairs with y up. False (and
    // logged) when fewer landmarks than the layout needs are given.
    static bool extend(const Backend& backend, bool simplified, const float* landmarks, int count, float designW,
                       float designH, std::vector<float>* points);
    // Triangles over points (counter-clockwise, y up) with the mouth removed.
    static std::vector<int> triangulate(const Backend& backend, bool simplified, const std::vector<float>& points);

    // The "hg01" target face of the change-face overlay, on the AS layout: a
    // doll-like reshape of the AS standard face (eyes a quarter larger,
    // mouth smaller, jaw and chin drawn in), landmarks only.
    static bool hg01(const float* asLandmarks, int count, std::vector<float>* points);

    // The two files' text ("standerface_<name>[_simplify].json" and
    // "facemesh_<name>[_simplify].json").
    static std::string standerFaceJson(const std::vector<float>& points, int designW, int designH);
    static std::string faceMeshJson(const std::vector<int>& triangles, int vertexCount);
};
