#include "geometry/annealing.h"

namespace tvk {

AcceptTable::AcceptTable(const AnnealPlan& plan, int32_t sweep) {
    if (sweep + 1 >= plan.sweeps)
        return;
    const int64_t fall = int64_t{plan.firstChance} - int64_t{plan.lastChance};
    const auto one = static_cast<uint64_t>(plan.firstChance - fall * sweep / (plan.sweeps - 1));
    uint64_t chance = one;
    for (std::size_t loss = 1; loss < chances.size(); ++loss) {
        chances[loss] = static_cast<uint32_t>(chance);
        chance = (chance * one) >> 32;
    }
}

} // namespace tvk
