// Meshes as scenes write them, from their text to what a shape shows.

#include "host/nodes/meshQueries.h"
#include "host/scene/Scene.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace host {

namespace {

using Imath::V3f;

class SceneMeshes : public testing::Test {
protected:
    SceneMeshes() {
        scene.onWarning = [this](const std::string& line) { warnings.push_back(line); };
    }
    void open(const std::string& statements) {
        EXPECT_TRUE(scene.openText("//Maya ASCII 2018 scene\n" + statements, "s.ma").ok());
    }
    MeshPtr mesh(const std::string& shape) { return evaluatedMesh(scene.graph(), *scene.find(shape).node); }

    Scene scene;
    std::vector<std::string> warnings;
};

const char* const kQuad = R"(
    setAttr -s 4 ".vt[0:3]"  0 0 0 1 0 0 1 2 0 0 2 0;
    setAttr -s 4 ".ed[0:3]"  0 1 0 1 2 0 2 3 0 3 0 0;
    setAttr -ch 4 ".fc[0]" -type "polyFaces" f 4 0 1 2 3;
)";

TEST_F(SceneMeshes, AreInCentimetresWhateverTheUnitOfTheScene) {
    open(std::string("currentUnit -l meter;\ncreateNode transform -n \"t\";\ncreateNode mesh -n \"m\" -p \"t\";\n") +
         kQuad + "setAttr \".pt[1]\" -type \"float3\" 0 0 0.5;\n");
    EXPECT_EQ((*mesh("m")->points)[2], V3f(100, 200, 0));
    EXPECT_EQ((*mesh("m")->points)[1], V3f(100, 0, 50));
}

TEST_F(SceneMeshes, NameTheShapeThatIsBroken) {
    open(R"(
createNode transform -n "t";
createNode mesh -n "m" -p "t";
    setAttr -s 3 ".vt[0:2]"  0 0 0 1 0 0 1 2 0;
    setAttr -s 4 ".ed[0:3]"  0 1 0 1 2 0 2 3 0 3 0 0;
    setAttr -ch 4 ".fc[0]" -type "polyFaces" f 4 0 1 2 3;
)");
    warnings.clear();
    EXPECT_EQ(mesh("m")->topology->faceCount(), 0);
    EXPECT_THAT(warnings, testing::ElementsAre("m: edge 2 names vertex 3 of 3 (its mesh is empty)"));
}

// A strip of two quads, three rows of points from y -1 to 4, bound to a hip below and a knee in the middle.
const char* const kSkin = R"(
createNode transform -n "root";
	setAttr ".t" -type "double3" 0 1 0 ;
createNode joint -n "hip" -p "root";
	setAttr ".jo" -type "double3" 0 0 90 ;
createNode joint -n "knee" -p "hip";
	setAttr ".t" -type "double3" 2 0 0 ;
createNode transform -n "body" -p "root";
	setAttr ".it" no;
createNode mesh -n "bodyShape" -p "body";
createNode mesh -n "bodyShapeOrig" -p "body";
	setAttr ".io" yes;
	setAttr -s 6 ".vt[0:5]"  -1 0 0 1 0 0 -1 2 0 1 2 0 -1 4 0 1 4 0;
	setAttr -s 7 ".ed[0:6]"  0 1 0 0 2 0 1 3 0 2 3 1 2 4 0 3 5 0 4 5 0;
	setAttr -s 2 -ch 8 ".fc[0:1]" -type "polyFaces"
		f 4 0 2 -4 -2
		f 4 3 5 -7 -5;
createNode skinCluster -n "skinCluster1";
	setAttr -s 6 ".wl";
	setAttr ".wl[0].w[0]"  1;
	setAttr ".wl[1].w[0]"  1;
	setAttr -s 2 ".wl[2].w[0:1]"  0.5 0.5;
	setAttr ".wl[3:5].w"  2 0 0.5 1 0.5  1 1 1  1 1 1;
	setAttr -s 2 ".pm";
	setAttr ".pm[0]" -type "matrix" 0 -1 0 0 1 0 0 0 0 0 1 0 -1 0 0 1;
	setAttr ".pm[1]" -type "matrix" 0 -1 0 0 1 0 0 0 0 0 1 0 -3 0 0 1;
	setAttr ".gm" -type "matrix" 1 0 0 0 0 1 0 0 0 0 1 0 0 0 0 1;
connectAttr "skinCluster1.og[0]" "bodyShape.i";
connectAttr "bodyShapeOrig.w" "skinCluster1.ip[0].ig";
connectAttr "hip.wm" "skinCluster1.ma[0]";
connectAttr "knee.wm" "skinCluster1.ma[1]";
)";

class SceneSkin : public SceneMeshes {
protected:
    SceneSkin() { open(kSkin); }
    void set(const std::string& plug, double value) {
        const Scene::PlugMatch match = scene.findPlug(plug);
        ASSERT_TRUE(match.ok());
        EXPECT_EQ(scene.graph().setNumber(match.plug, value).error, "");
    }
    void expectPoint(std::size_t point, const V3f& expected) {
        EXPECT_LT(((*mesh("bodyShape")->points)[point] - expected).length(), 1e-5F)
            << point << " " << (*mesh("bodyShape")->points)[point];
    }
};

TEST_F(SceneSkin, StandsAsItWasBound) {
    const Points& original = *mesh("bodyShapeOrig")->points;
    for (std::size_t i = 0; i < original.size(); ++i) {
        expectPoint(i, original[i]);
    }
    EXPECT_EQ(mesh("bodyShape")->topology->normalFans().count, 6);
    for (const V3f& normal : mesh("bodyShape")->normals()) {
        EXPECT_EQ(normal, V3f(0, 0, 1));
    }
}

// About the hip at (0, 1): (x, y) goes to (1 - y, 1 + x).
TEST_F(SceneSkin, TurnsWholeWithItsRoot) {
    set("hip.rotateZ", 1.5707963267948966);
    expectPoint(0, {1, 0, 0});
    expectPoint(3, {-1, 2, 0});
    expectPoint(5, {-3, 2, 0});
}

// About the knee at (0, 3): (x, y) goes to (3 - y, 3 + x) for the upper row; the middle row goes half of the way.
TEST_F(SceneSkin, BlendsAtTheJoint) {
    set("knee.rotateZ", 1.5707963267948966);
    expectPoint(0, {-1, 0, 0});
    expectPoint(3, {1, 3, 0}); // between (1, 2) and (1, 4)
    expectPoint(4, {-1, 2, 0});
    expectPoint(5, {-1, 4, 0});
}

TEST_F(SceneSkin, StandsStillWhenItHasNoEffect) {
    set("knee.rotateZ", 1.5707963267948966);
    set("skinCluster1.nodeState", 1);
    expectPoint(5, {1, 4, 0});
}

} // namespace

} // namespace host
