#include "host/nodes/primitiveCompute.h"

#include "MeshFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace host {

namespace {

using Imath::V3f;
using testing::ElementsAre;
using testing::IsEmpty;

class Creation : public MeshFixture {
protected:
    Node& create(const char* type) {
        Node& node = make(type, "maker");
        connect(node, "output", shown, "inMesh");
        return node;
    }
    MeshPtr result() { return evaluatedMesh(graph, shown); }

    Node& shown = makeMesh("shown");
};

struct DefaultRow {
    const char* type;
    std::int32_t vertices, faces;
    std::size_t uvs;
};

const DefaultRow kDefaults[] = {{"polyCube", 8, 6, 14},        {"polyPlane", 121, 100, 121},
                                {"polySphere", 382, 400, 439}, {"polyCylinder", 42, 60, 84},
                                {"polyCone", 21, 21, 42},      {"polyTorus", 400, 400, 441}};

class DefaultCreation : public Creation, public testing::WithParamInterface<DefaultRow> {};

TEST_P(DefaultCreation, MakesAMeshSilently) {
    Node& node = create(GetParam().type);
    EXPECT_EQ(result()->topology->vertexCount(), GetParam().vertices);
    EXPECT_EQ(result()->topology->faceCount(), GetParam().faces);
    EXPECT_EQ(result()->uvSets.at(0).points->size(), GetParam().uvs);
    EXPECT_THAT(warnings, IsEmpty());
    set(node, "createUVs", 0);
    EXPECT_TRUE(result()->uvSets.at(0).points->empty());
}

TEST_P(DefaultCreation, OfTooManyFacesIsEmptyAndSaysSo) {
    Node& node = create(GetParam().type);
    set(node, node.findAttribute("subdivisionsAxis") != kNoAttr ? "subdivisionsAxis" : "subdivisionsWidth", 2e9);
    EXPECT_EQ(result()->topology->faceCount(), 0);
    EXPECT_THAT(warnings, ElementsAre("maker: it has too many faces (its mesh is empty)"));
}

INSTANTIATE_TEST_SUITE_P(Types, DefaultCreation, testing::ValuesIn(kDefaults),
                         [](const auto& row) { return std::string(row.param.type); });

TEST_F(Creation, FollowsItsNumbers) {
    Node& cube = create("polyCube");
    Node& driver = make("transform", "driver");
    connect(driver, "translateX", cube, "width");
    set(driver, "translateX", 4);
    EXPECT_EQ((*result()->points)[1], V3f(2, -0.5F, 0.5F));
    set(driver, "translateX", 6);
    set(cube, "subdivisionsDepth", 3);
    EXPECT_EQ((*result()->points)[1], V3f(3, -0.5F, 0.5F));
    EXPECT_EQ(result()->topology->faceCount(), 14);
}

// A plane that faces +z stands upright, its first row at the bottom.
TEST_F(Creation, TurnsToItsAxis) {
    Node& plane = create("polyPlane");
    set(plane, "subdivisionsWidth", 1);
    set(plane, "subdivisionsHeight", 1);
    set3(plane, "axis", 0, 0, 1);
    const V3f kExpected[] = {{-0.5F, -0.5F, 0}, {0.5F, -0.5F, 0}, {-0.5F, 0.5F, 0}, {0.5F, 0.5F, 0}};
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_TRUE(((*result()->points)[i] - kExpected[i]).length() < 1e-6F) << (*result()->points)[i];
    }
    EXPECT_THAT(warnings, IsEmpty());
    set3(plane, "axis", 1, 0, 0);
    EXPECT_NEAR((*result()->points)[0].x, 0.0, 1e-6);
    EXPECT_THAT(warnings, ElementsAre("maker: axis is not supported as it is set (it is turned the shortest way)"));
}

double distance(const MeshData& mesh, std::size_t a, std::size_t b) {
    return ((*mesh.points)[a] - (*mesh.points)[b]).length();
}

// The corners of the base lie on the axes, as its sides make it; all edges are as long as a side.
TEST_F(Creation, OfAPyramidHasSidesOfOneLength) {
    Node& pyramid = create("polyPyramid");
    const MeshPtr mesh = result();
    ASSERT_EQ(mesh->topology->vertexCount(), 5);
    EXPECT_EQ(mesh->topology->faceCount(), 5);
    EXPECT_EQ(mesh->uvSets.at(0).points->size(), 10U);
    const auto root = static_cast<float>(std::sqrt(2.0));
    const V3f kExpected[] = {
        {0, -root / 2, -root}, {-root, -root / 2, 0}, {0, -root / 2, root}, {root, -root / 2, 0}, {0, root / 2, 0}};
    for (std::size_t i = 0; i < 5; ++i) {
        EXPECT_TRUE(((*mesh->points)[i] - kExpected[i]).length() < 1e-6F) << i << ": " << (*mesh->points)[i];
    }
    EXPECT_EQ(mesh->topology->normalFans().count, 16) << "all edges are hard";
    for (const double sides : {3.0, 5.0, 99.0}) {
        set(pyramid, "numberOfSides", sides);
        const auto apex = static_cast<std::size_t>(result()->topology->vertexCount()) - 1;
        EXPECT_NEAR(distance(*result(), 0, 1), 2, 1e-6) << sides;
        EXPECT_NEAR(distance(*result(), 0, apex), 2, 1e-6) << sides;
        EXPECT_EQ(apex, sides == 3.0 ? 3U : 5U) << "no more than five";
    }
    EXPECT_THAT(warnings, IsEmpty());
}

TEST_F(Creation, OfAPrismHasHardEdgesAndPlainCaps) {
    Node& prism = create("polyPrism");
    set(prism, "length", 3);
    const MeshPtr mesh = result();
    EXPECT_EQ(mesh->topology->vertexCount(), 6);
    EXPECT_EQ(mesh->topology->faceCount(), 5);
    EXPECT_NEAR(distance(*mesh, 0, 1), 2, 1e-6);
    EXPECT_NEAR(distance(*mesh, 0, 3), 3, 1e-6);
    EXPECT_FLOAT_EQ((*mesh->points)[0].y, -1.5F);
    EXPECT_EQ(mesh->topology->normalFans().count, 18);
    set(prism, "subdivisionsCaps", 1);
    EXPECT_EQ(result()->topology->faceCount(), 9);
}

TEST_F(Creation, SaysWhatItCannotDo) {
    Node& cylinder = create("polyCylinder");
    set(cylinder, "subdivisionsCaps", 3);
    set(cylinder, "roundCap", 1);
    EXPECT_EQ(result()->topology->faceCount(), 60);
    EXPECT_THAT(warnings, ElementsAre("maker: subdivisionsCaps is not supported as it is set (its caps have 1)",
                                      "maker: roundCap is not supported as it is set (its caps are flat)"));
}

TEST_F(Creation, OfTypesThatAreNotEvaluatedMakesNothing) {
    create("polyHelix");
    EXPECT_EQ(result()->topology->vertexCount(), 0);
    EXPECT_TRUE(types.find("polyHelix")->passesThrough);
    EXPECT_FALSE(types.find("polyCube")->passesThrough);
}

} // namespace

} // namespace host
