#include "geometry/pivotAnnealing.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace tvk {

namespace {

constexpr uint32_t kBlockSize = kStripPatchSize;
// Chains are followed this far. On large regular meshes they grow with the mesh, and the time with them.
constexpr uint32_t kFarthest = 200;
constexpr int32_t kOutWeight = 10;
constexpr int32_t kInWeight = 6;
constexpr std::array<uint8_t, 3> kNext{1, 2, 0};
constexpr std::array<uint8_t, 3> kPrevious{2, 0, 1};

// One change: new pivots for a triangle and, when they are to be joined, for its neighbour.
struct Change {
    uint32_t first;
    uint32_t second; // StripMesh::kNone: only the first changes
    uint8_t firstPivot;
    uint8_t secondPivot;
};

class PivotAnnealer {
public:
    PivotAnnealer(const StripMesh& stripMesh, PivotLabels& labels, uint64_t seed)
        : mesh(stripMesh), pivots(labels), random(seed), stamps(stripMesh.faceCount(), 0) {}

    void annealJoins(uint32_t begin, uint32_t end, const AcceptTable& table) {
        for (uint32_t triangle = begin; triangle < end; ++triangle) {
            const uint64_t bits = random.next();
            Change change{};
            if (!propose(triangle, bits, change))
                continue;
            const int32_t before = joinsOf(change);
            const Change back = apply(change);
            if (!table.accepts(before - joinsOf(change), static_cast<uint32_t>(bits)))
                apply(back);
        }
    }

    void annealStrips(uint32_t begin, uint32_t end, const AcceptTable& table) {
        for (uint32_t triangle = begin; triangle < end; ++triangle) {
            const uint64_t bits = random.next();
            Change change{};
            if (!propose(triangle, bits, change))
                continue;
            const int32_t joinsBefore = joinsOf(change);
            const Change back = apply(change);
            // What loses more than a join hardly ever gains a strip; chains need not be followed to refuse it.
            if (joinsBefore - joinsOf(change) > kOutWeight) {
                apply(back);
                continue;
            }
            if (!table.accepts(stripsLost(change, back, joinsBefore), static_cast<uint32_t>(bits)))
                apply(back);
        }
    }

private:
    // A random edge of the triangle shall join, as an out edge or as an in edge; at a border the triangle just turns.
    // False when that is so already.
    bool propose(uint32_t triangle, uint64_t bits, Change& change) const {
        const auto edge = static_cast<uint8_t>(((bits >> 48) * 3) >> 16);
        const uint32_t across = mesh.across[triangle][edge];
        if (across == StripMesh::kNone) {
            const auto pivot = static_cast<uint8_t>((((bits >> 32) & 0xffffu) * 3) >> 16);
            change = {triangle, StripMesh::kNone, pivot, 0};
            return pivot != pivots[triangle];
        }
        const bool byOut = ((bits >> 32) & 1u) != 0;
        const auto other = static_cast<uint8_t>(edgeOf(across));
        change = {triangle, neighbourOf(across), byOut ? edge : kNext[edge], byOut ? other : kNext[other]};
        return change.firstPivot != pivots[triangle] || change.secondPivot != pivots[change.second];
    }

    // Returns the change that takes it back.
    Change apply(const Change& change) {
        Change back = change;
        back.firstPivot = pivots[change.first];
        pivots[change.first] = change.firstPivot;
        if (change.second != StripMesh::kNone) {
            back.secondPivot = pivots[change.second];
            pivots[change.second] = change.secondPivot;
        }
        return back;
    }

    int32_t outJoin(uint32_t triangle) const {
        const uint32_t across = mesh.across[triangle][pivots[triangle]];
        return across != StripMesh::kNone && pivots[neighbourOf(across)] == edgeOf(across) ? kOutWeight : 0;
    }
    int32_t inJoin(uint32_t triangle) const {
        const uint32_t across = mesh.across[triangle][kPrevious[pivots[triangle]]];
        return across != StripMesh::kNone && pivots[neighbourOf(across)] == kNext[edgeOf(across)] ? kInWeight : 0;
    }

