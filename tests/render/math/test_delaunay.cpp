// The Delaunay triangulator and its Graham helpers on random and face point
// sets, with duplicates and collinear input, and the shipped face meshes
// checked against a fresh build from their standard faces.
#include "basesys/ZuRandom.h"
#include "node/mask/ZuFaceMeshBuilder.h"
#include "render/math/DelaunayTriangle.h"
#include "render/math/GrahamFrame.h"
#include "support/LogCapture.h"

#include <gtest/gtest.h>
#include <rapidjson/document.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <vector>

namespace {

std::string readText(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return std::string((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
}

std::vector<float> standardFace(const char* name) {
    rapidjson::Document doc;
    const std::string text = readText(std::string(QZ_SOURCE_DIR) + "/assets/shader/mesh/standerface_" + name + ".json");
    doc.Parse(text.c_str());
    std::vector<float> points;
    if (doc.HasParseError() || !doc.IsObject()) return points;
    for (const auto& v : doc["data"].GetArray()) points.push_back(v.GetFloat());
    return points;
}

// Every input point is a vertex, and no circumcircle (in doubles, with a
// relative margin for the f32 arithmetic) holds another point.
void expectDelaunay(const std::vector<float>& p, const DelaunayTriangle& d, const std::set<int>& skipped = {}) {
    const int n = static_cast<int>(p.size() / 2);
    const qz::array<DTriangle> tris = d.getTriangle();
    ASSERT_GT(tris.size(), 0u);
    std::set<int> used;
    for (uint32_t t = 0; t < tris.size(); ++t) {
        const int ids[3] = {tris[t].a, tris[t].b, tris[t].c};
        for (int id : ids) {
            ASSERT_GE(id, 0);
            ASSERT_LT(id, n) << "a frame corner survived";
            used.insert(id);
        }
        const double x1 = p[ids[0] * 2], y1 = p[ids[0] * 2 + 1], x2 = p[ids[1] * 2], y2 = p[ids[1] * 2 + 1];
        const double x3 = p[ids[2] * 2], y3 = p[ids[2] * 2 + 1];
        const double den = 2 * (x1 * (y2 - y3) + x2 * (y3 - y1) + x3 * (y1 - y2));
        ASSERT_NE(den, 0.0);
        const double s1 = x1 * x1 + y1 * y1, s2 = x2 * x2 + y2 * y2, s3 = x3 * x3 + y3 * y3;
        const double cx = (s1 * (y2 - y3) + s2 * (y3 - y1) + s3 * (y1 - y2)) / den;
        const double cy = (s1 * (x3 - x2) + s2 * (x1 - x3) + s3 * (x2 - x1)) / den;
        const double r = std::hypot(x1 - cx, y1 - cy);
        for (int i = 0; i < n; ++i) {
            if (i == ids[0] || i == ids[1] || i == ids[2] || skipped.count(i)) continue;
            EXPECT_GE(std::hypot(p[i * 2] - cx, p[i * 2 + 1] - cy), r * (1 - 1e-4))
                << "point " << i << " inside the circle of " << ids[0] << "," << ids[1] << "," << ids[2];
        }
    }
    for (int i = 0; i < n; ++i) {
        if (!skipped.count(i)) {
            EXPECT_TRUE(used.count(i)) << "point " << i << " is no vertex";
        }
    }
}

} // namespace

TEST(Delaunay, FirstPointSplitsTheFrameAndFrameEdgesKeepTheirMark) {
    DelaunayTriangle d(10, 10);
    d.addPoint(0, 0, 0, 10), d.addPoint(10, 0, 0, 11), d.addPoint(10, 10, 0, 12), d.addPoint(0, 10, 0, 13);
    d.makeEdge(10, 11, -1), d.makeEdge(11, 12, -1), d.makeEdge(12, 13, -1), d.makeEdge(13, 10, -1);
    d.makeTriangle(10, 11, 12), d.makeTriangle(10, 12, 13);
    EXPECT_FALSE(d.addPoint(5, 5, 0, 12)) << "a repeated id changes nothing";
    ASSERT_TRUE(d.addPoint(3, 4, 0, 0));
    EXPECT_EQ(d.getTriangle().size(), 4u);
    const qz::array<DEdge> edges = d.getEdges();
    int frame = 0, inner = 0;
    for (uint32_t e = 0; e < edges.size(); ++e) (edges[e].count == -1 ? frame : inner) += 1;
    EXPECT_EQ(frame, 4);
    EXPECT_EQ(inner, 4);
}

TEST(Delaunay, RandomAndFacePointSetsAreDelaunayWithEveryPointAVertex) {
    ZuRandom random(7);
    for (int round = 0; round < 5; ++round) {
        std::vector<float> p;
        const int n = round == 0 ? 396 : 50 + 60 * round;
        for (int i = 0; i < n; ++i) p.insert(p.end(), {random.rangeFloatGrain(0, 700), random.rangeFloatGrain(0, 1000)});
        DelaunayTriangle d(700, 1000);
        ASSERT_TRUE(d.setAllPoints(p.data(), n));
        d.generateTriangles();
        expectDelaunay(p, d);
    }
    for (const char* name : {"as", "st", "zu"}) {
        SCOPED_TRACE(name);
        const std::vector<float> face = standardFace(name);
        ASSERT_FALSE(face.empty());
        DelaunayTriangle d(700, 1004);
        ASSERT_TRUE(d.setAllPoints(face.data(), static_cast<int>(face.size() / 2)));
        d.generateTriangles();
        expectDelaunay(face, d);
    }
}

TEST(Delaunay, AbandonedHolesDuplicatesAndCollinearPoints) {
    // An abandoned id takes no part.
    std::vector<float> grid;
    for (int y = 0; y < 5; ++y)
        for (int x = 0; x < 5; ++x) grid.insert(grid.end(), {x * 10.0f + 0.01f * y, y * 10.0f + 0.013f * x});
    {
        DelaunayTriangle d(50, 50);
        d.setAllPoints(grid.data(), 25);
        const int dropped[] = {12};
        d.setAbandonedPointsIndex(dropped, 1);
        d.generateTriangles();
        expectDelaunay(grid, d, {12});
        const qz::array<DTriangle> tris = d.getTriangle();
        for (uint32_t t = 0; t < tris.size(); ++t)
            EXPECT_TRUE(tris[t].a != 12 && tris[t].b != 12 && tris[t].c != 12);
    }
    // Cutting along a ring removes only triangles whose corners all lie on it.
    {
        DelaunayTriangle d(50, 50);
        d.setAllPoints(grid.data(), 25);
        d.generateTriangles();
        const uint32_t before = d.getTriangle().size();
        const int ring[] = {6, 7, 8, 13, 18, 17, 16, 11, 12};
        d.deleteEachOtherTriangles(ring, 9);
        const qz::array<DTriangle> tris = d.getTriangle();
        EXPECT_EQ(tris.size(), before - 8) << "the 3x3 block held 8 triangles";
        const std::set<int> ringSet(ring, ring + 9);
        for (uint32_t t = 0; t < tris.size(); ++t)
            EXPECT_FALSE(ringSet.count(tris[t].a) && ringSet.count(tris[t].b) && ringSet.count(tris[t].c));
    }
    // Duplicates and a line of points: no crash, no flat or repeated-corner triangle.
    {
        std::vector<float> p = {0, 0, 10, 0, 20, 0, 30, 0, 10, 0, 10, 0, 15, 5, 15, 5};
        DelaunayTriangle d(30, 5);
        d.setAllPoints(p.data(), 8);
        d.generateTriangles();
        const qz::array<DTriangle> tris = d.getTriangle();
        for (uint32_t t = 0; t < tris.size(); ++t) {
            const float* a = &p[tris[t].a * 2];
            const float* b = &p[tris[t].b * 2];
            const float* c = &p[tris[t].c * 2];
            EXPECT_NE((b[0] - a[0]) * (c[1] - a[1]) - (b[1] - a[1]) * (c[0] - a[0]), 0.0f);
        }
        std::vector<float> line = {0, 0, 1, 1, 2, 2, 3, 3};
        DelaunayTriangle flat(3, 3);
        flat.setAllPoints(line.data(), 4);
        flat.generateTriangles();
        EXPECT_EQ(flat.getTriangle().size(), 0u) << "collinear points enclose nothing";
    }
    // Too many points for the frame: refused with a log line.
    LogCapture log;
    std::vector<float> many(2 * 397, 1.0f);
    DelaunayTriangle d(1, 1);
    EXPECT_FALSE(d.setAllPoints(many.data(), 397));
    EXPECT_TRUE(log.count("at most 396") > 0);
}

TEST(GrahamFrame, HullOfASquareWithInnerAndEdgePoints) {
    const GrahamPoint in[] = {{5, 5}, {0, 0}, {10, 0}, {10, 10}, {0, 10}, {3, 7}, {2, 2}};
    GrahamFrame frame;
    int ids[8], count = 0;
    frame.grahamFrame(in, 7, ids, count);
    ASSERT_EQ(count, 4);
    EXPECT_EQ(ids[0], 1) << "starts at the lowest, leftmost point";
    EXPECT_EQ(std::set<int>(ids, ids + 4), (std::set<int>{1, 2, 3, 4}));
    GrahamPoint box[4];
    frame.grahamBoundingBox(in, 7, box, count);
    ASSERT_EQ(count, 4);
    EXPECT_FLOAT_EQ(box[0].x, -80.0f);
    EXPECT_FLOAT_EQ(box[2].y, 90.0f);
    EXPECT_TRUE(GrahamFrame::judgeAimIsLeft({0, 0}, {1, 0}, {0.5f, 1}));
    EXPECT_FALSE(GrahamFrame::judgeAimIsLeft({0, 0}, {1, 0}, {0.5f, -1}));
}

// The shipped meshes are what the authoring tool makes of the standard faces.
TEST(FaceMeshBuilder, ShippedMeshesAreReproducedFromTheStandardFaces) {
    const std::string dir = std::string(QZ_SOURCE_DIR) + "/assets/shader/mesh/";
    for (const char* name : {"as", "st", "fp", "zu"}) {
        const ZuFaceMeshBuilder::Backend* backend = ZuFaceMeshBuilder::backend(name);
        ASSERT_NE(backend, nullptr);
        const std::vector<float> landmarks = standardFace(name);
        for (bool simplified : {false, true}) {
            const std::string suffix = std::string(name) + (simplified ? "_simplify" : "");
            SCOPED_TRACE(suffix);
            std::vector<float> points;
            ASSERT_TRUE(ZuFaceMeshBuilder::extend(*backend, simplified, landmarks.data(),
                                                  static_cast<int>(landmarks.size() / 2), 700, 1004, &points));
            const auto tris = ZuFaceMeshBuilder::triangulate(*backend, simplified, points);
            EXPECT_EQ(ZuFaceMeshBuilder::standerFaceJson(points, 700, 1004), readText(dir + "standerface_" + suffix + ".json"));
            EXPECT_EQ(ZuFaceMeshBuilder::faceMeshJson(tris, static_cast<int>(points.size() / 2)),
                      readText(dir + "facemesh_" + suffix + ".json"));
        }
    }
    std::vector<float> target;
    const std::vector<float> as = standardFace("as");
    ASSERT_TRUE(ZuFaceMeshBuilder::hg01(as.data(), static_cast<int>(as.size() / 2), &target));
    EXPECT_EQ(ZuFaceMeshBuilder::standerFaceJson(target, 700, 1004), readText(dir + "standerface_as_hg01.json"));
    EXPECT_GT(target[9 * 2 + 1], as[9 * 2 + 1]) << "the chin rises";
    LogCapture log;
    std::vector<float> points;
    EXPECT_FALSE(ZuFaceMeshBuilder::extend(*ZuFaceMeshBuilder::backend("as"), false, standardFace("zu").data(), 60, 700,
                                           1004, &points));
    EXPECT_TRUE(log.count("needs 101 landmarks") > 0);
}
