// The committed face meshes and standard faces load at engine start with the
// counts of their back ends, and broken files are refused without harm.
#include "basesys/ZuAppMain.h"
#include "basesys/ZuGlobalMgr.h"
#include "data/FaceMesh.h"
#include "data/StanderFace.h"
#include "data/ZuMeshDataMgr.h"
#include "support/LogCapture.h"
#include "support/TempDir.h"

#include <gtest/gtest.h>

#include <string>

namespace {

class MeshDataTest : public ::testing::Test {
protected:
    void start(const std::string& searchPath) {
        app = new ZuAppMain();
        app->init();
        app->addRespath(searchPath.c_str());
        app->initZuBase();
        meshes = app->getGlobalMgr()->getMeshDataMgr();
        ASSERT_NE(meshes, nullptr);
    }
    void TearDown() override {
        if (!app) return;
        app->setState("test", ZU_ENG_STATE_STOPPING);
        app->destroyZuBase();
        app->destroy();
        app->release();
    }
    ZuAppMain* app = nullptr;
    ZuMeshDataMgr* meshes = nullptr;
};

struct Shipped {
    const char* suffix;
    int points;
};

} // namespace

TEST_F(MeshDataTest, ShippedFilesLoadWithTheirBackEndsCounts) {
    start(std::string(QZ_SOURCE_DIR) + "/assets/");
    // Full faces: landmarks, forehead, lips, outline and the design corners;
    // simplified: landmarks and forehead.
    const Shipped shipped[] = {{"as", 192}, {"as_simplify", 109}, {"st", 211}, {"st_simplify", 114},
                               {"st_normal", 106}, {"fp", 211}, {"fp_simplify", 114}, {"zu", 157},
                               {"zu_simplify", 76}};
    for (const Shipped& s : shipped) {
        const std::string suffix = s.suffix;
        const FaceMesh* mesh = meshes->getFaceMesh(("facemesh_" + suffix).c_str());
        const StanderFace* face = meshes->getStanderFace(("standerface_" + suffix).c_str());
        ASSERT_NE(mesh, nullptr) << suffix;
        ASSERT_NE(face, nullptr) << suffix;
        EXPECT_EQ(mesh->vertexcount, s.points) << suffix;
        EXPECT_EQ(face->facepoints_count, s.points) << suffix;
        EXPECT_EQ(face->design_img_width, 700);
        EXPECT_EQ(face->design_img_height, 1004);
        ASSERT_GT(mesh->tricount, 0);
        ASSERT_LE(mesh->tricount, 600);
        // Every triangle indexes the landmarks and encloses some area of the face.
        for (int t = 0; t < mesh->tricount; ++t) {
            const int* tri = &mesh->data[t * 3];
            for (int k = 0; k < 3; ++k) {
                ASSERT_GE(tri[k], 0);
                ASSERT_LT(tri[k], s.points);
            }
            const float* a = &face->data[tri[0] * 2];
            const float* b = &face->data[tri[1] * 2];
            const float* c = &face->data[tri[2] * 2];
            const float area = (b[0] - a[0]) * (c[1] - a[1]) - (b[1] - a[1]) * (c[0] - a[0]);
            EXPECT_GT(area, 0.0f) << suffix << " triangle " << t;
        }
        // The points lie in the face rectangle, inside the design image.
        for (int i = 0; i < s.points; ++i) {
            EXPECT_GE(face->data[i * 2], face->face_left);
            EXPECT_LE(face->data[i * 2], face->face_right);
            EXPECT_GE(face->data[i * 2 + 1], face->face_bottom);
            EXPECT_LE(face->data[i * 2 + 1], face->face_top);
        }
        EXPECT_GE(face->face_left, 0);
        EXPECT_LE(face->face_right, 700);
        EXPECT_LE(face->face_top, 1004);
    }
    // The simplified mesh has fewer triangles than the full one.
    EXPECT_LT(meshes->getFaceMesh("facemesh_st_simplify")->tricount, meshes->getFaceMesh("facemesh_st")->tricount);
    EXPECT_EQ(meshes->getFaceMesh("facemesh_unknown"), nullptr);
    EXPECT_EQ(meshes->getStanderFace(nullptr), nullptr);

    meshes->destory();
    EXPECT_EQ(meshes->getFaceMesh("facemesh_as"), nullptr);
}

