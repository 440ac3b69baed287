#include "geometry/weightShares.h"

#include <gtest/gtest.h>

#include <limits>
#include <ostream>
#include <vector>

namespace tvk {

static void PrintTo(const InfluenceShare& share, std::ostream* out) {
    *out << share.influence << ": " << share.percent << "%";
}

namespace {

using Shares = std::vector<InfluenceShare>;

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

struct SumCase {
    double sum;
    bool isWhole;
    bool isTooMuch;
};

class WeightSum : public testing::TestWithParam<SumCase> {};

TEST_P(WeightSum, MayMissOneByLessThanFiveThousandths) {
    EXPECT_EQ(isWholeWeight(GetParam().sum), GetParam().isWhole);
    EXPECT_EQ(isTooMuchWeight(GetParam().sum), GetParam().isTooMuch);
}

INSTANTIATE_TEST_SUITE_P(Sums, WeightSum,
                         testing::Values(SumCase{0.99, false, false}, SumCase{0.995, false, false},
                                         SumCase{0.99501, true, false}, SumCase{1.0, true, false},
                                         SumCase{1.00499, true, false}, SumCase{1.005001, false, true},
                                         SumCase{0.0, false, false}, SumCase{-1.0, false, false},
                                         SumCase{kNan, false, true}, SumCase{kInfinity, false, true},
                                         SumCase{-kInfinity, false, false}));

struct ShareCase {
    std::vector<double> weights;
    Shares shares;
};

class WeightShares : public testing::TestWithParam<ShareCase> {};

TEST_P(WeightShares, AreRoundedPercentagesInTheOrderOfInfluences) {
    Shares shares{{7, 7}}; // is replaced
    findShares(GetParam().weights.data(), static_cast<int32_t>(GetParam().weights.size()), shares);
    EXPECT_EQ(shares, GetParam().shares);
}

INSTANTIATE_TEST_SUITE_P(Weights, WeightShares,
                         testing::Values(ShareCase{{}, {}}, // nobody
                                         ShareCase{{0.333, 0.333, 0.334},
                                                   {{0, 33}, {1, 33}, {2, 33}}}, // 99 together, and left so
                                         ShareCase{{0.335, 0.335, 0.33}, {{0, 34}, {1, 34}, {2, 33}}}, // 101
                                         ShareCase{{0.004, 0.996}, {{1, 100}}},         // too little is dropped
                                         ShareCase{{0.005, 0.995}, {{0, 1}, {1, 100}}}, // halves go up
                                         ShareCase{{0.0, 1.0, 0.0}, {{1, 100}}},
                                         ShareCase{{-0.5, 1.5}, {{1, 100}}}, // at most 100, never below 0
                                         ShareCase{{kNan, 0.5}, {{1, 50}}}));

struct FullCase {
    std::vector<double> weights;
    std::vector<int32_t> ranks;
    Shares shares;
};

class FullShare : public testing::TestWithParam<FullCase> {};

TEST_P(FullShare, BelongsToTheGreatestWeightAndAmongEqualsToTheLowestRank) {
    Shares shares{{7, 7}};
    findFullShare(GetParam().weights.data(), static_cast<int32_t>(GetParam().weights.size()), GetParam().ranks, shares);
    EXPECT_EQ(shares, GetParam().shares);
}

INSTANTIATE_TEST_SUITE_P(
    Weights, FullShare,
    testing::Values(FullCase{{}, {}, {}}, FullCase{{0.0, 0.0}, {1, 2}, {}}, FullCase{{-1.0, kNan}, {1, 2}, {}},
                    FullCase{{0.2, 0.5, 0.3}, {1, 2, 3}, {{1, 100}}}, FullCase{{0.5, 0.5}, {9, 4}, {{1, 100}}},
                    FullCase{{0.5, 0.5}, {4, 9}, {{0, 100}}}, FullCase{{0.001, 0.0}, {4, 1}, {{0, 100}}}));

} // namespace
} // namespace tvk
