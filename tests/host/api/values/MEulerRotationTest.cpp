#include <maya/MEulerRotation.h>

#include "plainMatrices.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <string>
#include <vector>

namespace {

constexpr double kPi = 180 * kDegree;

static_assert(MEulerRotation::kXYZ == 0 && MEulerRotation::kYZX == 1 && MEulerRotation::kZXY == 2 &&
              MEulerRotation::kXZY == 3 && MEulerRotation::kYXZ == 4 && MEulerRotation::kZYX == 5);

constexpr int kSecondAxis[6] = {1, 2, 0, 2, 0, 1};
constexpr int kThirdAxis[6] = {2, 0, 1, 1, 2, 0};

MEulerRotation degrees(double x, double y, double z, int order) {
    return MEulerRotation(x * kDegree, y * kDegree, z * kDegree, static_cast<MEulerRotation::RotationOrder>(order));
}

PlainMatrix plain(const MEulerRotation& rotation) {
    return plainEuler(rotation.order, rotation.x, rotation.y, rotation.z);
}

class EveryOrder : public testing::TestWithParam<int> {};

std::string orderName(const testing::TestParamInfo<int>& order) {
    return std::array<std::string, 6>{"xyz", "yzx", "zxy", "xzy", "yxz", "zyx"}[static_cast<std::size_t>(order.param)];
}

INSTANTIATE_TEST_SUITE_P(MEulerRotation, EveryOrder, testing::Range(0, 6), orderName);

// Every octant, beyond a half turn, and all combinations of quarter turns, gimbal lock of every order among them.
std::vector<MEulerRotation> samples(int order) {
    std::vector<MEulerRotation> rotations = {degrees(10, 20, 30, order),       degrees(-70, 80, -160, order),
                                             degrees(170, -100, 95, order),    degrees(725, -20, 300, order),
                                             degrees(1, 89.99999, 5, order),   degrees(89.99999, 3, -40, order),
                                             degrees(4, -60, -89.9999, order), degrees(0, 0, 0, order)};
    constexpr double kQuarters[4] = {-90, 0, 90, 180};
    for (std::size_t mix = 0; mix < 64; ++mix) {
        rotations.push_back(degrees(kQuarters[mix % 4], kQuarters[mix / 4 % 4], kQuarters[mix / 16], order));
    }
    for (const double lock : {90.0, -90.0}) {
        MEulerRotation locked = degrees(25, 35, -115, order);
        locked[static_cast<unsigned int>(kSecondAxis[order])] = lock * kDegree;
        rotations.push_back(locked);
    }
    return rotations;
}

TEST_P(EveryOrder, MatrixIsTheProductOfItsElementaryRotations) {
    for (const MEulerRotation& rotation : samples(GetParam())) {
        EXPECT_THAT(rotation.asMatrix(), IsMatrix(plain(rotation), 1e-14)) << rotation;
    }
}

TEST_P(EveryOrder, QuaternionIsTheSameRotation) {
    for (const MEulerRotation& rotation : samples(GetParam())) {
        EXPECT_THAT(rotation.asQuaternion().asMatrix(), IsMatrix(plain(rotation), 1e-14)) << rotation;
    }
}

TEST_P(EveryOrder, DecomposeGivesTheMatrixBack) {
    const auto order = static_cast<MEulerRotation::RotationOrder>(GetParam());
    for (const MEulerRotation& rotation : samples(GetParam())) {
        const MEulerRotation found = MEulerRotation::decompose(toMMatrix(plain(rotation)), order);
        EXPECT_EQ(found.order, order);
        EXPECT_THAT(found.asMatrix(), IsMatrix(plain(rotation), 2e-12)) << rotation << " as " << found;
        EXPECT_LE(std::abs(found[static_cast<unsigned int>(kSecondAxis[order])]), kPi / 2) << rotation;
    }
}

TEST_P(EveryOrder, DecomposeGivesAnglesInRangeBack) {
    for (const MEulerRotation& rotation : {degrees(10, 20, 30, GetParam()), degrees(-40, 89, -70, GetParam())}) {
        EXPECT_TRUE(MEulerRotation::decompose(toMMatrix(plain(rotation)), rotation.order).isEquivalent(rotation, 1e-13))
            << rotation;
    }
}

TEST_P(EveryOrder, ThirdAngleIsZeroInGimbalLock) {
    const auto order = static_cast<MEulerRotation::RotationOrder>(GetParam());
    for (const double lock : {90.0, -90.0}) {
        MEulerRotation locked = degrees(25, 35, -115, order);
        locked[static_cast<unsigned int>(kSecondAxis[order])] = lock * kDegree;
        const MEulerRotation found = MEulerRotation::decompose(toMMatrix(plain(locked)), order);
        EXPECT_EQ(found[static_cast<unsigned int>(kThirdAxis[order])], 0.0);
        EXPECT_NEAR(found[static_cast<unsigned int>(kSecondAxis[order])], lock * kDegree, 1e-12);
    }
}

TEST_P(EveryOrder, DecomposeTakesNothingButTheRotation) {
    const MEulerRotation rotation = degrees(10, 20, 30, GetParam());
    const PlainMatrix sheared = plainProduct(plainScale(2, 3, 0.1), plainShear(0.5, -1, 2));
    const PlainMatrix whole = plainProduct(plainProduct(sheared, plain(rotation)), plainTranslation(4, 5, 6));
    EXPECT_TRUE(MEulerRotation::decompose(toMMatrix(whole), rotation.order).isEquivalent(rotation, 1e-12));
}

TEST_P(EveryOrder, ReordersToTheSameRotationWithTheNearestAngles) {
    for (int target = 0; target < 6; ++target) {
        const auto order = static_cast<MEulerRotation::RotationOrder>(target);
        for (const MEulerRotation& rotation : samples(GetParam())) {
            const MEulerRotation reordered = rotation.reorder(order);
            EXPECT_EQ(reordered.order, order);
            EXPECT_THAT(reordered.asMatrix(), IsMatrix(plain(rotation), 2e-12)) << rotation << " as " << reordered;
            const MVector near = reordered.asVector() - rotation.asVector();
            const MVector far = reordered.alternateSolution().asVector() - rotation.asVector();
            EXPECT_LE(near.length(), far.length() + 1e-9) << rotation << " as " << reordered;
        }
    }
}

TEST_P(EveryOrder, AlternateSolutionIsTheSameRotation) {
    for (const MEulerRotation& rotation : samples(GetParam())) {
        const MEulerRotation other = rotation.alternateSolution();
        EXPECT_THAT(other.asMatrix(), IsMatrix(plain(rotation), 1e-14)) << rotation;
        EXPECT_THAT(other.alternateSolution().asMatrix(), IsMatrix(plain(rotation), 1e-14)) << rotation;
    }
    EXPECT_FALSE(degrees(10, 20, 30, GetParam()).alternateSolution().isEquivalent(degrees(10, 20, 30, GetParam())));
}

TEST_P(EveryOrder, InverseUndoes) {
    for (const MEulerRotation& rotation : samples(GetParam())) {
        const PlainMatrix product = plainProduct(plain(rotation), plain(rotation.inverse()));
        EXPECT_THAT(toMMatrix(product), IsMatrix(plainScale(1, 1, 1), 1e-14)) << rotation;
    }
}

TEST(MEulerRotation, DecomposesWhatIsNoRotationIntoNumbers) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    for (const PlainMatrix& matrix :
         {plainScale(0, 0, 0), plainScale(nan, 1, 1), plainScale(1, 0, 1), plainScale(-1, 1, 1)}) {
        const MEulerRotation found = MEulerRotation::decompose(toMMatrix(matrix), MEulerRotation::kZXY);
        EXPECT_TRUE(std::isfinite(found.x) && std::isfinite(found.y) && std::isfinite(found.z)) << found;
    }
}

