#include "geometry/faceSplitting.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <string>
#include <vector>

namespace tvk {
namespace {

using Vector = std::array<double, 3>;

FacePoint pointAt(const Vector& at, int32_t matrix = 0) {
    FacePoint point;
    point.point = at;
    for (std::size_t axis = 0; axis < 3; ++axis)
        point.quantised[axis] = std::isfinite(at[axis]) ? static_cast<int32_t>(std::lround(at[axis] * 256)) : 0;
    point.matrix = matrix;
    return point;
}

std::vector<FacePoint> faceOf(const std::vector<Vector>& points) {
    std::vector<FacePoint> face;
    for (const Vector& point : points)
        face.push_back(pointAt(point));
    return face;
}

// "0 1 2, 0 2 3"
std::string partsOf(const std::vector<FacePoint>& face) {
    SplitFaces parts;
    splitFace(face, parts);
    std::string text;
    std::size_t at = 0;
    for (const uint8_t size : parts.sizes) {
        for (std::size_t i = 0; i < size; ++i)
            text += (i > 0 ? " " : text.empty() ? "" : ", ") + std::to_string(parts.corners[at++]);
    }
    return text;
}

// Twice the signed area in the plane z = 0, of each part.
std::vector<double> areasOf(const std::vector<FacePoint>& face) {
    SplitFaces parts;
    splitFace(face, parts);
    std::vector<double> areas;
    std::size_t at = 0;
    for (const uint8_t size : parts.sizes) {
        double area = 0;
        for (std::size_t i = 0; i < size; ++i) {
            const Vector& a = face[static_cast<std::size_t>(parts.corners[at + i])].point;
            const Vector& b = face[static_cast<std::size_t>(parts.corners[at + (i + 1) % size])].point;
            area += a[0] * b[1] - a[1] * b[0];
        }
        areas.push_back(area);
        at += size;
    }
    return areas;
}

double outlineArea(const std::vector<FacePoint>& face) {
    double area = 0;
    for (std::size_t i = 0; i < face.size(); ++i) {
        const Vector& a = face[i].point;
        const Vector& b = face[(i + 1) % face.size()].point;
        area += a[0] * b[1] - a[1] * b[0];
    }
    return area;
}

// Whether the parts tile the outline: none turned round, and the areas make up the whole.
void expectTiling(const std::vector<FacePoint>& face, std::size_t count) {
    double sum = 0;
    const std::vector<double> areas = areasOf(face);
    EXPECT_EQ(areas.size(), count);
    for (const double area : areas) {
        EXPECT_GT(area, -1e-9);
        sum += area;
    }
    EXPECT_NEAR(sum, outlineArea(face), 1e-6 * std::abs(sum));
}

std::vector<Vector> foldedQuad(double degrees) {
    const double angle = degrees * std::acos(-1.0) / 180;
    return {{0, 0, 0}, {1, -1, 0}, {2, 0, 0}, {1, std::cos(angle), std::sin(angle)}};
}

TEST(FaceSplitting, FacesWithoutAreaAreDropped) {
    EXPECT_EQ(partsOf({}), "");
    EXPECT_EQ(partsOf(faceOf({{0, 0, 0}, {1, 0, 0}})), "");
    EXPECT_EQ(partsOf(faceOf({{0, 0, 0}, {1, 0, 0}, {1, 0, 0}})), "");
    EXPECT_EQ(partsOf(faceOf({{0, 0, 0}, {1, 0, 0}, {2, 0, 0}})), "");
    EXPECT_EQ(partsOf(faceOf({{0, 0, 0}, {1, 0, 0}, {2, 0, 0}, {3, 0, 0}})), "");
    EXPECT_EQ(partsOf(faceOf({{0, 0, 0}, {1, 0, 0}, {2, 0, 0}, {3, 0, 0}, {4, 0, 0}})), "");
    EXPECT_EQ(partsOf(faceOf(std::vector<Vector>(1000, {1, 1, 1}))), "");
}

TEST(FaceSplitting, FacesWithoutAreaOnSeveralMatricesMayOpenAndStay) {
    EXPECT_EQ(partsOf({pointAt({0, 0, 0}), pointAt({1, 0, 0}), pointAt({2, 0, 0}, 1)}), "0 1 2");
    EXPECT_EQ(partsOf({pointAt({0, 0, 0}), pointAt({0, 0, 0}, 1), pointAt({0, 0, 0}, 2)}), "0 1 2");
    EXPECT_EQ(partsOf({pointAt({0, 0, 0}), pointAt({0, 0, 0}, 1), pointAt({0, 0, 0})}), "");
}

TEST(FaceSplitting, WhatCountsIsThePositionAsItIsWritten) {
    // Less than a unit apart.
    EXPECT_EQ(partsOf(faceOf({{0, 0, 0}, {1, 0, 0}, {1.0001, 0, 0}, {0, 1, 0}})), "0 1 3");
    EXPECT_EQ(partsOf(faceOf({{0, 0, 0}, {1, 0, 0}, {0.5, 0.0001, 0}})), "");
}

TEST(FaceSplitting, NeighboursThatAreTheSameCountOnce) {
    EXPECT_EQ(partsOf(faceOf({{0, 0, 0}, {1, 0, 0}, {1, 0, 0}, {0, 1, 0}})), "0 1 3");
    EXPECT_EQ(partsOf(faceOf({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, 0, 0}})), "0 1 2");
}

TEST(FaceSplitting, TrianglesStay) {
    EXPECT_EQ(partsOf(faceOf({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}})), "0 1 2");
}

