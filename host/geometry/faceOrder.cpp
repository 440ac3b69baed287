#include "host/geometry/faceOrder.h"

#include <algorithm>
#include <cstddef>

namespace host {

namespace {

std::size_t at(std::int32_t index) {
    return static_cast<std::size_t>(index);
}

constexpr std::int32_t kNone = -1;

/// Goes from face to face.
class WindingFinder {
public:
    WindingFinder(const MeshTopology& topology, const std::vector<bool>& chosen, WindingRule rule)
        : topology_(topology), chosen_(chosen), rule_(rule), isKnown_(at(topology.faceCount()), false),
          reverses_(at(topology.faceCount()), false), forwardWalks_(at(topology.edgeCount()), 0) {
        for (const std::int32_t edge : topology.cornerEdges()) {
            forwardWalks_[at(MeshTopology::edgeNumber(edge))] += edge >= 0 ? 1 : 0;
        }
    }

    std::vector<bool> run() {
        if (rule_ == WindingRule::kAsMost) {
            for (std::int32_t face = 0; face < topology_.faceCount(); ++face) {
                if (chosen_[at(face)] && !isKnown_[at(face)]) {
                    begin(face, false);
                    spread();
                    turnToMost();
                    reached_.clear();
                }
            }
            return std::move(reverses_);
        }
        for (std::int32_t face = 0; face < topology_.faceCount(); ++face) {
            if (chosen_[at(face)]) {
                begin(face, rule_ == WindingRule::kUnlikeChosen);
            }
        }
        spread();
        return std::move(reverses_);
    }

private:
    void begin(std::int32_t face, bool isReversed) {
        isKnown_[at(face)] = true;
        reverses_[at(face)] = isReversed;
        reached_.push_back(face);
    }

    /// In the order in which faces are reached, so that each follows the nearest that began.
    void spread() {
        const IndexLists& faces = topology_.facesOfEdge();
        for (std::size_t next = 0; next < reached_.size(); ++next) {
            const std::int32_t face = reached_[next];
            for (std::int32_t corner = topology_.firstCorner(face); corner < topology_.firstCorner(face + 1);
                 ++corner) {
                const std::int32_t edge = MeshTopology::edgeNumber(topology_.cornerEdges()[at(corner)]);
                const std::int32_t* sides = faces.begin(edge);
                if (faces.count(edge) != 2) {
                    continue;
                }
                const std::int32_t other = sides[0] == face ? sides[1] : sides[0];
                if (!isKnown_[at(other)]) {
                    const bool isAlike = forwardWalks_[at(edge)] == 1;
                    begin(other, isAlike ? reverses_[at(face)] : !reverses_[at(face)]);
                }
            }
        }
    }

    void turnToMost() {
        const auto isReversed = [&](std::int32_t face) { return reverses_[at(face)]; };
        const auto reversed = std::count_if(reached_.begin(), reached_.end(), isReversed);
        if (2 * static_cast<std::size_t>(reversed) > reached_.size()) {
            for (const std::int32_t face : reached_) {
                reverses_[at(face)] = !reverses_[at(face)];
            }
        }
    }

    const MeshTopology& topology_;
    const std::vector<bool>& chosen_;
    WindingRule rule_;
    std::vector<bool> isKnown_, reverses_;
    std::vector<std::int32_t> reached_;
    std::vector<std::int32_t> forwardWalks_; // per edge
};

} // namespace

std::vector<std::int32_t> shellsOfFaces(const MeshTopology& topology) {
    const IndexLists& faces = topology.facesOfEdge();
    std::vector<std::int32_t> shells(at(topology.faceCount()), kNone);
    std::vector<std::int32_t> open;
    std::int32_t count = 0;
    const auto reach = [&](std::int32_t face) {
        if (shells[at(face)] == kNone) {
            shells[at(face)] = count;
            open.push_back(face);
        }
    };
    for (std::int32_t first = 0; first < topology.faceCount(); ++first) {
        reach(first);
        const bool isNew = !open.empty();
        while (!open.empty()) {
            const std::int32_t face = open.back();
            open.pop_back();
            for (std::int32_t corner = topology.firstCorner(face); corner < topology.firstCorner(face + 1); ++corner) {
                const std::int32_t edge = MeshTopology::edgeNumber(topology.cornerEdges()[at(corner)]);
                std::for_each(faces.begin(edge), faces.end(edge), reach);
            }
        }
        count += isNew ? 1 : 0;
    }
    return shells;
}

std::vector<bool> facesToReverse(const MeshTopology& topology, const std::vector<bool>& chosen, WindingRule rule) {
    return WindingFinder(topology, chosen, rule).run();
}

} // namespace host
