#include "node/mask/ZuFaceMeshBuilder.h"

#include "person/ZuASPointExt.h"
#include "person/ZuFPPointExt.h"
#include "person/ZuPointExt.h"
#include "person/ZuSTPointExt.h"
#include "person/ZuZUPointExt.h"
#include "platform/ZuLog.h"
#include "render/math/DelaunayTriangle.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>

namespace {

using Ext = void (*)(float*, int&);
struct Steps {
    Ext halfCircle, lips, outline;
};

Steps stepsOf(const char* name) {
    if (std::strcmp(name, "as") == 0)
        return {ZuASPointExt::as_foreHeadPointExtHaleCircleWithFaceLandMark, ZuASPointExt::as_lipsPointExtWithFaceLandMark,
                ZuASPointExt::as_faceOutlinePointExtWithFaceLandMark};
    if (std::strcmp(name, "st") == 0)
        return {ZuSTPointExt::st_foreHeadPointExtHaleCircleWithFaceLandMark, ZuSTPointExt::st_lipsPointExtWithFaceLandMark,
                ZuSTPointExt::st_faceOutlinePointExtWithFaceLandMark};
    if (std::strcmp(name, "fp") == 0)
        return {ZuFPPointExt::fp_foreHeadPointExtHaleCircleWithFaceLandMark, ZuFPPointExt::fp_lipsPointExtWithFaceLandMark,
                ZuFPPointExt::fp_faceOutlinePointExtWithFaceLandMark};
    return {ZuZUPointExt::zu_foreHeadPointExtHaleCircleWithFaceLandMark, ZuZUPointExt::zu_lipsPointExtWithFaceLandMark,
            ZuZUPointExt::zu_faceOutlinePointExtWithFaceLandMark};
}

// The inner lip curve is the first part of the lip points: three curve points
// per inner lip landmark.
int innerCurveCount(const ZuFaceMeshBuilder::Backend& b) { return 3 * (b.innerLipsLast - b.innerLipsFirst + 1); }

// Shortest text that reads back as the same float.
void appendNumber(std::string* out, float v) {
    char text[32];
    for (int digits = 1; digits <= 9; ++digits) {
        std::snprintf(text, sizeof text, "%.*g", digits, static_cast<double>(v));
        if (std::strtof(text, nullptr) == v) break;
    }
    *out += text;
}

} // namespace

const ZuFaceMeshBuilder::Backend* ZuFaceMeshBuilder::backend(const char* name) {
    static const Backend kBackends[] = {{"as", 101, 87, 94}, {"st", 106, 96, 103}, {"fp", 106, 96, 103}, {"zu", 68, 60, 67}};
    for (const Backend& b : kBackends)
        if (name && std::strcmp(name, b.name) == 0) return &b;
    return nullptr;
}

bool ZuFaceMeshBuilder::extend(const Backend& backend, bool simplified, const float* landmarks, int count, float designW,
                               float designH, std::vector<float>* points) {
    if (!landmarks || count < backend.landmarks || !points) {
        QZLOGW("face mesh builder: %s needs %d landmarks, got %d", backend.name, backend.landmarks, count);
        return false;
    }
    float buffer[800] = {};
    std::copy(landmarks, landmarks + backend.landmarks * 2, buffer);
    int n = backend.landmarks;
    const Steps steps = stepsOf(backend.name);
    steps.halfCircle(buffer, n);
    if (!simplified) {
        steps.lips(buffer, n);
        steps.outline(buffer, n);
        const float corners[4][2] = {{0, 0}, {designW, 0}, {designW, designH}, {0, designH}};
        for (const auto& c : corners) {
            buffer[n * 2] = c[0];
            buffer[n * 2 + 1] = c[1];
            ++n;
        }
    }
    points->assign(buffer, buffer + n * 2);
    return true;
}

std::vector<int> ZuFaceMeshBuilder::triangulate(const Backend& backend, bool simplified, const std::vector<float>& points) {
    const int n = static_cast<int>(points.size() / 2);
    DelaunayTriangle delaunay(0.0f, 0.0f);
    if (!delaunay.setAllPoints(points.data(), n)) return {};
    delaunay.generateTriangles();
    // The mouth opens: inner lip landmarks and, on the full face, their curve.
    std::vector<int> mouth;
    for (int i = backend.innerLipsFirst; i <= backend.innerLipsLast; ++i) mouth.push_back(i);
    if (!simplified) {
        const int curveFirst = backend.landmarks + 8;
        for (int i = 0; i < innerCurveCount(backend); ++i) mouth.push_back(curveFirst + i);
    }
    delaunay.deleteEachOtherTriangles(mouth.data(), static_cast<int>(mouth.size()));
    std::vector<int> out;
    const qz::array<DTriangle> triangles = delaunay.getTriangle();
    for (uint32_t t = 0; t < triangles.size(); ++t) {
        int a = triangles[t].a, b = triangles[t].b, c = triangles[t].c;
        const float* pa = &points[a * 2];
        const float* pb = &points[b * 2];
        const float* pc = &points[c * 2];
        const float cross = (pb[0] - pa[0]) * (pc[1] - pa[1]) - (pb[1] - pa[1]) * (pc[0] - pa[0]);
        if (cross == 0.0f) continue;
        if (cross < 0.0f) std::swap(b, c);
        out.insert(out.end(), {a, b, c});
    }
    return out;
}