struct QuadCase {
    const char* name;
    std::vector<Vector> points;
    const char* parts;
};

class Quads : public testing::TestWithParam<QuadCase> {};

TEST_P(Quads, SplitAsDecided) {
    EXPECT_EQ(partsOf(faceOf(GetParam().points)), GetParam().parts);
}

const QuadCase kQuadCases[] = {
    {"square", {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}}, "0 1 2 3"},
    {"oneStraightCorner", {{0, 0, 0}, {2, 0, 0}, {4, 0, 0}, {2, 3, 0}}, "0 1 2 3"},
    {"arrowheadFromItsReflexCorner", {{0, 4, 0}, {-3, -3, 0}, {0, -1, 0}, {3, -3, 0}}, "2 3 0, 2 0 1"},
    {"evenBowTie", {{0, 0, 0}, {2, 2, 0}, {2, 0, 0}, {0, 2, 0}}, "0 1 2, 0 2 3"},
    // Halves of 9 and 3 along 0-2, of 12 and 6 along 1-3.
    {"unevenBowTie", {{0, 0, 0}, {3, 3, 0}, {3, 0, 0}, {-1, 1, 0}}, "1 2 3, 1 3 0"},
    {"foldBelowTheLimit", foldedQuad(9.9), "0 1 2 3"},
    {"foldAboveTheLimit", foldedQuad(10.2), "1 2 3, 1 3 0"},
    {"foldedByFortyDegrees", foldedQuad(40), "1 2 3, 1 3 0"},
    {"foldedSquareWithEqualDiagonals", {{0, 0, 0}, {1, 0, 0.5}, {1, 1, 0}, {0, 1, 0.5}}, "0 1 2, 0 2 3"},
    // A flap of two sides: both are shown.
    {"pinched", {{0, 0, 0}, {1, 0, 0}, {0, 0, 0}, {0, 1, 0}}, "1 2 3, 1 3 0"},
};

INSTANTIATE_TEST_SUITE_P(Cases, Quads, testing::ValuesIn(kQuadCases),
                         [](const testing::TestParamInfo<QuadCase>& quad) { return quad.param.name; });

TEST(FaceSplitting, LShapeIsTiled) {
    expectTiling(faceOf({{0, 0, 0}, {2, 0, 0}, {2, 1, 0}, {1, 1, 0}, {1, 2, 0}, {0, 2, 0}}), 4);
}

TEST(FaceSplitting, StraightCornersOfLargerFacesMakeNoSlivers) {
    const std::vector<FacePoint> pentagon = faceOf({{0, 0, 0}, {2, 0, 0}, {4, 0, 0}, {4, 4, 0}, {0, 4, 0}});
    expectTiling(pentagon, 3);
    for (const double area : areasOf(pentagon))
        EXPECT_GT(area, 1);
}

TEST(FaceSplitting, EarWithTheLargestLeastAngleGoesFirst) {
    // A regular pentagon but for corner 2, which stands out: the ears at 1 and 3 are slim, the one at 4 is the best of
    // the rest, and what remains is a quad.
    const std::vector<FacePoint> face = faceOf({{0, 0, 0}, {2, 0, 0}, {12, 1, 0}, {2, 2, 0}, {0, 2, 0}});
    // Corners 0 and 4 tie at 45 degrees; the lower goes first. Then 4 1 3 and 1 2 3.
    SplitFaces parts;
    splitFace(face, parts);
    ASSERT_EQ(parts.corners.size(), 9u);
    EXPECT_EQ(std::vector<int32_t>(parts.corners.begin(), parts.corners.begin() + 3), (std::vector<int32_t>{4, 0, 1}));
    expectTiling(face, 3);
}