TEST(MEulerRotation, ProductAppliesTheLeftRotationFirstAndKeepsItsOrder) {
    const MEulerRotation a = degrees(10, 20, 30, 2), b = degrees(-40, 50, 60, 5);
    const MEulerRotation product = a * b;
    EXPECT_EQ(product.order, MEulerRotation::kZXY);
    EXPECT_THAT(product.asMatrix(), IsMatrix(plainProduct(plain(a), plain(b)), 1e-14));
    EXPECT_TRUE((a * b.asQuaternion()).isEquivalent(product, 1e-13));
    MEulerRotation inPlace = a;
    inPlace *= b;
    EXPECT_EQ(inPlace, product);
    inPlace = a;
    inPlace *= b.asQuaternion();
    EXPECT_TRUE(inPlace.isEquivalent(product, 1e-13));
}

TEST(MEulerRotation, SumsGoAngleByAngleInTheLeftOrder) {
    const MEulerRotation a = degrees(10, 20, 30, 0), b = degrees(1, 2, 3, 0);
    EXPECT_TRUE((a + b).isEquivalent(degrees(11, 22, 33, 0)));
    EXPECT_TRUE((a - b).isEquivalent(degrees(9, 18, 27, 0)));
    EXPECT_TRUE((a * 2.0).isEquivalent(degrees(20, 40, 60, 0)));
    EXPECT_TRUE((-a).isEquivalent(degrees(-10, -20, -30, 0)));
    const MEulerRotation other = b.reorder(MEulerRotation::kZYX);
    EXPECT_FALSE(other.isEquivalent(b));
    EXPECT_TRUE((a + other).isEquivalent(a + b));
    MEulerRotation sum = a;
    sum += b;
    sum -= b;
    sum *= 1.0;
    EXPECT_TRUE(sum.isEquivalent(a));
}

