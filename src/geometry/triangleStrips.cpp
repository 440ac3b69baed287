#include "geometry/triangleStrips.h"

#include "geometry/greedyPivots.h"
#include "geometry/pivotAnnealing.h"
#include "geometry/pivotLabels.h"

#include <utility>

namespace tvk {

namespace {

// Chances in 1/2^32: exp(-1 / temperature), the temperature in units of the plan.
constexpr uint32_t kHot = 3345000000u;     // temperature 4 of joins, half of one: strips form and dissolve
constexpr uint32_t kWarm = 1840000000u;    // 1.2: strips exchange their tails
constexpr uint32_t kCool = 1231000000u;    // 0.8: hardly any join is given up
constexpr uint32_t kStripsWarm = 5470000u; // 0.15 of a strip
constexpr uint32_t kStripsCool = 195000u;  // 0.1

constexpr PivotPlan kStandardPlan{{40, kWarm, kCool}, {6, kStripsWarm, kStripsCool}, 0};

// From the start, to keep what is regular about it, and from disorder, to get rid of what is wrong with it.
constexpr PivotPlan kRefinePlan{{800, kWarm, kCool}, {15, kStripsWarm, kStripsCool}, 1};
constexpr PivotPlan kMeltPlan{{1300, kHot, kCool}, {15, kStripsWarm, kStripsCool}, 2};
constexpr int kMelts = 2;

PivotLabels firstPivots(const StripMesh& mesh, const std::vector<uint32_t>& components) {
    std::vector<PivotLabels> candidates{greedyPivots(mesh, GreedyOrder::kBeside),
                                        greedyPivots(mesh, GreedyOrder::kApart)};
    for (uint8_t direction = 0; direction < 3; ++direction)
        candidates.push_back(parallelPivots(mesh, direction));
    return bestByComponent(mesh, components, candidates);
}

PivotLabels disorder(std::size_t count, uint64_t seed) {
    RandomBits random(seed);
    PivotLabels pivots(count);
    for (uint8_t& pivot : pivots)
        pivot = static_cast<uint8_t>(((random.next() >> 32) * 3) >> 32);
    return pivots;
}

// Trying several starts would not pay: meshes of several patches are hardly ever regular as a whole, and each look at
// all of their triangles waits for memory.
PivotLabels largePivots(const StripMesh& mesh, const std::function<void(double)>& tell) {
    PivotLabels pivots = greedyPivots(mesh, GreedyOrder::kBeside);
    annealPivots(mesh, kStandardPlan, pivots, tell);
    return pivots;
}

} // namespace

std::vector<std::vector<int32_t>> buildTriangleStrips(const StripMesh& mesh, StripEffort effort,
                                                      const std::function<void(double)>& done) {
    if (effort == StripEffort::kStandard && mesh.faceCount() > kStripPatchSize)
        return readTriangleStrips(mesh, largePivots(mesh, done));
    const std::vector<uint32_t> components = findComponents(mesh);
    PivotLabels best = firstPivots(mesh, components);
    const std::size_t least = leastTriangleStrips(mesh, components);
    const auto tell = [&](double part) {
        if (done)
            done(part);
    };
    const auto improve = [&](const PivotPlan& plan, PivotLabels start, double from, double to) {
        if (countTriangleStrips(mesh, best) == least)
            return;
        annealPivots(mesh, plan, start, [&](double part) { tell(from + (to - from) * part); });
        best = bestByComponent(mesh, components, {std::move(best), std::move(start)});
    };
    if (effort == StripEffort::kStandard) {
        improve(kStandardPlan, best, 0, 1);
    } else {
        improve(kRefinePlan, best, 0, 0.25);
        for (int melt = 0; melt < kMelts; ++melt) {
            PivotPlan plan = kMeltPlan;
            plan.seed += static_cast<uint64_t>(melt);
            improve(plan, disorder(mesh.faceCount(), plan.seed), 0.25 + 0.35 * melt, 0.6 + 0.35 * melt);
        }
    }
    tell(1);
    return readTriangleStrips(mesh, best);
}

} // namespace tvk
