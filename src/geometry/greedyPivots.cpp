#include "geometry/greedyPivots.h"

#include <array>
#include <cstddef>
#include <deque>

namespace tvk {

namespace {

constexpr uint8_t kFree = 3;
constexpr std::array<uint8_t, 3> kNext{1, 2, 0};
constexpr std::array<uint8_t, 3> kPrevious{2, 0, 1};

struct Turn {
    uint32_t triangle;
    uint8_t pivot;
};

class GreedyWalk {
public:
    GreedyWalk(const StripMesh& stripMesh, GreedyOrder greedyOrder)
        : mesh(stripMesh), order(greedyOrder), pivots(mesh.faceCount(), kFree), freeNeighbours(mesh.faceCount(), 0),
          stamps(mesh.faceCount(), 0) {
        for (uint32_t triangle = 0; triangle < mesh.faceCount(); ++triangle) {
            for (uint32_t k = 0; k < 3; ++k) {
                if (mesh.across[triangle][k] != StripMesh::kNone)
                    ++freeNeighbours[triangle];
            }
        }
        // Those that wait at the back are asked first, so the lowest number goes there.
        for (auto triangle = static_cast<uint32_t>(mesh.faceCount()); triangle-- > 0;)
            waiting[freeNeighbours[triangle]].push_back(triangle);
    }

    PivotLabels run() {
        uint32_t start = 0;
        while (takeStart(start)) {
            std::vector<Turn> longest;
            for (uint8_t pivot = 0; pivot < 3; ++pivot) {
                std::vector<Turn> turns = walk(start, pivot);
                if (turns.size() > longest.size())
                    longest.swap(turns);
            }
            for (const Turn& turn : longest)
                pivots[turn.triangle] = turn.pivot;
            for (const Turn& turn : longest)
                tellNeighbours(turn.triangle);
        }
        return pivots;
    }

private:
    bool takeStart(uint32_t& start) {
        for (std::size_t count = 0; count < waiting.size(); ++count) {
            std::deque<uint32_t>& queue = waiting[count];
            while (!queue.empty()) {
                const bool last = order == GreedyOrder::kBeside || count == 3;
                start = last ? queue.back() : queue.front();
                if (last)
                    queue.pop_back();
                else
                    queue.pop_front();
                // A triangle waits in one queue for every number of free neighbours that it has had.
                if (pivots[start] == kFree && freeNeighbours[start] == count)
                    return true;
            }
        }
        return false;
    }

    void tellNeighbours(uint32_t triangle) {
        for (uint32_t k = 0; k < 3; ++k) {
            const uint32_t across = mesh.across[triangle][k];
            if (across == StripMesh::kNone)
                continue;
            const uint32_t neighbour = neighbourOf(across);
            --freeNeighbours[neighbour];
            if (pivots[neighbour] == kFree)
                waiting[freeNeighbours[neighbour]].push_back(neighbour);
        }
    }

    // Goes on from the last of `turns` as long as triangles are free.
    void extend(std::vector<Turn>& turns, bool byOut) {
        while (true) {
            const Turn& last = turns.back();
            const uint32_t across = mesh.across[last.triangle][byOut ? last.pivot : kPrevious[last.pivot]];
            if (across == StripMesh::kNone)
                return;
            const uint32_t triangle = neighbourOf(across);
            if (pivots[triangle] != kFree || stamps[triangle] == stamp)
                return;
            stamps[triangle] = stamp;
            const auto edge = static_cast<uint8_t>(edgeOf(across));
            turns.push_back({triangle, byOut ? edge : kNext[edge]});
            byOut = !byOut;
        }
    }

    // The free neighbours that are not part of the strip at hand.
    uint32_t openNeighbours(const Turn& turn) const {
        uint32_t count = 0;
        for (uint32_t k = 0; k < 3; ++k) {
            const uint32_t across = mesh.across[turn.triangle][k];
            if (across != StripMesh::kNone && pivots[neighbourOf(across)] == kFree &&
                stamps[neighbourOf(across)] != stamp)
                ++count;
        }
        return count;
    }

    // The strip through a triangle that turns there about a given corner, cut so that it starts well.
    std::vector<Turn> walk(uint32_t start, uint8_t pivot) {
        ++stamp;
        stamps[start] = stamp;
        std::vector<Turn> turns{{start, pivot}};
        extend(turns, true);
        const std::size_t outwards = turns.size() - 1;
        std::vector<Turn> back{{start, pivot}};
        extend(back, false);
        const std::size_t inwards = back.size() - 1;
        // The join next to an end alternates from the one at the start.
        const bool outEndIsIn = outwards % 2 == 0;
        const bool inEndIsIn = inwards % 2 == 1;
        if ((outwards + inwards) % 2 == 1 && outwards + inwards > 1 && outEndIsIn && inEndIsIn) {
            // What is given up should find company: on a sphere's meridians always the same pole is left open.
            const bool giveUpOut = outwards > 0 && openNeighbours(turns.back()) > openNeighbours(back.back());
            (giveUpOut ? turns : back).pop_back();
        }
        turns.insert(turns.end(), back.begin() + 1, back.end());
        return turns;
    }

    const StripMesh& mesh;
    GreedyOrder order;
    PivotLabels pivots;
    std::vector<uint8_t> freeNeighbours;
    std::vector<uint32_t> stamps;
    uint32_t stamp = 0;
    std::array<std::deque<uint32_t>, 4> waiting;
};

} // namespace

PivotLabels greedyPivots(const StripMesh& mesh, GreedyOrder order) {
    return GreedyWalk(mesh, order).run();
}

PivotLabels parallelPivots(const StripMesh& mesh, uint8_t direction) {
    PivotLabels pivots(mesh.faceCount(), kFree);
    std::vector<uint32_t> waiting;
    for (uint32_t start = 0; start < pivots.size(); ++start) {
        if (pivots[start] != kFree)
            continue;
        pivots[start] = direction;
        waiting.assign(1, start);
        for (std::size_t next = 0; next < waiting.size(); ++next) {
            const uint32_t triangle = waiting[next];
            const uint8_t out = pivots[triangle];
            // The strip goes on across the out and in edges; the strip beside shares the third edge and leaves it open.
            for (uint8_t step = 0; step < 3; ++step) {
                const uint32_t across = mesh.across[triangle][step == 0   ? out
                                                              : step == 1 ? kPrevious[out]
                                                                          : kNext[out]];
                if (across == StripMesh::kNone || pivots[neighbourOf(across)] != kFree)
                    continue;
                const uint32_t edge = edgeOf(across);
                pivots[neighbourOf(across)] = static_cast<uint8_t>(step == 0   ? edge
                                                                   : step == 1 ? kNext[edge]
                                                                               : kPrevious[edge]);
                waiting.push_back(neighbourOf(across));
            }
        }
    }
    return pivots;
}

} // namespace tvk