TEST(MEulerRotation, ComparesOrders) {
    EXPECT_TRUE(degrees(0, 0, 0, 0).isZero());
    EXPECT_FALSE(degrees(0, 0, 0, 0).isEquivalent(degrees(0, 0, 0, 1)));
    EXPECT_TRUE(degrees(0, 0, 0, 0) != degrees(0, 0, 0, 1));
    EXPECT_EQ(MEulerRotation(), MEulerRotation::identity);
}

TEST(MEulerRotation, AlternateSolutionOfXyzTurnsTheOuterAngles) {
    EXPECT_TRUE(degrees(10, 20, 30, 0).alternateSolution().isEquivalent(degrees(-170, 160, -150, 0), 1e-13));
    MEulerRotation rotation;
    rotation.setToAlternateSolution(degrees(10, 20, 30, 0));
    EXPECT_TRUE(rotation.setToAlternateSolution().isEquivalent(degrees(10, 20, 30, 0), 1e-13));
}

TEST(MEulerRotation, BoundsEachAngle) {
    EXPECT_TRUE(degrees(370, -190, 180, 3).bound().isEquivalent(degrees(10, 170, 180, 3), 1e-13));
    EXPECT_TRUE(MEulerRotation::bound(degrees(720, -720, -180, 3)).isEquivalent(degrees(0, 0, -180, 3), 1e-13));
    MEulerRotation rotation = degrees(0, 181, 0, 3);
    EXPECT_TRUE(rotation.boundIt().isEquivalent(degrees(0, -179, 0, 3), 1e-13));
}

TEST(MEulerRotation, ClosestCutAddsWholeTurnsOnly) {
    const MEulerRotation cut = degrees(-170, 10, 350, 0).closestCut(degrees(700, 20, 0, 0));
    EXPECT_TRUE(cut.isEquivalent(degrees(550, 10, -10, 0), 1e-12)) << cut;
    MEulerRotation rotation;
    rotation.setToClosestCut(degrees(-170, 10, 350, 0), degrees(700, 20, 0, 0));
    EXPECT_TRUE(rotation.setToClosestCut(degrees(700, 20, 0, 0)).isEquivalent(cut, 1e-12));
}

