#include "host/nodes/storedMesh.h"

#include "MeshFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace host {

namespace {

using Imath::V2f;
using Imath::V3f;
using Imath::V4f;
using testing::ElementsAre;
using testing::IsEmpty;

class StoredMesh : public MeshFixture {
protected:
    /// The faces of the triangle again, with more tokens of a scene file behind each: words and numbers.
    void setFaceTokens(const std::vector<std::string>& tokens) {
        PolyFacesBuilder builder;
        for (const std::string& token : tokens) {
            const bool isNumber = token.find_first_not_of("-0123456789") == std::string::npos;
            ASSERT_TRUE(isNumber ? builder.number(std::stoi(token)) : builder.token(token)) << builder.error();
        }
        EXPECT_EQ(graph.setData(plug(node, "face[0]"), builder.finish()).error, "");
    }
    void setText(const std::string& path, const std::string& value) {
        EXPECT_EQ(graph.setString(plug(node, path), value).error, "");
    }
    MeshPtr result() { return evaluatedMesh(graph, node); }
    static std::vector<std::int32_t> idsOf(const FaceIds& ids) {
        std::int32_t count = 0;
        const std::int32_t* first = ids.find(0, count);
        return {first, first + count};
    }

    Node& node = makeTriangle("body");
};

TEST_F(StoredMesh, LeavesOutCoordinatesThatAreNotThere) {
    setText("uvSet[0].uvSetName", "map1");
    setRows(node, "uvSet[0].uvSetPoints", {0, 0, 1, 0});
    setFaceTokens({"f", "3", "0", "1", "2", "mu", "0", "3", "0", "1", "2"});
    EXPECT_THAT(result()->uvSets.at(0).ids->faces, IsEmpty());
    EXPECT_THAT(warnings, ElementsAre("body: set 'map1': face 0 names 2 of 2 (the face has no entry there)"));
}

TEST_F(StoredMesh, LeavesOutColoursThatAreNotThere) {
    setText("colorSet[0].colorName", "paint");
    setRows(node, "colorSet[0].colorSetPoints", {1, 0, 0, 1});
    setFaceTokens({"f", "3", "0", "1", "2", "mc", "0", "3", "0", "-1", "-2"});
    EXPECT_THAT(result()->colorSets.at(0).ids->faces, IsEmpty());
    EXPECT_THAT(warnings, ElementsAre("body: set 'paint': face 0 names -2 of 1 (the face has no entry there)"));
}

TEST_F(StoredMesh, SaysWhichVertexIsNoPlace) {
    set(node, "vrts[1].vrty", std::numeric_limits<double>::quiet_NaN());
    EXPECT_TRUE(std::isnan((*result()->points)[1].y));
    EXPECT_THAT(warnings, ElementsAre("body: vertex 1 has no finite place"));
}

TEST_F(StoredMesh, CountsUvSetsThatAreThere) {
    setText("uvSet[1].uvSetName", "first");
    setText("uvSet[4].uvSetName", "second"); // those between were deleted
    setRows(node, "uvSet[4].uvSetPoints", {0, 0, 1, 0, 0, 1});
    setFaceTokens({"f", "3", "0", "1", "2", "mu", "1", "3", "2", "1", "0"});
    ASSERT_EQ(result()->uvSets.size(), 2U);
    EXPECT_EQ(result()->uvSets[0].name, "first");
    EXPECT_THAT(result()->uvSets[0].ids->faces, IsEmpty());
    EXPECT_EQ(idsOf(*result()->uvSets[1].ids), (std::vector<std::int32_t>{2, 1, 0}));
    EXPECT_THAT(warnings, IsEmpty());
}

TEST_F(StoredMesh, ReadsTheSingleUvListOfOldScenes) {
    setRows(node, "uvpt", {0, 0, 1, 0, 0, 1});
    setFaceTokens({"f", "3", "0", "1", "2", "mf", "3", "1", "2", "0"});
    ASSERT_EQ(result()->uvSets.size(), 1U);
    EXPECT_EQ(result()->uvSets[0].name, "map1");
    EXPECT_THAT(*result()->uvSets[0].points, ElementsAre(V2f(0, 0), V2f(1, 0), V2f(0, 1)));
    EXPECT_EQ(idsOf(*result()->uvSets[0].ids), (std::vector<std::int32_t>{1, 2, 0}));
}

TEST_F(StoredMesh, ReadsTheSingleColourListOfOldScenes) {
    setRows(node, "colors", {1, 0, 0, 1, 0, 1, 0, 0.5});
    setFaceTokens({"f", "3", "0", "1", "2", "fc", "3", "1", "-1", "0"});
    ASSERT_EQ(result()->colorSets.size(), 1U);
    EXPECT_EQ(result()->colorSets[0].colors->at(1), V4f(0, 1, 0, 0.5F));
    EXPECT_EQ(idsOf(*result()->colorSets[0].ids), (std::vector<std::int32_t>{1, -1, 0}));
}

TEST_F(StoredMesh, KnowsSetsByNameAndTheCurrentOne) {
    setText("colorSet[0].colorName", "one");
    setText("colorSet[1].colorName", "two");
    setText("currentColorSet", "two");
    EXPECT_EQ(result()->findColorSet("")->name, "two");
    EXPECT_EQ(result()->findColorSet("one")->name, "one");
    EXPECT_EQ(result()->findColorSet("three"), nullptr);
}

TEST_F(StoredMesh, KeepsNormalsThatUsersSet) {
    setRows(node, "normals", {0, 0.03, 0, 1e20, 1e20, 1e20, 0, 0, -1});
    EXPECT_THAT(result()->normals(), ElementsAre(V3f(0, 1, 0), V3f(0, 0, 1), V3f(0, 0, -1)));
}

// Two triangles that share a soft edge: four normal ids, six corners.
TEST_F(StoredMesh, TakesNormalsPerCornerToo) {
    Node& pair = makeMesh("pair");
    setRows(pair, "vrts", {0, 0, 0, 1, 0, 0, 0, 1, 0, 1, 1, 0});
    setRows(pair, "edge", {0, 1, 1, 1, 2, 1, 2, 0, 1, 1, 3, 1, 3, 2, 1});
    setFaces(pair, {{0, 1, 2}, {3, 4, -2}});
    setRows(pair, "normals", {1, 0, 0, 0, 1, 0, 0, 1, 0, 0, 1, 0, 0, 0, 1, 0, 1, 0});
    EXPECT_THAT(evaluatedMesh(graph, pair)->normals(),
                ElementsAre(V3f(1, 0, 0), V3f(0, 1, 0), V3f(0, 1, 0), V3f(0, 0, 1)));
    EXPECT_THAT(warnings, IsEmpty());
}

TEST_F(StoredMesh, SharesTheFacesThatTheFileGave) {
    const DataPtr stored = graph.data(plug(node, "face[0]"));
    EXPECT_EQ(result()->topology->faces(), stored);
}

} // namespace

} // namespace host
