#include "host/nodes/blendRotation.h"

#include "GraphFixture.h"

namespace host {
namespace {

using Imath::V3d;

constexpr RotateOrder kOrders[] = {RotateOrder::kXYZ, RotateOrder::kYZX, RotateOrder::kZXY,
                                   RotateOrder::kXZY, RotateOrder::kYXZ, RotateOrder::kZYX};

void expectSameRotation(const V3d& a, const V3d& b, RotateOrder order) {
    const Imath::M33d first = rotationMatrix(a, order);
    const Imath::M33d second = rotationMatrix(b, order);
    EXPECT_TRUE(first.equalWithAbsError(second, 1e-9))
        << static_cast<int>(order) << ": " << a.x << " " << a.y << " " << a.z;
}

TEST(BlendRotation, FindsAnglesThatMakeTheSameRotationInEveryOrder) {
    for (const RotateOrder order : kOrders) {
        for (const V3d& angles : {V3d(0.3, -0.7, 1.2), V3d(-2.9, 0.4, 3.0), V3d(0, 0, 0), V3d(1, 2.5, -2)}) {
            expectSameRotation(rotationAngles(rotationMatrix(angles, order), order), angles, order);
        }
    }
}

TEST(BlendRotation, FindsTheVeryAnglesWithinTheUsualRange) {
    for (const RotateOrder order : kOrders) {
        const V3d angles(0.3, -0.7, 1.2);
        EXPECT_TRUE(rotationAngles(rotationMatrix(angles, order), order).equalWithAbsError(angles, 1e-12))
            << static_cast<int>(order);
    }
}

TEST(BlendRotation, HoldsAtThePolesOfTheMiddleAngle) {
    for (const RotateOrder order : kOrders) {
        for (const double pole : {90 * kDegree, -90 * kDegree}) {
            V3d angles(0.4, 0.4, 0.4);
            const int middle = order == RotateOrder::kXYZ || order == RotateOrder::kZYX   ? 1
                               : order == RotateOrder::kYZX || order == RotateOrder::kXZY ? 2
                                                                                          : 0;
            angles[middle] = pole;
            expectSameRotation(rotationAngles(rotationMatrix(angles, order), order), angles, order);
        }
    }
}

TEST(BlendRotation, TurnsTheShorterWay) {
    // From 170 to -170 degrees about Z is 20 degrees through 180.
    const V3d between = slerpRotation({0, 0, 170 * kDegree}, {0, 0, -170 * kDegree}, 0.25, RotateOrder::kXYZ);
    expectSameRotation(between, {0, 0, 175 * kDegree}, RotateOrder::kXYZ);
}

} // namespace
} // namespace host
