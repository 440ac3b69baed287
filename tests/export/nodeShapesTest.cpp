#include "export/nodeShapes.h"

#include "ExportSession.h"
#include "sceneText.h"

#include "scene/messages.h"

#include <gtest/gtest.h>

namespace tvk {
namespace {

class Shapes : public testing::Test {
protected:
    NodeShapes read(const std::string& statements) {
        session.open(nodeText("transform", "a") + statements);
        session.prepareRun();
        return readNodeShapes(session.path("a"));
    }

    static std::string nameOf(const MDagPath& path) {
        return path.isValid() ? path.partialPathName().asChar() : std::string();
    }

    ExportSession session;
};

const std::string kIntermediate = "setAttr \".io\" yes;";
// Something that the mesh goes to, as a deformer would take it.
const std::string kUsesBodyOrig =
    nodeText("transform", "b") + meshText("taker", "b") + "connectAttr \"bodyShapeOrig.w\" \"taker.i\";\n";

TEST_F(Shapes, OfATransformWithoutAnyAreNone) {
    const NodeShapes shapes = read("");
    EXPECT_TRUE(shapes.status);
    EXPECT_EQ(shapes.shapeCount, 0);
    EXPECT_FALSE(shapes.onlyServeTheView());
    EXPECT_FALSE(shapes.kept.isValid());
    EXPECT_FALSE(shapes.original.isValid());
}

TEST_F(Shapes, ShownMeshesThatAreAllOriginalsFailTheNode) {
    const NodeShapes shapes = read(meshText("bodyShapeOrig", "a") + kUsesBodyOrig);
    EXPECT_FALSE(shapes.status);
    EXPECT_EQ(session.takeMessages(), "Error: No effective shape: a\n");
}

TEST_F(Shapes, AShapeAndItsConnectedOriginalAreToldApart) {
    const NodeShapes shapes =
        read(meshText("bodyShape", "a") + meshText("bodyShapeOrig", "a", kIntermediate) + kUsesBodyOrig);
    EXPECT_TRUE(shapes.status);
    EXPECT_EQ(nameOf(shapes.kept), "bodyShape");
    EXPECT_EQ(nameOf(shapes.original), "bodyShapeOrig");
    EXPECT_EQ(session.takeMessages(), "");
    EXPECT_FALSE(warningRaised());
}

TEST_F(Shapes, AnOriginalIsFoundAnywhereInTheName) {
    const NodeShapes shapes = read(meshText("bodyShape", "a") + meshText("bodyShapeOrig", "a", kIntermediate) +
                                   kUsesBodyOrig + "rename \"bodyShapeOrig\" \"xOrig12\";\n");
    EXPECT_EQ(nameOf(shapes.original), "xOrig12");
}

// Its name begins so, but nothing takes its mesh: an ordinary shape.
TEST_F(Shapes, WithoutAConnectionNothingIsAnOriginal) {
    const NodeShapes shapes = read(meshText("Original", "a"));
    EXPECT_EQ(nameOf(shapes.kept), "Original");
    EXPECT_FALSE(shapes.original.isValid());
}

TEST_F(Shapes, OriginalsAreCaseSensitive) {
    const NodeShapes shapes = read(meshText("bodyShapeorig", "a") + nodeText("transform", "b") + meshText("t", "b") +
                                   "connectAttr \"bodyShapeorig.w\" \"t.i\";\n");
    EXPECT_EQ(nameOf(shapes.kept), "bodyShapeorig");
    EXPECT_FALSE(shapes.original.isValid());
}

TEST_F(Shapes, OfSeveralTheLastIsKeptWithAWarning) {
    const NodeShapes shapes =
        read(meshText("one", "a") + meshText("two", "a") + meshText("hidden", "a", kIntermediate));
    EXPECT_EQ(nameOf(shapes.kept), "two");
    EXPECT_EQ(session.takeMessages(), "Warning: Too many shape: a\n");
    EXPECT_TRUE(warningRaised());
}

TEST_F(Shapes, ANameCheckDoesNotComplainOfSeveral) {
    session.open(nodeText("transform", "a") + meshText("one", "a") + meshText("two", "a"));
    session.prepareRun();
    run().options.quietTextureWarnings = true;
    EXPECT_EQ(nameOf(readNodeShapes(session.path("a")).kept), "two");
    EXPECT_EQ(session.takeMessages(), "");
    EXPECT_FALSE(warningRaised());
}

TEST_F(Shapes, HiddenMeshesAreNoShapesAndNoFault) {
    for (const char* lines : {"setAttr \".io\" yes;", "setAttr \".tmp\" yes;", "setAttr \".nds\" 1;",
                              "setAttr \".nds\" 2;", "setAttr \".ove\" yes; setAttr \".ovdt\" 1;"}) {
        const NodeShapes shapes = read(meshText("aShape", "a", lines));
        EXPECT_TRUE(shapes.status) << lines;
        EXPECT_FALSE(shapes.kept.isValid()) << lines;
        EXPECT_EQ(session.takeMessages(), "") << lines;
    }
}

// It may be keyed, so it stays a mesh node that is not seen.
TEST_F(Shapes, AShapeThatIsSwitchedOffIsKept) {
    EXPECT_EQ(nameOf(read(meshText("aShape", "a", "setAttr \".v\" no;")).kept), "aShape");
}

struct UnsupportedCase {
    const char* type;
    const char* message;
};

class UnsupportedShape : public Shapes, public testing::WithParamInterface<UnsupportedCase> {};

TEST_P(UnsupportedShape, IsNamedByItsTransform) {
    const NodeShapes shapes = read(nodeText(GetParam().type, "aShape", "a"));
    EXPECT_TRUE(shapes.status);
    EXPECT_FALSE(shapes.onlyServeTheView());
    EXPECT_EQ(session.takeMessages(), std::string("Warning: ") + GetParam().message + "a\n");
    EXPECT_TRUE(warningRaised());
}

TEST_P(UnsupportedShape, IsNotNamedWhenItIsNotShown) {
    read(nodeText(GetParam().type, "aShape", "a", "setAttr \".tmp\" yes;"));
    EXPECT_EQ(session.takeMessages(), "");
    EXPECT_FALSE(warningRaised());
}

TEST_P(UnsupportedShape, IsNamedInNameChecksToo) {
    session.open(nodeText("transform", "a") + nodeText(GetParam().type, "aShape", "a"));
    session.prepareRun();
    run().options.quietTextureWarnings = true;
    readNodeShapes(session.path("a"));
    EXPECT_EQ(session.takeMessages(), std::string("Warning: ") + GetParam().message + "a\n");
}

INSTANTIATE_TEST_SUITE_P(Types, UnsupportedShape,
                         testing::Values(UnsupportedCase{"nurbsCurve", "Can't export NURBS curve: "},
                                         UnsupportedCase{"nurbsSurface", "Can't export NURBS surface: "},
                                         UnsupportedCase{"subdiv", "Can't export Subdivision surface: "}));

TEST_F(Shapes, CamerasAndLightsOnlyServeTheView) {
    EXPECT_TRUE(read(nodeText("camera", "aShape", "a")).onlyServeTheView());
    EXPECT_TRUE(read(nodeText("camera", "one", "a") + nodeText("pointLight", "two", "a")).onlyServeTheView());
    EXPECT_FALSE(read(nodeText("camera", "one", "a") + nodeText("locator", "two", "a")).onlyServeTheView());
    EXPECT_FALSE(read(nodeText("locator", "two", "a")).onlyServeTheView());
}

} // namespace
} // namespace tvk
