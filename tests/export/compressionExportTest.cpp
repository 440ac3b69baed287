// Node compression: what is drawn is the same in every mode, and what names nodes names the right ones.

#include "GeometryExport.h"
#include "sceneText.h"
#include "shadingText.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace tvk {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::UnorderedElementsAre;

class CompressedScenes : public GeometryExport {
protected:
    static std::string child(const std::string& name, const std::string& parent, const MeshSpec& mesh,
                             const std::string& attributes = "", const std::string& group = "initialShadingGroup") {
        return nodeText("transform", name, parent, attributes) + meshShape(name + "Shape", name, mesh) +
               shadeWhole(name + "Shape", group);
    }

    static std::string noCut() { return addedAttribute("tvk_no_cut", "bool", "1"); }

    static std::string linearKeys(const std::string& plug, const char* type, const std::string& list) {
        std::string name = plug;
        std::replace(name.begin(), name.end(), '.', '_');
        return nodeText(type, name, "",
                        "setAttr \".tan\" 2; setAttr \".wgt\" no; setAttr -s 2 \".ktv[0:1]\"  " + list + ";") +
               connectText(name + ".o", plug);
    }
};

// --- merge and cull

TEST_F(CompressedScenes, MergeFoldsAMovingGroupIntoItsMesh) {
    exportScene(nodeText("transform", "group", "", set3("t", 1, 0, 0)) +
                    child("leaf", "group", square(), set3("rp", 1, 0, 0) + set3("sp", 1, 0, 0)) +
                    linearKeys("group.rz", "animCurveTA", "1 30 11 90") +
                    linearKeys("leaf.tx", "animCurveTL", "1 2 11 4") + playback(1, 11),
                "optimize_node=2;ica_file_out=1");
    EXPECT_EQ(file.names(), (std::vector<std::string>{"leaf"}));
    EXPECT_THAT(session.infos, Contains("Compress Node\t: Merge Useless Node ( 2 -> 1 )"));
    session.mel("currentTime 1");
    EXPECT_LT(distance(file.node("leaf").world, session.expectedWorld("leaf")), 2e-3);
    expectDrawnAs(facesOf("leafShape"), 2e-3);
    const decode::AnimationFile animation = decode::readAnimationFile(session.fileText("model.ica"));
    for (int frame = 0; frame < animation.frameCount; ++frame) {
        play(animation, frame);
        expectDrawnAs(facesOf("leafShape"), 4e-3);
    }
    EXPECT_EQ(session.takeMessages(), "");
}

TEST_F(CompressedScenes, MergeWarnsOnceOfShear) {
    exportScene(nodeText("transform", "group", "", set3("s", 1, 3, 1)) + child("leaf", "group", square()) +
                    linearKeys("leaf.rz", "animCurveTA", "1 30 5 60") + playback(1, 5),
                "optimize_node=2;ica_file_out=1");
    EXPECT_EQ(session.takeMessages(), "Warning: Shear is not zero (ignored): leaf\n\n");
    EXPECT_EQ(file.names(), (std::vector<std::string>{"leaf"}));
}

// A character, a prop on its hand, empty groups around both and a node that must stay.
std::string characterScene() {
    MeshSpec mesh = row(3);
    SkinSpec skin;
    skin.influences = {"hip", "knee", "foot"};
    skin.bindInverses = {movedMatrix(0, 0, 0), movedMatrix(-1, 0, 0), movedMatrix(-2, 0, 0)};
    skin.weights = {{1, 0, 0}, {1, 0, 0}, {0.5, 0.5, 0}, {0.5, 0.5, 0}, {0, 1, 0}, {0, 1, 0}, {0, 0.2, 0.8}, {0, 0, 1}};
    return nodeText("transform", "all") + nodeText("transform", "empty", "all") +
           nodeText("transform", "lost", "empty") + nodeText("transform", "rig", "all") +
           nodeText("joint", "hip", "rig") + nodeText("joint", "twist", "hip", set3("t", 0.5, 0, 0)) +
           nodeText("joint", "knee", "twist", set3("t", 0.5, 0, 0)) +
           nodeText("joint", "foot", "knee", set3("t", 1, 0, 0)) + nodeText("joint", "end", "foot") +
           nodeText("transform", "mark", "end", addedAttribute("tvk_no_cut", "bool", "1") + set3("t", 0, 0.25, 0)) +
           nodeText("transform", "hand", "foot", set3("t", 0, 1, 0) + set3("r", 0, 0, 45)) +
           nodeText("transform", "prop", "hand", set3("t", 0.5, 0, 0)) + meshShape("propShape", "prop", square()) +
           shadeWhole("propShape", "initialShadingGroup") +
           nodeText("transform", "sign", "hand", addedAttribute("tvk_billboard", "enum", "1")) +
           deformedNode("body", mesh) + skinText(skin);
}

