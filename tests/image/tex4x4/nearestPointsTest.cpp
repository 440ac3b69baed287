#include "image/tex4x4/nearestPoints.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <utility>
#include <vector>

namespace tvk {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<Point6> scattered(std::size_t count) {
    std::mt19937 random(1);
    std::vector<Point6> points(count);
    for (Point6& point : points) {
        for (float& coordinate : point) {
            coordinate = static_cast<float>(random() % 1024);
        }
    }
    return points;
}

float squaredDistance(const Point6& a, const Point6& b) {
    float sum = 0;
    for (std::size_t d = 0; d < a.size(); ++d) {
        sum += (a[d] - b[d]) * (a[d] - b[d]);
    }
    return sum;
}

std::vector<std::uint32_t> nearestByLookingAtAll(const std::vector<Point6>& points, std::uint32_t point,
                                                 std::size_t count) {
    std::vector<std::pair<float, std::uint32_t>> all;
    for (std::uint32_t i = 0; i < points.size(); ++i) {
        if (i != point) {
            all.emplace_back(squaredDistance(points[i], points[point]), i);
        }
    }
    std::sort(all.begin(), all.end());
    std::vector<std::uint32_t> nearest;
    for (std::size_t i = 0; i < std::min(count, all.size()); ++i) {
        nearest.push_back(all[i].second);
    }
    return nearest;
}

TEST(NearestPoints, APointAloneHasNoNeighbours) {
    EXPECT_THAT(NearestPoints({Point6{}}).find(0, 4), IsEmpty());
    EXPECT_THAT(NearestPoints(scattered(9)).find(3, 0), IsEmpty());
}

TEST(NearestPoints, OfEquallyNearPointsTheLowestComesFirst) {
    EXPECT_THAT(NearestPoints(std::vector<Point6>(6)).find(2, 3), ElementsAre(0, 1, 3));
}

TEST(NearestPoints, FewPointsAreSearchedToTheEnd) {
    for (const std::size_t count : {2U, 8U, 9U, 40U, 100U}) {
        const std::vector<Point6> points = scattered(count);
        const NearestPoints nearest(points);
        for (std::uint32_t i = 0; i < count; ++i) {
            EXPECT_EQ(nearest.find(i, 12), nearestByLookingAtAll(points, i, 12)) << count << ' ' << i;
        }
    }
}

TEST(NearestPoints, AmongManyPointsTheNearestOneIsMostlyFound) {
    const std::vector<Point6> points = scattered(5000);
    const NearestPoints nearest(points);
    int found = 0;
    for (std::uint32_t i = 0; i < 500; ++i) {
        const std::vector<std::uint32_t> neighbours = nearest.find(i, 8);
        ASSERT_EQ(neighbours.size(), 8U);
        found += neighbours.front() == nearestByLookingAtAll(points, i, 1).front() ? 1 : 0;
    }
    EXPECT_GE(found, 250) << "of 500, spread evenly in six dimensions: the hardest case";
}

TEST(NearestPoints, EqualPointsAreNeighboursButNotOfThemselves) {
    const std::vector<std::uint32_t> neighbours = NearestPoints(std::vector<Point6>(100000)).find(77, 12);
    EXPECT_EQ(neighbours.size(), 12U);
    EXPECT_EQ(std::count(neighbours.begin(), neighbours.end(), 77U), 0);
}

} // namespace
} // namespace tvk