TEST(FaceSplitting, FacesThatTouchThemselvesAreTiled) {
    // A square with a square hole, connected by a slit that is passed twice.
    expectTiling(faceOf({{0, 0, 0},
                         {4, 0, 0},
                         {4, 4, 0},
                         {0, 4, 0},
                         {0, 0, 0},
                         {1, 1, 0},
                         {1, 3, 0},
                         {3, 3, 0},
                         {3, 1, 0},
                         {1, 1, 0}}),
                 8);
}

TEST(FaceSplitting, CrossedFacesKeepEveryCorner) {
    // A pentagram.
    std::vector<Vector> points;
    for (int i = 0; i < 5; ++i) {
        const double angle = i * 2 * 2 * std::acos(-1.0) / 5;
        points.push_back({std::cos(angle), std::sin(angle), 0});
    }
    EXPECT_EQ(areasOf(faceOf(points)).size(), 3u);
}

TEST(FaceSplitting, FacesWithoutAPlaneBecomeAFan) {
    // A figure of eight of equal halves.
    EXPECT_EQ(partsOf(faceOf({{0, 0, 0}, {1, 1, 0}, {2, 0, 0}, {2, 1, 0}, {1, 0, 0}, {0, 1, 0}})),
              "0 1 2, 0 2 3, 0 3 4, 0 4 5");
}

TEST(FaceSplitting, PointsThatAreNotFiniteBecomeAFan) {
    for (const double bad : {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity()}) {
        EXPECT_EQ(partsOf(faceOf({{0, 0, 0}, {4, 0, 0}, {4, 4, bad}, {2, 6, 0}, {0, 4, 0}})), "0 1 2, 0 2 3, 0 3 4");
        EXPECT_EQ(partsOf(faceOf({{0, 0, 0}, {4, 0, 0}, {4, 4, bad}, {0, 4, 0}})), "0 1 2, 0 2 3");
    }
}

TEST(FaceSplitting, WindingAndPlaneOfTheFaceAreKept) {
    // The L shape, standing upright.
    const std::vector<FacePoint> face = faceOf({{0, 2, 0}, {0, 2, 1}, {0, 1, 1}, {0, 1, 2}, {0, 0, 2}, {0, 0, 0}});
    SplitFaces parts;
    splitFace(face, parts);
    ASSERT_EQ(parts.sizes.size(), 4u);
    for (std::size_t at = 0; at < parts.corners.size(); at += 3) {
        const Vector& a = face[static_cast<std::size_t>(parts.corners[at])].point;
        const Vector& b = face[static_cast<std::size_t>(parts.corners[at + 1])].point;
        const Vector& c = face[static_cast<std::size_t>(parts.corners[at + 2])].point;
        EXPECT_GT((b[1] - a[1]) * (c[2] - a[2]) - (b[2] - a[2]) * (c[1] - a[1]), 0);
    }
}

TEST(FaceSplitting, RandomOutlinesAreTiled) {
    std::mt19937 random(5);
    for (const int count : {5, 6, 8, 13, 50, 300}) {
        for (int round = 0; round < 10; ++round) {
            std::vector<Vector> points;
            for (int i = 0; i < count; ++i) {
                const double angle = i * 2 * std::acos(-1.0) / count;
                const double radius = 20 + static_cast<double>(random() % 60);
                points.push_back({radius * std::cos(angle), radius * std::sin(angle), 0});
            }
            expectTiling(faceOf(points), static_cast<std::size_t>(count) - 2);
        }
    }
}

TEST(FaceSplitting, TenThousandSidesAreTiled) {
    std::vector<Vector> circle;
    std::vector<Vector> comb;
    for (int i = 0; i < 10000; ++i) {
        const double angle = i * 2 * std::acos(-1.0) / 10000;
        circle.push_back({100 * std::cos(angle), 100 * std::sin(angle), 0});
    }
    // Teeth on a bar, every tooth as high as the comb is wide.
    for (int i = 0; i < 4999; ++i)
        comb.push_back({i * 0.02, i % 2 == 0 ? 1.0 : 99.0, 0});
    comb.push_back({99.98, 0, 0});
    comb.push_back({0, 0, 0});
    std::reverse(comb.begin(), comb.end());
    for (const std::vector<Vector>& points : {circle, comb}) {
        const std::vector<FacePoint> face = faceOf(points);
        double sum = 0;
        for (const double area : areasOf(face)) {
            EXPECT_GT(area, -1e-9);
            sum += area;
        }
        // Slivers below the units of written positions are dropped.
        EXPECT_NEAR(sum, outlineArea(face), 1e-3 * sum);
    }
}

} // namespace
} // namespace tvk
