#include "host/nodes/ikChain.h"

#include "GraphFixture.h"

#include "host/nodes/matrixPieces.h"

#include <vector>

namespace host {
namespace {

using Imath::M33d;
using Imath::V3d;

IkChain chainThrough(std::vector<V3d> places) {
    IkChain chain;
    chain.end = places.back();
    places.pop_back();
    for (const V3d& place : places) {
        chain.joints.push_back({place, M33d()});
    }
    return chain;
}

/// Where the joints and the end come when the joints, which are not turned at rest, are turned so.
std::vector<V3d> placesOf(const IkChain& chain, const std::vector<M33d>& rotations) {
    std::vector<V3d> places{chain.joints.front().place};
    for (std::size_t i = 0; i < rotations.size(); ++i) {
        const V3d next = i + 1 < chain.joints.size() ? chain.joints[i + 1].place : chain.end;
        places.push_back(places.back() + (next - chain.joints[i].place) * rotations[i]);
    }
    return places;
}

std::vector<V3d> solved(const IkChain& chain, const V3d& goal, const IkSide& side) {
    return placesOf(chain, solveChain(chain, goal, side));
}

void expectNear(const V3d& actual, const V3d& expected, const char* why = "") {
    EXPECT_LT((actual - expected).length(), 1e-7) << actual << " instead of " << expected << " " << why;
}

IkSide towards(const V3d& pole) {
    IkSide side;
    side.pole = pole;
    return side;
}

// An arm of two bones of length 5, a little bent in y.
const IkChain kArm = chainThrough({{0, 0, 0}, {4.8, 1.4, 0}, {9.6, 0, 0}});

TEST(IkChain, WithoutJointsOrLengthStaysAtRest) {
    EXPECT_TRUE(solveChain({}, {1, 2, 3}, {}).empty());
    const IkChain still = chainThrough({{1, 1, 1}, {1, 1, 1}, {1, 1, 1}});
    for (const M33d& rotation : solveChain(still, {4, 5, 6}, towards({0, 1, 0}))) {
        EXPECT_EQ(rotation, M33d());
    }
}

TEST(IkChain, OfTwoBonesMakesATriangleTowardsThePole) {
    // 6 apart with sides of 5: the elbow is 4 away from the line.
    const V3d goal(6, 0, 0);
    for (const V3d& pole : {V3d(0, 1, 0), V3d(0, -2, 0), V3d(3, 0, 0.5), V3d(-9, 0, -1)}) {
        const std::vector<V3d> places = solved(kArm, goal, towards(pole));
        V3d across = pole;
        across.x = 0;
        expectNear(places[1], V3d(3, 0, 0) + across.normalized() * 4.0);
        expectNear(places[2], goal);
    }
}

TEST(IkChain, ReachesGoalsInAllDirections) {
    for (const V3d& goal : {V3d(0, 7, 0), V3d(-3, 2, 1), V3d(0.1, 0, 0), V3d(1, -4, 8), V3d(-9.9, 0, 0)}) {
        expectNear(solved(kArm, goal, towards({0, 1, 0.3}))[2], goal);
    }
}

TEST(IkChain, StretchesTowardsGoalsThatAreTooFar) {
    const std::vector<V3d> places = solved(kArm, {0, 0, -30}, towards({0, 1, 0}));
    expectNear(places[1], {0, 0, -5});
    expectNear(places[2], {0, 0, -10});
}

TEST(IkChain, FoldsTowardsGoalsThatAreTooNear) {
    const IkChain uneven = chainThrough({{0, 0, 0}, {4.8, 1.4, 0}, {4.8, -1.6, 0}}); // 5 and 3
    const std::vector<V3d> places = solved(uneven, {0, 0, 1}, towards({0, 1, 0}));
    EXPECT_NEAR((places[2] - places[0]).length(), 2, 1e-6);
    expectNear(places[2], {0, 0, 2});
}

TEST(IkChain, TwistTurnsTheMiddleAboutTheLine) {
    IkSide side = towards({0, 1, 0});
    side.twist = 90 * kDegree;
    expectNear(solved(kArm, {6, 0, 0}, side)[1], {3, 0, 4});
    side.twist = -30 * kDegree;
    expectNear(solved(kArm, {6, 0, 0}, side)[1], {3, 4 * std::cos(30 * kDegree), -2});
}

TEST(IkChain, APoleAlongTheLineLeavesTheSideAsItWas) {
    expectNear(solved(kArm, {6, 0, 0}, towards({1, 0, 0}))[1], {3, 4, 0});
    expectNear(solved(kArm, {6, 0, 0}, towards({0, 0, 0}))[1], {3, 4, 0});
}

TEST(IkChain, AGoalAtTheStartKeepsTheDirection) {
    const std::vector<V3d> places = solved(kArm, {0, 0, 0}, towards({0, 1, 0}));
    EXPECT_LT(places[2].length(), 1e-6);
    for (const V3d& place : places) {
        EXPECT_TRUE(std::isfinite(place.x));
    }
}

TEST(IkChain, ThatIsStraightAtRestDoesNotBend) {
    const IkChain straight = chainThrough({{0, 0, 0}, {5, 0, 0}, {10, 0, 0}});
    const std::vector<V3d> places = solved(straight, {0, 6, 0}, towards({0, 0, 1}));
    expectNear(places[1], {0, 5, 0});
    expectNear(places[2], {0, 10, 0});
}

TEST(IkChain, OfManyBonesBendsAllInProportion) {
    // A zigzag of three bones: 90 degrees to the left, 45 to the right.
    const double r = std::sqrt(0.5);
    const IkChain leg = chainThrough({{0, 0, 0}, {2, 0, 0}, {2, 2, 0}, {2 + 2 * r, 2 + 2 * r, 0}});
    const V3d goal(0, 0, 5);
    const std::vector<V3d> places = solved(leg, goal, towards({1, 0, 0}));
    expectNear(places[3], goal);
    const auto bend = [&](std::size_t i) {
        const V3d before = places[i] - places[i - 1];
        const V3d after = places[i + 1] - places[i];
        return std::acos(before.dot(after) / 4);
    };
    EXPECT_NEAR(bend(1), 2 * bend(2), 1e-6);
    for (const V3d& place : places) {
        EXPECT_NEAR(place.y, 0, 1e-9) << "all in the plane of the pole";
    }
}

TEST(IkChain, MatchesARotationAsFarAsTheLineAllows) {
    // One bone along x, to point to y. Turned about x at rest, it stays turned about itself.
    const IkChain foot = chainThrough({{0, 0, 0}, {3, 0, 0}});
    IkSide side;
    side.matchesRotation = true;
    side.rotation = rotationMatrix({40 * kDegree, 0, 90 * kDegree}, RotateOrder::kXYZ);
    const M33d result = solveChain(foot, {0, 8, 0}, side).front();
    EXPECT_TRUE(isNear(matrixOf(result), matrixOf(side.rotation), 1e-9));
    // The same rotation with a goal off its line: the bone points there, by the shortest way from what was asked.
    const M33d off = solveChain(foot, {0, 8, 8}, side).front();
    expectNear(V3d(1, 0, 0) * off, V3d(0, 1, 1).normalized());
    expectNear(V3d(0, 0, 1) * off,
               V3d(0, 0, 1) * side.rotation * rotationMatrix({45 * kDegree, 0, 0}, RotateOrder::kXYZ));
}

} // namespace
} // namespace host
