// Unskinned meshes on nodes with all kinds of transforms: what a reader of the file draws stands where the host has it.

#include "GeometryExport.h"
#include "motionChecks.h"
#include "sceneText.h"
#include "shadingText.h"

#include <algorithm>
#include <cmath>

namespace tvk {
namespace {

class PlacedMeshes : public GeometryExport {};

// A mesh NAME below a parent, of the new scene's shading group.
std::string child(const std::string& name, const std::string& parent, const MeshSpec& mesh,
                  const std::string& attributes = "") {
    return nodeText("transform", name, parent, attributes) + meshShape(name + "Shape", name, mesh) +
           shadeWhole(name + "Shape", "initialShadingGroup");
}

TEST_F(PlacedMeshes, OfAHingeTurnAboutItsPivot) {
    const std::string hinge = set3("t", 2, 0, 0) + set3("r", 0, 0, 90) + set3("rp", 1, 0, 0) + set3("sp", 1, 0, 0);
    exportScene(meshNode("door", box({1, 0, 0}, {2, 1, 1}), hinge));
    EXPECT_EQ(file.node("door").translate, Imath::V3d(3, 0, 0));
    EXPECT_LT((vertexAt({3, 1, 0}).position - Imath::V3d(1, 0, 0)).length(), 1e-9); // object (2 0 0), less the pivot
    expectDrawnAs(facesOf("doorShape"));
}

// Its exported origin is the pivot, which stays where it is.
TEST_F(PlacedMeshes, OfATurningHingeDoNotMoveTheirNode) {
    const std::string hinge = set3("t", 2, 0, 0) + set3("rp", 1, 0, 0) + set3("sp", 1, 0, 0);
    exportScene(meshNode("door", box({1, 0, 0}, {2, 1, 1}), hinge) + keyed("door.rz", "1 0 7 90") + playback(1, 7),
                "ica_file_out=1");
    const decode::AnimationFile animation = decode::readAnimationFile(session.fileText("model.ica"));
    for (const char* const channel : {"translate_x", "translate_y", "translate_z"}) {
        EXPECT_EQ(animation.thing(0).channel(channel).dataSize, 1) << channel;
    }
    for (int frame = 0; frame < animation.frameCount; ++frame) {
        play(animation, frame);
        expectDrawnAs(facesOf("doorShape"), 1e-3);
    }
}

TEST_F(PlacedMeshes, OfSplitPivotsStandWhereTheHostHasThem) {
    const std::string parent = set3("s", 2, 2, 2) + set3("sp", 0, 2, 0) + set3("spt", 0, 0, 0);
    const std::string leaf = child("leaf", "group", square(), set3("t", 0, 3, 0));
    exportScene(nodeText("transform", "group", "", parent) + leaf);
    EXPECT_EQ(file.node("group").translate, Imath::V3d(0, 2, 0));
    EXPECT_EQ(file.node("leaf").translate, Imath::V3d(0, 1, 0));
    EXPECT_NEAR(file.node("leaf").world[3][1], 4.0, 1e-9);
    expectDrawnAs(facesOf("leafShape"));

    exportScene(nodeText("transform", "group", "", parent + set3("r", 90, 0, 0)) + leaf);
    expectDrawnAs(facesOf("leafShape"), 1e-3);
}

TEST_F(PlacedMeshes, OfAJointSoupStandWhereTheHostHasThem) {
    const std::string soup = set3("t", 1, 2, 3) + "setAttr \".ro\" 2;" + set3("ra", 10, 20, 30) +
                             set3("jo", 40, 50, 60) + set3("r", 70, 80, -90);
    exportScene(nodeText("transform", "group", "", set3("r", 15, -25, 35)) + nodeText("joint", "soup", "group", soup) +
                child("bowl", "soup", box({0, 0, 0}, {1, 1, 1})) + nodeText("joint", "spoon", "group"));
    EXPECT_LT(distance(file.node("soup").world, session.expectedWorld("soup")), 1e-3);
    EXPECT_FALSE(file.node("soup").scaleCompensate.value_or(false));
    expectDrawnAs(facesOf("bowlShape"), 2e-3);
}

// As a twin without the mirror looks in a mirror: outside stays outside.
TEST_F(PlacedMeshes, OfAMirroredGroupWindAndFaceTheSameWay) {
    const MeshSpec wedge = [] {
        MeshSpec mesh;
        mesh.points = {{0, 0, 0}, {2, 0, 0}, {0, 1, 0}, {0, 0, 1}};
        mesh.faces = {{0, 2, 1}, {0, 1, 3}, {0, 3, 2}, {1, 2, 3}};
        return mesh;
    }();
    exportScene(nodeText("transform", "mirror", "", set3("s", -1, 1, 1)) + child("arm", "mirror", wedge) +
                child("twin", "", wedge));
    expectDrawnAs(facesOf("armShape") + facesOf("twinShape"));
    for (const char* name : {"armShape", "twinShape"}) {
        const double side = name == std::string("armShape") ? -1.0 : 1.0;
        const Imath::V3d middle(side * 0.5, 0.25, 0.25);
        for (const decode::DrawnFace& face : model.polygon(name).faces) {
            const Imath::V3d normal = vectorArea(outlineOf(face));
            EXPECT_GT(normal.dot(face[0].world - middle), 0.0) << name;
            EXPECT_GT(normal.normalized().dot(*face[0].worldNormal), 0.99) << name;
            EXPECT_NEAR(face[0].normal->length(), 511.0 / 512, 1.5 / 512) << name;
        }
    }
}

TEST_F(PlacedMeshes, OfTheOppositeSideShowTheirBack) {
    MeshSpec mesh = box({0, 0, 0}, {1, 1, 1});
    mesh.attributes = "setAttr \".op\" yes; setAttr \".ds\" no;";
    exportScene(meshNode("room", mesh));
    expectDrawnAs(facesOf("roomShape"));
    EXPECT_LT(vectorArea(outlineOf(model.polygon("roomShape").faces.front()))
                  .dot(outlineOf(model.polygon("roomShape").faces.front()).front() - Imath::V3d(0.5)),
              0.0);
}

TEST_F(PlacedMeshes, OfAScaledNodeKeepNormalsOfUnitLength) {
    MeshSpec mesh = box({-1, -1, -1}, {1, 1, 1});
    mesh.hard = false;
    for (const char* options : {"optimize_node=0", "optimize_node=3"}) {
        exportScene(meshNode("ball", mesh, set3("s", 3, 1, 1)), options);
        for (const decode::DrawnFace& face : model.polygon("ballShape").faces) {
            for (const decode::DrawnVertex& vertex : face) {
                EXPECT_NEAR(vertex.normal->length(), 1.0, 1.0 / 256) << options;
            }
        }
        expectDrawnAs(facesOf("ballShape"));
    }
}

TEST_F(PlacedMeshes, OfAMagnifiedSceneAreAsMuchLarger) {
    session.open(nodeText("transform", "group", "", set3("t", 1, 2, 3) + set3("r", 0, 0, 90)) +
                 child("leaf", "group", square(), set3("t", 0, 3, 0) + set3("rp", 1, 0, 0) + set3("sp", 1, 0, 0)));
    exportOpen("magnify=2.5");
    expectDrawnAs(sceneFaces(session.path("leafShape"), nullptr, 2.5));
}

// --- coordinates

struct ScaleCase {
    const char* name;
    double coordinate;
    int scale;
};

class CoordinateScale : public GeometryExport, public testing::WithParamInterface<ScaleCase> {};

TEST_P(CoordinateScale, IsTheFewestHalvingsAndVerticesDecodeToTheScene) {
    const double end = GetParam().coordinate;
    exportScene(meshNode("a", box({std::min(end, 0.0), 0, 0}, {std::max(end, 0.0), 1, 1})));
    EXPECT_EQ(model.positionScale, GetParam().scale);
    vertexAt({end, 1, 0});
    expectDrawnAs(facesOf("aShape"), std::ldexp(1.0, GetParam().scale) / 4096);
}

INSTANTIATE_TEST_SUITE_P(Ends, CoordinateScale,
                         testing::Values(ScaleCase{"EightIsOne", 8.0, 1}, ScaleCase{"BelowEightIsNone", 7.999, 0},
                                         ScaleCase{"MinusEightIsNone", -8.0, 0},
                                         ScaleCase{"BelowMinusEightIsOne", -8.001, 1}, ScaleCase{"Twenty", 20.0, 2},
                                         ScaleCase{"AThousand", 1000.0, 7}),
                         [](const auto& tested) { return tested.param.name; });

TEST_F(PlacedMeshes, HaveABoxTestWithAScaleOfItsOwn) {
    exportScene(meshNode("a", box({-6, 0, 0}, {6, 1, 1})));
    EXPECT_EQ(model.positionScale, 0);
    const decode::FileElement& written = part("box_test");
    EXPECT_EQ(written.integer("pos_scale"), 1); // 12 wide
    EXPECT_EQ(written.reals("xyz"), (std::vector<double>{-3, 0, 0}));
    EXPECT_EQ(written.reals("whd"), (std::vector<double>{6, 0.5, 0.5}));

    exportScene(meshNode("a", box({0, 0, 0}, {20, 1, 1})));
    EXPECT_EQ(model.positionScale, 2);
    EXPECT_EQ(part("box_test").integer("pos_scale"), 2);
    EXPECT_EQ(part("box_test").reals("whd"), (std::vector<double>{5, 0.25, 0.25}));
}

// --- instances

TEST_F(PlacedMeshes, OfInstancesAreDrawnAtEveryPathWithTheMaterialsOfEach) {
    exportScene(shadingText("lambert", "red") + shadingText("lambert", "blue") +
                nodeText("transform", "a", "", set3("t", 1, 0, 0)) +
                nodeText("transform", "b", "", set3("t", 5, 0, 0)) + meshShape("s", "a", square()) +
                "parent -s -nc -r -add \"|a|s\" \"b\";\n" +
                "connectAttr \"s.iog[0]\" \"redSG.dsm\" -na;\nconnectAttr \"s.iog[1]\" \"blueSG.dsm\" -na;\n");
    ASSERT_EQ(model.polygons.size(), 2U);
    expectDrawnAs(facesOf("|a|s") + facesOf("|b|s"));
}

} // namespace
} // namespace tvk