struct ModeCase {
    const char* name;
    const char* options;
    std::vector<std::string> nodes;
    const char* summary;
};

class CompressedCharacter : public CompressedScenes, public testing::WithParamInterface<ModeCase> {};

TEST_P(CompressedCharacter, KeepsWhatIsNamedAndDrawsTheSame) {
    exportScene(characterScene(), GetParam().options);
    EXPECT_THAT(file.names(), testing::UnorderedElementsAreArray(GetParam().nodes));
    EXPECT_THAT(session.infos, Contains(GetParam().summary));
    ASSERT_EQ(model.polygons.size(), 2U);
    EXPECT_EQ(file.nodes[static_cast<std::size_t>(model.polygon("bodyShape").node)].name, "body");
    EXPECT_EQ(file.nodes[static_cast<std::size_t>(model.polygon("propShape").node)].name, "prop");
    std::vector<std::string> influences;
    for (const double node : decode::readNumbers(part("envelope").find("node_idx")->text)) {
        influences.push_back(file.nodes.at(static_cast<std::size_t>(node)).name);
    }
    EXPECT_THAT(influences, ElementsAre("hip", "knee", "knee", "foot"));
    for (const char* name : {"hip", "knee", "foot", "prop"}) {
        EXPECT_TRUE(file.node(name).drawMtx) << name;
        EXPECT_LT(distance(file.node(name).world, session.expectedWorld(name)), 2e-3) << name;
    }
    EXPECT_LT(distance(file.node("mark").world, session.expectedWorld("mark")), 2e-3);
    expectDrawnAs(facesOf("bodyShape") + facesOf("propShape"), 2e-3);
}

INSTANTIATE_TEST_SUITE_P(Modes, CompressedCharacter,
                         testing::Values(ModeCase{"None",
                                                  "optimize_node=0",
                                                  {"world_root", "all", "empty", "lost", "rig", "hip", "twist", "knee",
                                                   "foot", "end", "mark", "hand", "prop", "sign", "body"},
                                                  "Compress Node\t: None ( 15 )"},
                                         ModeCase{"Cull",
                                                  "optimize_node=1",
                                                  {"world_root", "all", "rig", "hip", "twist", "knee", "foot", "end",
                                                   "mark", "hand", "prop", "sign", "body"},
                                                  "Compress Node\t: Cull Useless Node ( 15 -> 13 )"},
                                         ModeCase{"Merge",
                                                  "optimize_node=2",
                                                  {"world_root", "hip", "knee", "foot", "mark", "prop", "sign", "body"},
                                                  "Compress Node\t: Merge Useless Node ( 15 -> 8 )"}),
                         [](const auto& tested) { return tested.param.name; });

TEST_F(CompressedScenes, MergeLosesNothingOfVerticesOnTheirStrongestBone) {
    exportScene(characterScene(), "optimize_node=2;force_full_weight=1");
    EXPECT_EQ(file.root.find("body")->find("envelope"), nullptr);
    for (const decode::FileElement& matrix : part("matrix_array").children) {
        EXPECT_EQ(matrix.integer("mtx_weight"), 1);
    }
    // Halves go to the bone that stands first in the file.
    EXPECT_EQ(file.nodes
                  .at(static_cast<std::size_t>(
                      model.matrices.at(static_cast<std::size_t>(vertexAt({1, 0, 0}).matrix)).front().first))
                  .name,
              "hip");
    expectDrawnAs(facesOf("bodyShape") + facesOf("propShape"), 2e-3);
}

// A group of scale 2 over two joints: folded into the first, the second must not undo it.
TEST_F(CompressedScenes, MergeKeepsTheSizeOfAJointBelowAScaledGroup) {
    for (const char* options : {"optimize_node=0", "optimize_node=2"}) {
        exportScene(nodeText("transform", "group", "", set3("s", 2, 2, 2)) + nodeText("joint", "a", "group") +
                        meshShape("aShape", "a", square()) + shadeWhole("aShape", "initialShadingGroup") +
                        nodeText("joint", "b", "a", set3("t", 1, 0, 0)) + connectText("a.s", "b.is") +
                        meshShape("bShape", "b", square()) + shadeWhole("bShape", "initialShadingGroup"),
                    options);
        EXPECT_LT(distance(file.node("b").world, session.expectedWorld("b")), 1e-3) << options;
        expectDrawnAs(facesOf("aShape") + facesOf("bShape"), 2e-3);
    }
}

