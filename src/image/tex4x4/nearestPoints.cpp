#include "image/tex4x4/nearestPoints.h"

#include <algorithm>
#include <numeric>

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

// The nearest points met so far, in order of distance, then of index.
class Nearest {
public:
    explicit Nearest(size_t limit) : most(limit) { found.reserve(limit + 1); }

    void clear() { found.clear(); }
    bool accepts(float distance) const { return found.size() < most || distance < found.back().distance; }
    void add(float distance, uint32_t point) {
        const Neighbour neighbour{distance, point};
        found.insert(std::upper_bound(found.begin(), found.end(), neighbour), neighbour);
        if (found.size() > most) {
            found.pop_back();
        }
    }
    std::vector<uint32_t> indices() const {
        std::vector<uint32_t> result;
        result.reserve(found.size());
        for (const Neighbour& neighbour : found) {
            result.push_back(neighbour.point);
        }
        return result;
    }

private:
    struct Neighbour {
        float distance;
        uint32_t point;
        bool operator<(const Neighbour& other) const {
            return distance != other.distance ? distance < other.distance : point < other.point;
        }
    };

    size_t most;
    std::vector<Neighbour> found;
};

// A tree of boxes: each is cut in halves of equal number across its longest side.
class PointTree {
public:
    explicit PointTree(const std::vector<Point6>& all) : points(all), order(all.size()) {
        std::iota(order.begin(), order.end(), 0U);
        nodes.reserve(all.size() / kLeafPoints * 4 + 1);
        build(0, order.size());
    }

    void search(uint32_t point, Nearest& nearest) {
        leavesLeft = kLeavesPerSearch;
        visit(0, point, nearest);
    }

private:
    struct Node {
        size_t begin = 0, end = 0;     // in the order
        uint32_t below = 0, above = 0; // nodes; 0 for a leaf
        size_t dimension = 0;
        float cut = 0;
    };

    size_t longestSide(size_t begin, size_t end) const {
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

    uint32_t build(size_t begin, size_t end) {
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

    void visit(uint32_t index, uint32_t point, Nearest& nearest) {
        const Node& node = nodes[index];
        if (node.above == 0) {
            visitLeaf(node, point, nearest);
            return;
        }
        const float fromCut = points[point][node.dimension] - node.cut;
        visit(fromCut < 0 ? node.below : node.above, point, nearest);
        if (leavesLeft > 0 && nearest.accepts(fromCut * fromCut)) {
            visit(fromCut < 0 ? node.above : node.below, point, nearest);
        }
    }

    void visitLeaf(const Node& leaf, uint32_t point, Nearest& nearest) {
        leavesLeft -= leavesLeft > 0 ? 1U : 0U;
        for (size_t i = leaf.begin; i < leaf.end; ++i) {
            const float distance = squaredDistance(points[order[i]], points[point]);
            if (order[i] != point && nearest.accepts(distance)) {
                nearest.add(distance, order[i]);
            }
        }
    }

    const std::vector<Point6>& points;
    std::vector<uint32_t> order;
    std::vector<Node> nodes;
    size_t leavesLeft = 0;
};

} // namespace

std::vector<std::vector<uint32_t>> findNearest(const std::vector<Point6>& points, size_t neighbours) {
    std::vector<std::vector<uint32_t>> result(points.size());
    if (points.empty() || neighbours == 0) {
        return result;
    }
    PointTree tree(points);
    Nearest nearest(neighbours);
    for (uint32_t i = 0; i < points.size(); ++i) {
        nearest.clear();
        tree.search(i, nearest);
        result[i] = nearest.indices();
    }
    return result;
}

} // namespace tvk