    // The weight of the joins of the changed triangles; one between both counts once.
    int32_t joinsOf(const Change& change) const {
        int32_t sum = outJoin(change.first) + inJoin(change.first);
        if (change.second == StripMesh::kNone)
            return sum;
        const uint32_t out = mesh.across[change.second][pivots[change.second]];
        const uint32_t in = mesh.across[change.second][kPrevious[pivots[change.second]]];
        if (out == StripMesh::kNone || neighbourOf(out) != change.first)
            sum += outJoin(change.second);
        if (in == StripMesh::kNone || neighbourOf(in) != change.first)
            sum += inJoin(change.second);
        return sum;
    }

    // How many strips more a change has made that is applied already and stays so.
    int32_t stripsLost(const Change& change, const Change& back, int32_t joinsBefore) {
        touched.clear();
        touch(change);
        apply(back);
        touch(change);
        tooLong = false;
        const int32_t before = stripsTouched();
        apply(change);
        const int32_t after = stripsTouched();
        if (tooLong)
            return joinsOf(change) < joinsBefore ? 1 : 0;
        return after - before;
    }

    // Remembers the changed triangles and those joined to them: a member of every chain that a change alters.
    void touch(const Change& change) {
        for (const uint32_t triangle : {change.first, change.second}) {
            if (triangle == StripMesh::kNone)
                continue;
            touched.push_back(triangle);
            touched.push_back(behindOutEdge(mesh, pivots, triangle));
            touched.push_back(behindInEdge(mesh, pivots, triangle));
        }
    }

    // How many strips the chains through the touched triangles make.
    int32_t stripsTouched() {
        ++stamp;
        int32_t strips = 0;
        for (const uint32_t triangle : touched) {
            if (triangle != StripMesh::kNone && stamps[triangle] != stamp)
                strips += stripsOfChain(triangle);
        }
        return strips;
    }

    int32_t stripsOfChain(uint32_t middle) {
        stamps[middle] = stamp;
        uint32_t length = 1;
        if (follow(middle, true, length))
            return 1;
        const uint32_t outwards = length - 1;
        follow(middle, false, length);
        const uint32_t inwards = length - 1 - outwards;
        const bool bothEndsIn = outwards % 2 == 0 && inwards % 2 == 1;
        return bothEndsIn && length > 2 ? 2 : 1;
    }

    // Marks what follows a triangle on one side; true when the chain comes back to it.
    bool follow(uint32_t start, bool byOut, uint32_t& length) {
        uint32_t triangle = start;
        for (uint32_t steps = 0; steps < kFarthest; ++steps) {
            triangle = byOut ? behindOutEdge(mesh, pivots, triangle) : behindInEdge(mesh, pivots, triangle);
            if (triangle == StripMesh::kNone)
                return false;
            if (triangle == start)
                return true;
            stamps[triangle] = stamp;
            ++length;
            byOut = !byOut;
        }
        tooLong = true;
        return false;
    }

    const StripMesh& mesh;
    PivotLabels& pivots;
    RandomBits random;
    std::vector<uint64_t> stamps;
    uint64_t stamp = 0;
    std::vector<uint32_t> touched;
    bool tooLong = false; // a chain was not followed to its end
};

} // namespace

void annealPivots(const StripMesh& mesh, const PivotPlan& plan, PivotLabels& pivots,
                  const std::function<void(double)>& done) {
    const PivotLabels before = pivots;
    const std::size_t stripsBefore = countTriangleStrips(mesh, before);
    PivotAnnealer annealer(mesh, pivots, plan.seed);
    const auto count = static_cast<uint32_t>(mesh.faceCount());
    for (uint32_t begin = 0; begin < count; begin += kBlockSize) {
        const uint32_t end = std::min(count, begin + kBlockSize);
        for (int32_t sweep = 0; sweep < plan.joins.sweeps; ++sweep)
            annealer.annealJoins(begin, end, AcceptTable(plan.joins, sweep));
        if (done)
            done((begin + (end - begin) * 0.5) / count);
        for (int32_t sweep = 0; sweep < plan.strips.sweeps; ++sweep)
            annealer.annealStrips(begin, end, AcceptTable(plan.strips, sweep));
        if (done)
            done(static_cast<double>(end) / count);
    }
    if (countTriangleStrips(mesh, pivots) > stripsBefore)
        pivots = before;
}

} // namespace tvk
