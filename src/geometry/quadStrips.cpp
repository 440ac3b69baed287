#include "geometry/quadStrips.h"

#include "geometry/annealing.h"
#include "geometry/quadAxes.h"

#include <utility>

namespace tvk {

namespace {

// Chances in 1/2^32: exp(-1 / temperature), the temperature in units of which a join weighs 8.
constexpr uint32_t kHot = 3345000000u;  // 4
constexpr uint32_t kWarm = 1840000000u; // 1.2
constexpr uint32_t kCool = 1231000000u; // 0.8

constexpr AnnealPlan kStandardPlan{60, kWarm, kCool};
constexpr AnnealPlan kRefinePlan{600, kWarm, kCool};
constexpr AnnealPlan kMeltPlan{1200, kHot, kCool};

QuadAxes disorder(std::size_t count, uint64_t seed) {
    RandomBits random(seed);
    QuadAxes axes(count);
    for (uint8_t& axis : axes)
        axis = static_cast<uint8_t>(random.next() >> 63);
    return axes;
}

const QuadAxes& better(const StripMesh& mesh, const QuadAxes& a, const QuadAxes& b) {
    return countQuadStrips(mesh, b) < countQuadStrips(mesh, a) ? b : a;
}

} // namespace

std::vector<std::vector<int32_t>> buildQuadStrips(const StripMesh& mesh, StripEffort effort,
                                                  const std::function<void(double)>& done) {
    QuadAxes best = better(mesh, greedyAxes(mesh), longestAxes(mesh));
    const auto improve = [&](const AnnealPlan& plan, uint64_t seed, QuadAxes start, double from, double to) {
        if (countQuadStrips(mesh, best) == 1)
            return;
        annealAxes(mesh, plan, seed, start, [&](double part) {
            if (done)
                done(from + (to - from) * part);
        });
        best = better(mesh, best, start);
    };
    if (effort == StripEffort::kStandard) {
        improve(kStandardPlan, 0, best, 0, 1);
    } else {
        improve(kRefinePlan, 1, best, 0, 0.3);
        improve(kMeltPlan, 2, disorder(mesh.faceCount(), 2), 0.3, 1);
    }
    return readQuadStrips(mesh, best);
}

} // namespace tvk