TEST(MEulerRotation, ClosestSolutionMayBeTheAlternateOne) {
    const MEulerRotation target = degrees(172, 158, 209, 0);
    const MEulerRotation solution = degrees(-10, 20, 30, 0).closestSolution(target);
    EXPECT_TRUE(solution.isEquivalent(degrees(170, 160, 210, 0), 1e-12)) << solution;
    EXPECT_TRUE(MEulerRotation::closestSolution(degrees(-10, 20, 30, 0), target).isEquivalent(solution));
    EXPECT_TRUE(degrees(-10, 20, 30, 0).closestSolution(degrees(350, 21, 29, 0)).isEquivalent(degrees(350, 20, 30, 0)));
    MEulerRotation rotation = degrees(-10, 20, 30, 0);
    EXPECT_TRUE(rotation.setToClosestSolution(target).isEquivalent(solution));
    EXPECT_TRUE(rotation.setToClosestSolution(degrees(-10, 20, 30, 0), target).isEquivalent(solution));
}

TEST(MEulerRotation, ReorderKeepsWholeTurns) {
    EXPECT_TRUE(degrees(0, 0, 725, 0).reorder(MEulerRotation::kZYX).isEquivalent(degrees(0, 0, 725, 5), 1e-12));
    MEulerRotation rotation = degrees(400, 0, 0, 2);
    EXPECT_EQ(rotation.reorderIt(MEulerRotation::kZXY), degrees(400, 0, 0, 2));
}

TEST(MEulerRotation, IncrementalRotationRunsOnBeyondHalfTurns) {
    MEulerRotation rotation;
    rotation.incrementalRotateBy(MVector::zAxis, 500 * kDegree);
    EXPECT_TRUE(rotation.isEquivalent(degrees(0, 0, 500, 0), 1e-9)) << rotation;
    rotation.incrementalRotateBy(MVector::zAxis, -600 * kDegree);
    EXPECT_TRUE(rotation.isEquivalent(degrees(0, 0, -100, 0), 1e-9)) << rotation;
    MEulerRotation turned = degrees(10, 20, 30, 4);
    turned.incrementalRotateBy(MVector::xAxis, 75 * kDegree);
    EXPECT_THAT(turned.asMatrix(),
                IsMatrix(plainProduct(plain(degrees(10, 20, 30, 4)), plainRotation(0, 75 * kDegree)), 1e-12));
    const MEulerRotation before = turned;
    turned.incrementalRotateBy(MVector::xAxis, std::numeric_limits<double>::infinity());
    turned.incrementalRotateBy(MVector::xAxis, 0.0);
    EXPECT_EQ(turned, before);
}

TEST(MEulerRotation, IsAssignedInItsOwnOrder) {
    MEulerRotation rotation(0, 0, 0, MEulerRotation::kYZX);
    rotation = toMMatrix(plainEuler(0, 0.1, 0.2, 0.3));
    EXPECT_EQ(rotation.order, MEulerRotation::kYZX);
    EXPECT_THAT(rotation.asMatrix(), IsMatrix(plainEuler(0, 0.1, 0.2, 0.3), 1e-15));
    rotation = MQuaternion(0.5, MVector(1, 2, 3));
    EXPECT_EQ(rotation.order, MEulerRotation::kYZX);
    EXPECT_TRUE(rotation.asMatrix().isEquivalent(MQuaternion(0.5, MVector(1, 2, 3)).asMatrix(), 1e-14));
    EXPECT_EQ(rotation.setValue(1, 2, 3, MEulerRotation::kZXY).asVector(), MVector(1, 2, 3));
    EXPECT_EQ(rotation.setValue(MVector(4, 5, 6)).order, MEulerRotation::kXYZ);
    EXPECT_EQ(rotation[2], 6.0);
}

} // namespace