// --- unite

// Three meshes (one hidden, one skinned and posed, one sheared) and a protected locator below a moved group.
std::string unitedScene() {
    SkinSpec skin;
    skin.influences = {"hip", "knee"};
    skin.bindInverses = {movedMatrix(0, 0, 0), movedMatrix(-1, 0, 0)};
    skin.weights = {{1, 0}, {1, 0}, {0.5, 0.5}, {0.5, 0.5}, {0, 1}, {0, 1}};
    return deformedNode("body", row(2)) + nodeText("joint", "hip", "", set3("t", 0, 3, 0)) +
           nodeText("joint", "knee", "hip", set3("t", 1, 0, 0) + set3("r", 0, 0, 40)) + skinText(skin) +
           nodeText("transform", "slanted", "", set3("s", 1, 2, 1)) +
           nodeText("transform", "sheared", "slanted", set3("r", 0, 0, 30) + set3("t", -4, 0, 0)) +
           meshShape("shearedShape", "sheared", square()) + shadeWhole("shearedShape", "initialShadingGroup") +
           meshNode("ghost", square(), "setAttr \".v\" no;") +
           nodeText("transform", "moved", "", set3("t", 5, 6, 7) + set3("r", 0, 90, 0)) +
           nodeText("transform", "spot", "moved", addedAttribute("tvk_no_cut", "bool", "1") + set3("t", 1, 0, 0)) +
           nodeText("locator", "spotShape", "spot");
}

TEST_F(CompressedScenes, UniteTakesASnapshotOfWhatIsShown) {
    exportScene(unitedScene(), "optimize_node=3");
    EXPECT_EQ(file.names(), (std::vector<std::string>{"world_root", "spot"}));
    EXPECT_LT(distance(file.node("world_root").world, Imath::M44d()), 1e-12);
    EXPECT_EQ(file.node("world_root").kind, "mesh");
    EXPECT_LT(distance(file.node("spot").world, session.expectedWorld("spot")), 2e-3);
    EXPECT_EQ(part("matrix_array").integer("size"), 1);
    EXPECT_EQ(model.polygons.size(), 2U);
    for (const decode::DrawnPolygon& polygon : model.polygons) {
        EXPECT_EQ(polygon.node, 0);
    }
    expectDrawnAs(facesOf("bodyShape") + facesOf("shearedShape"));
    EXPECT_EQ(session.takeMessages(), "Warning: Hidden mesh is ignored: ghostShape\n\n");
}

TEST_F(CompressedScenes, UniteFreezesVisibilityAndSaysSo) {
    exportScene(unitedScene(), "optimize_node=3;iva_file_out=1");
    EXPECT_EQ(session.visibility().nodes.size(), 2U);
    EXPECT_EQ(session.takeMessages(), "Warning: Compress Node \"Unite\" can be undesirable\n"
                                      "         when you export visibility animation\n"
                                      "Warning: Hidden mesh is ignored: ghostShape\n"
                                      "Warning: No visibility animation\n\n");
}

TEST_F(CompressedScenes, UniteOfNothingToDrawIsANullRoot) {
    exportScene(nodeText("transform", "spot", "", noCut() + set3("t", 1, 0, 0)), "optimize_node=3");
    EXPECT_EQ(file.names(), (std::vector<std::string>{"world_root", "spot"}));
    EXPECT_EQ(file.node("world_root").kind, "null");
    EXPECT_TRUE(model.polygons.empty());
    EXPECT_EQ(part("polygon_array").integer("size"), 0);
    EXPECT_EQ(file.root.find("body")->find("box_test"), nullptr);
}