TEST_F(MeshDataTest, OptionalKeysAndLooseElementsReadAsZero) {
    TempDir dir;
    dir.write("shader/mesh/facemesh_as.json", R"({"data":[1,2,3]})");
    dir.write("shader/mesh/standerface_as.json",
              R"({"param":{"facepoints_count":2,"face_yaw":3,"face_roll":"x"},"data":[7,8.5,-1,2]})");
    dir.write("shader/mesh/facemesh_st.json", R"({"param":{"tricount":1,"vertexcount":3},"data":[0,"a",2.5]})");
    dir.write("shader/mesh/standerface_st.json", R"({"param":[],"data":{}})");
    start(dir.path());

    const FaceMesh* noParam = meshes->getFaceMesh("facemesh_as");
    ASSERT_NE(noParam, nullptr);
    EXPECT_EQ(noParam->tricount, 0);
    EXPECT_EQ(noParam->vertexcount, 0);
    EXPECT_EQ(noParam->data[2], 3);

    const StanderFace* face = meshes->getStanderFace("standerface_as");
    ASSERT_NE(face, nullptr);
    EXPECT_EQ(face->facepoints_count, 2);
    EXPECT_FLOAT_EQ(face->face_yaw, 3.0f) << "an integer given for a float";
    EXPECT_FLOAT_EQ(face->face_roll, 0.0f) << "a string is not a number";
    EXPECT_FLOAT_EQ(face->data[0], 7.0f) << "an integer element is stored as a float";
    EXPECT_FLOAT_EQ(face->data[1], 8.5f);
    EXPECT_EQ(face->design_img_width, 0);

    const FaceMesh* loose = meshes->getFaceMesh("facemesh_st");
    ASSERT_NE(loose, nullptr);
    EXPECT_EQ(loose->data[0], 0);
    EXPECT_EQ(loose->data[1], 0) << "a non-integer element leaves a zero";
    EXPECT_EQ(loose->data[2], 0);

    const StanderFace* wrongTypes = meshes->getStanderFace("standerface_st");
    ASSERT_NE(wrongTypes, nullptr);
    EXPECT_EQ(wrongTypes->facepoints_count, 0);
    EXPECT_EQ(meshes->getFaceMesh("facemesh_fp"), nullptr) << "no file, no record";
}

TEST_F(MeshDataTest, BrokenOrOversizedFilesAreRefused) {
    TempDir dir;
    std::string tooMany = R"({"param":{"tricount":1},"data":[)";
    for (int i = 0; i < 1801; ++i) tooMany += (i ? ",0" : "0");
    tooMany += "]}";
    std::string tooManyPoints = R"({"data":[)";
    for (int i = 0; i < 801; ++i) tooManyPoints += (i ? ",1.5" : "1.5");
    tooManyPoints += "]}";
    dir.write("shader/mesh/facemesh_as.json", R"({"param":{"tricount":2,"vertexcount":3},"data":[0,1,)");
    dir.write("shader/mesh/facemesh_st.json", R"({"param":{"tricount":601,"vertexcount":3},"data":[]})");
    dir.write("shader/mesh/facemesh_fp.json", tooMany);
    dir.write("shader/mesh/facemesh_zu.json", R"({"param":{"tricount":1,"vertexcount":3},"data":[0,1,3]})");
    dir.write("shader/mesh/facemesh_as_simplify.json", R"({"param":{"tricount":1,"vertexcount":3},"data":[0,-1,2]})");
    dir.write("shader/mesh/standerface_as.json", tooManyPoints);
    dir.write("shader/mesh/standerface_st.json", R"({"param":{"facepoints_count":401}})");
    dir.write("shader/mesh/standerface_fp.json", R"([1,2,3])");
    dir.write("shader/mesh/standerface_zu.json", R"({"data":[1e300,-1e300]})");

    LogCapture log;
    start(dir.path());
    EXPECT_EQ(log.count("refused", ZU_LOG_WARN), 8);
    for (const char* name : {"facemesh_as", "facemesh_st", "facemesh_fp", "facemesh_zu", "facemesh_as_simplify"})
        EXPECT_EQ(meshes->getFaceMesh(name), nullptr) << name;
    for (const char* name : {"standerface_as", "standerface_st", "standerface_fp"})
        EXPECT_EQ(meshes->getStanderFace(name), nullptr) << name;

    // Numbers beyond float range are kept at the float limits.
    const StanderFace* huge = meshes->getStanderFace("standerface_zu");
    ASSERT_NE(huge, nullptr);
    EXPECT_GT(huge->data[0], 1e38f);
    EXPECT_LT(huge->data[1], -1e38f);
}
