#include "host/geometry/checkIds.h"

#include "TestMeshes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace host {

namespace {

using testing::ElementsAre;

std::shared_ptr<const FaceIds> ids(std::vector<std::int32_t> faces, std::vector<std::int32_t> starts,
                                   std::vector<std::int32_t> list) {
    auto made = std::make_shared<FaceIds>();
    made->faces = std::move(faces);
    made->starts = std::move(starts);
    made->ids = std::move(list);
    return made;
}

class CheckIds : public testing::Test {
protected:
    std::shared_ptr<MeshData> twoTriangles = meshOfFaces(Points(4), {{0, 1, 2}, {2, 1, 3}});
    std::string problem;
};

TEST_F(CheckIds, LeavesOutFacesThatNameWhatIsNotThere) {
    const auto checked = checkedIds(ids({0, 1}, {0, 3, 6}, {0, 1, 2, 2, 5, 0}), *twoTriangles->topology, 4, 0, problem);
    EXPECT_EQ(problem, "face 1 names 5 of 4");
    EXPECT_THAT(checked->faces, ElementsAre(0));
    EXPECT_THAT(checked->starts, ElementsAre(0, 3));
    EXPECT_THAT(checked->ids, ElementsAre(0, 1, 2));
}

TEST_F(CheckIds, LeavesOutFacesWithAnotherNumberOfCorners) {
    const auto checked =
        checkedIds(ids({0, 1}, {0, 4, 7}, {0, 1, 2, 3, 0, 1, 2}), *twoTriangles->topology, 4, 0, problem);
    EXPECT_EQ(problem, "face 0 has 3 corners but 4 ids");
    EXPECT_THAT(checked->faces, ElementsAre(1));
}

TEST_F(CheckIds, MinusOneIsForColoursOnly) {
    const auto list = ids({0}, {0, 3}, {0, -1, 2});
    EXPECT_EQ(checkedIds(list, *twoTriangles->topology, 4, -1, problem), list);
    EXPECT_EQ(problem, "");
    EXPECT_TRUE(checkedIds(list, *twoTriangles->topology, 4, 0, problem)->faces.empty());
    EXPECT_EQ(problem, "face 0 names -1 of 4");
}

TEST_F(CheckIds, SaysNothingOfFacesThatWereCutOff) {
    const auto checked = checkedIds(ids({1, 2}, {0, 3, 6}, {0, 1, 2, 0, 1, 2}), *twoTriangles->topology, 4, 0, problem);
    EXPECT_EQ(problem, "");
    EXPECT_THAT(checked->faces, ElementsAre(1));
}

TEST_F(CheckIds, KeepsTheSameObjectWhenAllFits) {
    const auto list = ids({1}, {0, 3}, {0, 1, 3});
    EXPECT_EQ(checkedIds(list, *twoTriangles->topology, 4, 0, problem), list);
}

} // namespace

} // namespace host
