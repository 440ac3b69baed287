#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace tvk {

using Point6 = std::array<float, 6>;

/// Finds the nearest neighbours of points among each other. A search takes time logarithmic in the points: crowded
/// places are not searched to the end, so that the last neighbours of a point there may be a little farther than the
/// truly nearest.
class NearestPoints {
public:
    explicit NearestPoints(std::vector<Point6> all);

    /// The indices of the other points that lie nearest to one, the nearest first, of equally near ones the lowest
    /// first: so many, or fewer when there are fewer points.
    std::vector<uint32_t> find(uint32_t point, size_t neighbours) const;

private:
    struct Node {
        size_t begin = 0, end = 0;     // in the order
        uint32_t below = 0, above = 0; // nodes; 0 for a leaf
        size_t dimension = 0;
        float cut = 0;
    };
    struct Search;

    uint32_t build(size_t begin, size_t end);
    size_t longestSide(size_t begin, size_t end) const;
    void visit(uint32_t node, Search& search) const;
    void visitLeaf(const Node& leaf, Search& search) const;

    // A tree of boxes: each is cut in halves of equal number across its longest side.
    std::vector<Point6> points;
    std::vector<uint32_t> order;
    std::vector<Node> nodes;
};

} // namespace tvk
