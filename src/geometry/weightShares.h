#pragma once

#include <cstdint>
#include <vector>

namespace tvk {

/// What an influence has of a vertex.
struct InfluenceShare {
    int32_t influence = 0; // place in the list of weights
    int32_t percent = 100; // 1 to 100
};

inline bool operator==(const InfluenceShare& a, const InfluenceShare& b) {
    return a.influence == b.influence && a.percent == b.percent;
}

/// Whether the weights of a vertex that add up to `sum` are all of it: 1, with less than 0.005 missing or too much.
bool isWholeWeight(double sum);
/// Whether they are too much for one vertex.
bool isTooMuchWeight(double sum);

/// Turns a vertex's weights into percentages: rounded, halves away from zero, at most 100; what rounds to 0 and what is
/// negative or not a number is left out, the rest keeps its order. The percentages are not brought to a sum of 100:
/// readers divide by 100, and 99 or 101 is what the weights say.
///   weights   one per influence
///   shares    replaced
void findShares(const double* weights, int32_t count, std::vector<InfluenceShare>& shares);

/// Gives the whole vertex to the influence with the greatest weight; to nobody when no weight is above 0.
///   ranks     one per influence: among equal weights the lowest rank wins
///   shares    replaced by one share of 100, or none
void findFullShare(const double* weights, int32_t count, const std::vector<int32_t>& ranks,
                   std::vector<InfluenceShare>& shares);

} // namespace tvk
