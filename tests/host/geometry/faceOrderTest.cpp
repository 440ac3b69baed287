#include "host/geometry/faceOrder.h"

#include "TestMeshes.h"

#include "host/geometry/faceClasses.h"
#include "host/geometry/meshEdits.h"
#include "host/geometry/polyPrimitives.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace host {

namespace {

using testing::Each;
using testing::ElementsAre;

/// Six squares in a row; those given are turned round.
std::shared_ptr<MeshData> row(const std::vector<bool>& turned) {
    return reverseFaces(*makePlane({6, 1, 6, 1, true}), turned, true);
}

const std::vector<bool> kThird = {false, false, true, false, false, false};
const std::vector<bool> kFour = {true, true, false, true, true, false};

TEST(FacesToReverse, FollowTheChosenFace) {
    const auto mesh = row(kThird);
    EXPECT_EQ(facesToReverse(*mesh->topology, {true, false, false, false, false, false}, WindingRule::kAsChosen),
              kThird);
    EXPECT_THAT(facesToReverse(*mesh->topology, kThird, WindingRule::kAsChosen),
                ElementsAre(true, true, false, true, true, true));
}

TEST(FacesToReverse, FollowTheNearestOfSeveral) {
    const auto mesh = row(kThird);
    EXPECT_THAT(facesToReverse(*mesh->topology, {false, false, true, true, false, false}, WindingRule::kAsChosen),
                ElementsAre(true, true, false, false, false, false));
}

TEST(FacesToReverse, FollowMost) {
    const std::vector<bool> first = {true, false, false, false, false, false};
    EXPECT_EQ(facesToReverse(*row(kThird)->topology, first, WindingRule::kAsMost), kThird);
    EXPECT_THAT(facesToReverse(*row(kFour)->topology, first, WindingRule::kAsMost),
                ElementsAre(false, false, true, false, false, true));
}

TEST(FacesToReverse, TurnChosenOnesAndFollowThem) {
    EXPECT_THAT(
        facesToReverse(*row({false, false, false, false, false, false})->topology, kThird, WindingRule::kUnlikeChosen),
        Each(true));
}

TEST(FacesToReverse, LeaveOtherShells) {
    const auto plane = makePlane({1, 1, 1, 1, true});
    const auto two = uniteMeshes({{plane, Matrix44()}, {plane, Matrix44()}});
    EXPECT_THAT(facesToReverse(*two->topology, {true, false}, WindingRule::kUnlikeChosen), ElementsAre(true, false));
}

TEST(FacesToReverse, DoNotFollowAcrossEdgesOfThreeFaces) {
    const auto mesh =
        meshOfFaces({{0, 0, 0}, {0, 1, 0}, {1, 0, 0}, {-1, 0, 0}, {0, 0, 1}}, {{0, 2, 1}, {0, 1, 3}, {0, 1, 4}});
    EXPECT_THAT(facesToReverse(*mesh->topology, {true, false, false}, WindingRule::kUnlikeChosen),
                ElementsAre(true, false, false));
}

TEST(ShellsOfFaces, AreNumberedByTheirLowestFace) {
    const auto mesh = meshOfFaces({{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}, {5, 0, 0}, {6, 0, 0}, {5, 1, 0}},
                                  {{0, 1, 2}, {4, 5, 6}, {0, 2, 3}});
    EXPECT_THAT(shellsOfFaces(*mesh->topology), ElementsAre(0, 1, 0));
    EXPECT_TRUE(shellsOfFaces(*MeshTopology::empty()).empty());
}

std::shared_ptr<const ComponentList> components(const char* word) {
    std::vector<ComponentRange> ranges(1);
    EXPECT_TRUE(parseComponent(word, ranges[0]));
    return std::make_shared<const ComponentList>(ranges);
}

TEST(FaceClasses, AreAlikeWhereTheSameGroupsNameFaces) {
    EXPECT_THAT(faceClasses({}, 3), ElementsAre(0, 0, 0));
    EXPECT_THAT(faceClasses({{1, components("f[1:2]")}, {2, components("f[2:9]")}, {3, components("vtx[0]")}}, 5),
                ElementsAre(0, 1, 2, 3, 3));
    EXPECT_THAT(faceClasses({{1, components("f[0]")}, {2, components("f[*]")}}, 2), ElementsAre(0, 1));
}

} // namespace

} // namespace host