TEST_F(CompressedScenes, CombineKeepsPolygonsWithOtherFlagsApart) {
    MeshSpec colored = square();
    colored.colors = {{1, 0, 0, 1}};
    colored.faceColors = {{0, 0, 0, 0}};
    const std::string red = shadingText("lambert", "red");
    exportScene(red + child("a", "", square(), "", "redSG") + child("b", "", colored, set3("t", 2, 0, 0), "redSG"),
                "optimize_node=4");
    EXPECT_EQ(model.polygons.size(), 2U);
    expectDrawnAs(facesOf("aShape") + facesOf("bShape"));

    exportScene(red + child("a", "", square(), "", "redSG") + child("b", "", row(3), set3("t", 2, 0, 0), "redSG"),
                "optimize_node=4");
    ASSERT_EQ(model.polygons.size(), 1U);
    EXPECT_EQ(model.polygons[0].name, "aShape");
    EXPECT_EQ(model.polygons[0].faces.size(), 4U);
    EXPECT_EQ(file.node("world_root").displaySize, 1);
    EXPECT_EQ(model.polygons[0].volumeMax, Imath::V3d(5, 1, 0));
    expectDrawnAs(facesOf("aShape") + facesOf("bShape"));
}

TEST_F(CompressedScenes, CombineLeavesMaterialsApart) {
    exportScene(shadingText("lambert", "red") + shadingText("lambert", "blue") + child("a", "", square(), "", "redSG") +
                    child("b", "", square(), set3("t", 2, 0, 0), "blueSG") +
                    child("c", "", square(), set3("t", 4, 0, 0), "redSG"),
                "optimize_node=4");
    EXPECT_EQ(model.polygons.size(), 2U);
    EXPECT_EQ(model.polygon("aShape").faces.size(), 2U);
    EXPECT_EQ(model.polygon("bShape").faces.size(), 1U);
    expectDrawnAs(facesOf("aShape") + facesOf("bShape") + facesOf("cShape"));
}

TEST_F(CompressedScenes, UniteOfASelectionKeepsItsPlaceInTheWorld) {
    session.open(nodeText("transform", "group", "", set3("t", 4, 0, 0)) + child("a", "group", square()) +
                 child("b", "", square()));
    session.mel("select -r a");
    exportOpen("optimize_node=3", true);
    expectDrawnAs(facesOf("aShape"));
}

// --- what stands in scenes besides

TEST_F(CompressedScenes, ClutterIsLeftOutOrStaysAsEmptyNodes) {
    exportScene(nodeText("transform", "lamp") + nodeText("pointLight", "lampShape", "lamp") +
                nodeText("transform", "control") + curveText("controlShape", "control") +
                nodeText("transform", "template") + meshText("templateShape", "template", "setAttr \".tmp\" yes;") +
                nodeText("transform", "spot") + nodeText("locator", "spotShape", "spot") +
                nodeText("transform", "eye") + nodeText("camera", "eyeShape", "eye") + child("lens", "eye", square()) +
                nodeText("joint", "bone") + nodeText("aimConstraint", "aim", "bone") +
                nodeText("parentConstraint", "hold", "bone") + nodeText("ikHandle", "handle"));
    EXPECT_THAT(file.names(), UnorderedElementsAre("world_root", "control", "template", "spot", "eye", "lens", "bone"));
    EXPECT_EQ(file.node("eye").kind, "null");
    EXPECT_EQ(file.node("template").kind, "null");
    EXPECT_EQ(file.node("lens").kind, "mesh");
    EXPECT_EQ(session.takeMessages(), "Warning: Can't export NURBS curve: control\n\n");
    expectDrawnAs(facesOf("lensShape"));
}

TEST_F(CompressedScenes, InstancedGroupsDrawTheirMeshesAtEveryPath) {
    exportScene(nodeText("transform", "left", "", set3("t", -3, 0, 0)) +
                nodeText("transform", "right", "", set3("t", 3, 0, 0)) + nodeText("transform", "group", "left") +
                child("a", "group", square()) + nodeText("transform", "c", "group", set3("t", 0, 2, 0)) +
                "parent -s -nc -r -add \"aShape\" \"c\";\nparent -s -nc -r -add \"group\" \"right\";\n" +
                inDefaultGroup("aShape", 1) + inDefaultGroup("aShape", 2) + inDefaultGroup("aShape", 3));
    EXPECT_THAT(file.names(),
                UnorderedElementsAre("world_root", "left", "right", "group", "group_1", "a", "a_1", "c", "c_1"));
    EXPECT_EQ(model.polygons.size(), 4U);
    for (const decode::DrawnPolygon& polygon : model.polygons) {
        EXPECT_EQ(polygon.faces.size(), 1U);
    }
}

} // namespace
} // namespace tvk
