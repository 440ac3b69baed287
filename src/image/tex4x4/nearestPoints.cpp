#include "image/tex4x4/nearestPoints.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace tvk {
namespace {

constexpr size_t kLeafPoints = 8;
constexpr size_t kLeavesPerSearch = 16;

float squaredDistance(const Point6& a, const Point6& b) {
    float sum = 0;
    for (size_t d = 0; d < a.size(); ++d) {
        sum += (a[d] - b[d]) * (a[d] - b[d]);
    }
    return sum;
}

struct Neighbour {
    float distance;
    uint32_t point;
    bool operator<(const Neighbour& other) const {
        return distance != other.distance ? distance < other.distance : point < other.point;
    }
};

} // namespace

// One search: the nearest points that it has met, in order.
struct NearestPoints::Search {
    uint32_t point;
    size_t most;
    size_t leavesLeft = kLeavesPerSearch;
    std::vector<Neighbour> found{};

    bool accepts(float distance) const { return found.size() < most || distance < found.back().distance; }
    void add(const Neighbour& neighbour) {
        found.insert(std::upper_bound(found.begin(), found.end(), neighbour), neighbour);
        if (found.size() > most) {
            found.pop_back();
        }
    }
};

NearestPoints::NearestPoints(std::vector<Point6> all) : points(std::move(all)), order(points.size()) {
    std::iota(order.begin(), order.end(), 0U);
    nodes.reserve(points.size() / kLeafPoints * 4 + 1);
    build(0, order.size());
}

std::vector<uint32_t> NearestPoints::find(uint32_t point, size_t neighbours) const {
    Search search{point, neighbours};
    search.found.reserve(neighbours + 1);
    if (neighbours > 0) {
        visit(0, search);
    }
    std::vector<uint32_t> indices(search.found.size());
    std::transform(search.found.begin(), search.found.end(), indices.begin(),
                   [](const Neighbour& neighbour) { return neighbour.point; });
    return indices;
}

uint32_t NearestPoints::build(size_t begin, size_t end) {
    const auto index = static_cast<uint32_t>(nodes.size());
    nodes.push_back({begin, end});
    if (end - begin <= kLeafPoints) {
        return index;
    }
    const size_t d = longestSide(begin, end);
    const size_t middle = begin + (end - begin) / 2;
    const auto at = [this](size_t i) { return order.begin() + static_cast<long>(i); };
    std::nth_element(at(begin), at(middle), at(end), [&](uint32_t a, uint32_t b) {
        return points[a][d] != points[b][d] ? points[a][d] < points[b][d] : a < b;
    });
    nodes[index].dimension = d;
    nodes[index].cut = points[order[middle]][d];
    const uint32_t below = build(begin, middle);
    const uint32_t above = build(middle, end);
    nodes[index].below = below;
    nodes[index].above = above;
    return index;
}

size_t NearestPoints::longestSide(size_t begin, size_t end) const {
    Point6 lowest = points[order[begin]], highest = lowest;
    for (size_t i = begin; i < end; ++i) {
        for (size_t d = 0; d < lowest.size(); ++d) {
            lowest[d] = std::min(lowest[d], points[order[i]][d]);
            highest[d] = std::max(highest[d], points[order[i]][d]);
        }
    }
    size_t longest = 0;
    for (size_t d = 1; d < lowest.size(); ++d) {
        longest = highest[d] - lowest[d] > highest[longest] - lowest[longest] ? d : longest;
    }
    return longest;
}

void NearestPoints::visit(uint32_t index, Search& search) const {
    const Node& node = nodes[index];
    if (node.above == 0) {
        visitLeaf(node, search);
        return;
    }
    const float fromCut = points[search.point][node.dimension] - node.cut;
    visit(fromCut < 0 ? node.below : node.above, search);
    if (search.leavesLeft > 0 && search.accepts(fromCut * fromCut)) {
        visit(fromCut < 0 ? node.above : node.below, search);
    }
}

void NearestPoints::visitLeaf(const Node& leaf, Search& search) const {
    search.leavesLeft -= search.leavesLeft > 0 ? 1U : 0U;
    for (size_t i = leaf.begin; i < leaf.end; ++i) {
        const float distance = squaredDistance(points[order[i]], points[search.point]);
        if (order[i] != search.point && search.accepts(distance)) {
            search.add({distance, order[i]});
        }
    }
}

} // namespace tvk
