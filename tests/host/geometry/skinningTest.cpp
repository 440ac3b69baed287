#include "host/geometry/skinning.h"

#include "TestMeshes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace host {

namespace {

using Imath::V3f;
using testing::ElementsAre;

Matrix44 moved(double x, double y, double z) {
    return Matrix44().setTranslation(Imath::V3d(x, y, z));
}

SkinMatrices matrices(const std::vector<Matrix44>& influences) {
    SkinMatrices made;
    for (const Matrix44& matrix : influences) {
        made.influences.push_back({true, matrix});
    }
    return made;
}

SkinWeights weights(std::vector<std::size_t> starts, std::vector<std::int32_t> influences, std::vector<double> list) {
    SkinWeights made;
    made.starts = std::move(starts);
    made.influences = std::move(influences);
    made.weights = std::move(list);
    return made;
}

TEST(SkinPoints, LeavesPointsBeyondTheWeights) {
    Points points{{1, 0, 0}, {2, 0, 0}};
    skinPoints(weights({0, 1}, {0}, {1}), matrices({moved(0, 5, 0)}), points);
    EXPECT_THAT(points, ElementsAre(V3f(1, 5, 0), V3f(2, 0, 0)));
}

TEST(SkinPoints, LeavesOutInfluencesThatDoNotExist) {
    SkinMatrices given = matrices({moved(0, 5, 0), moved(0, 9, 0)});
    given.influences[1].exists = false;
    Points points{{1, 0, 0}, {1, 0, 0}};
    skinPoints(weights({0, 2, 3}, {0, 1, 7}, {1, 1, 1}), given, points);
    EXPECT_THAT(points, ElementsAre(V3f(1, 5, 0), V3f(1, 0, 0)));
}

// A sum of weights below 1 pulls towards the origin of the world, not of the mesh: it is left before the way back.
TEST(SkinPoints, GoesBackWithTheWholeMatrix) {
    SkinMatrices given = matrices({moved(0, 10, 0)});
    given.fromGeometry = moved(0, -10, 0);
    Points points{{4, 2, 0}};
    skinPoints(weights({0, 1}, {0}, {0.5}), given, points);
    EXPECT_THAT(points, ElementsAre(V3f(2, -4, 0)));
}

TEST(SkinPoints, NormalizesWhenAsked) {
    SkinMatrices given = matrices({moved(4, 0, 0), moved(0, 4, 0)});
    given.normalizes = true;
    Points points{{0, 0, 0}};
    skinPoints(weights({0, 2}, {0, 1}, {1.5, 0.5}), given, points);
    EXPECT_THAT(points, ElementsAre(V3f(3, 1, 0)));
}

TEST(TurnNormals, KeepsLengthsAndWhatHasNoDirection) {
    const auto mesh = meshOfFaces({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}}, {{0, 1, 2}});
    mesh->userNormals = std::make_shared<const Points>(Points{{3, 0, 0}, {0, 0, 0}, V3f(1e20F)});
    const Points turned = turnNormals(*mesh, Matrix44().setAxisAngle(Imath::V3d(0, 0, 1), 1.5707963267948966));
    EXPECT_TRUE(isNear(turned[0], {0, 3, 0}));
    EXPECT_EQ(turned[1], V3f(0, 0, 0));
    EXPECT_EQ(turned[2], V3f(1e20F));
    EXPECT_EQ(turnNormals(*mesh, Matrix44().setScale(Imath::V3d(1, 0, 1)))[0], V3f(3, 0, 0)); // no inverse
}

} // namespace

} // namespace host
