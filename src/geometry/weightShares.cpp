#include "geometry/weightShares.h"

#include "common/fixedPoint.h"

#include <cmath>
#include <cstddef>

namespace tvk {
namespace {

constexpr double kSumTolerance = 0.005;
constexpr int32_t kWholePercent = 100;

} // namespace

// Both are asked so that not-a-number is refused.
bool isWholeWeight(double sum) {
    return std::abs(sum - 1.0) < kSumTolerance;
}

bool isTooMuchWeight(double sum) {
    return !(sum - 1.0 < kSumTolerance);
}

void findShares(const double* weights, int32_t count, std::vector<InfluenceShare>& shares) {
    shares.clear();
    for (int32_t i = 0; i < count; ++i) {
        const int32_t percent = roundClamped(weights[i] * kWholePercent, 0, kWholePercent);
        if (percent > 0) {
            shares.push_back({i, percent});
        }
    }
}

void findFullShare(const double* weights, int32_t count, const std::vector<int32_t>& ranks,
                   std::vector<InfluenceShare>& shares) {
    shares.clear();
    int32_t best = -1;
    for (int32_t i = 0; i < count; ++i) {
        if (!(weights[i] > 0.0)) {
            continue;
        }
        const bool wins = best < 0 || weights[i] > weights[best] ||
                          (!(weights[i] < weights[best]) &&
                           ranks[static_cast<std::size_t>(i)] < ranks[static_cast<std::size_t>(best)]);
        if (wins) {
            best = i;
        }
    }
    if (best >= 0) {
        shares.push_back({best, kWholePercent});
    }
}

} // namespace tvk