bool ZuFaceMeshBuilder::hg01(const float* landmarks, int count, std::vector<float>* points) {
    if (!landmarks || count < 101 || !points) return false;
    points->assign(landmarks, landmarks + 202);
    std::vector<float>& p = *points;
    auto scaleAbout = [&](int first, int last, float cx, float cy, float sx, float sy) {
        for (int i = first; i <= last; ++i) {
            p[i * 2] = cx + (p[i * 2] - cx) * sx;
            p[i * 2 + 1] = cy + (p[i * 2 + 1] - cy) * sy;
        }
    };
    // Eyes (rim and pupil) a quarter larger about their pupils.
    scaleAbout(39, 50, landmarks[95 * 2], landmarks[95 * 2 + 1], 1.25f, 1.25f);
    scaleAbout(51, 62, landmarks[96 * 2], landmarks[96 * 2 + 1], 1.25f, 1.25f);
    // Lips a sixth smaller about the mouth's centre.
    const float mx = 0.5f * (landmarks[75 * 2] + landmarks[81 * 2]);
    const float my = 0.5f * (landmarks[78 * 2 + 1] + landmarks[84 * 2 + 1]);
    scaleAbout(75, 94, mx, my, 0.85f, 0.85f);
    // The jaw drawn towards the centre line, most at the chin, and the chin raised.
    const float centre = landmarks[9 * 2], ear = landmarks[0 * 2 + 1], chin = landmarks[9 * 2 + 1];
    for (int i = 0; i <= 18; ++i) {
        const float down = (ear - p[i * 2 + 1]) / (ear - chin); // 0 at the ears, 1 at the chin
        const float pull = 0.15f * std::max(0.0f, std::min(1.0f, down));
        p[i * 2] = centre + (p[i * 2] - centre) * (1.0f - pull);
        p[i * 2 + 1] += 0.08f * (ear - chin) * std::max(0.0f, down) * down;
    }
    return true;
}

std::string ZuFaceMeshBuilder::standerFaceJson(const std::vector<float>& points, int designW, int designH) {
    const int n = static_cast<int>(points.size() / 2);
    float minX = 1e9f, maxX = -1e9f, minY = 1e9f, maxY = -1e9f;
    for (int i = 0; i < n; ++i) {
        minX = std::min(minX, points[i * 2]), maxX = std::max(maxX, points[i * 2]);
        minY = std::min(minY, points[i * 2 + 1]), maxY = std::max(maxY, points[i * 2 + 1]);
    }
    // The rectangle encloses every point: outward to whole pixels.
    char head[400];
    std::snprintf(head, sizeof head,
                  "{\"param\":{\"facepoints_count\":%d,\"face_top\":%d,\"face_left\":%d,\"face_bottom\":%d,"
                  "\"face_right\":%d,\"face_yaw\":0.0,\"face_roll\":0.0,\"face_pitch\":0.0,\"design_img_width\":%d,"
                  "\"design_img_height\":%d},\"data\":[",
                  n, static_cast<int>(std::ceil(maxY)), static_cast<int>(std::floor(minX)),
                  static_cast<int>(std::floor(minY)), static_cast<int>(std::ceil(maxX)), designW, designH);
    std::string out = head;
    for (size_t i = 0; i < points.size(); ++i) {
        if (i) out += ',';
        appendNumber(&out, points[i]);
    }
    out += "]}\n";
    return out;
}

std::string ZuFaceMeshBuilder::faceMeshJson(const std::vector<int>& triangles, int vertexCount) {
    std::string out = "{\"param\":{\"tricount\":" + std::to_string(triangles.size() / 3) +
                      ",\"vertexcount\":" + std::to_string(vertexCount) + "},\"data\":[";
    for (size_t i = 0; i < triangles.size(); ++i) {
        if (i) out += ',';
        out += std::to_string(triangles[i]);
    }
    out += "]}\n";
    return out;
}
