#include "geometry/MatrixSlots.h"

#include <algorithm>
#include <cstddef>

namespace tvk {

int32_t MatrixSlots::slotOf(int32_t matrix) const {
    const auto* const found = std::find(slots.begin(), slots.end(), matrix);
    return matrix < 0 || found == slots.end() ? -1 : static_cast<int32_t>(found - slots.begin());
}

std::vector<int32_t> MatrixSlots::load(const std::vector<int32_t>& matrices) {
    std::array<bool, kMatrixSlotCount> marked{};
    std::vector<int32_t> missing;
    for (const int32_t matrix : matrices) {
        const int32_t slot = slotOf(matrix);
        if (slot >= 0)
            marked[static_cast<std::size_t>(slot)] = true;
        else
            missing.push_back(matrix);
    }
    std::vector<int32_t> loads(kMatrixSlotCount, -1);
    std::size_t slot = 0;
    for (const int32_t matrix : missing) {
        while (slot < slots.size() && marked[slot])
            ++slot;
        if (slot == slots.size())
            break;
        slots[slot] = matrix;
        loads[slot] = matrix;
        ++slot;
    }
    const auto used = std::find(slots.begin(), slots.end(), -1) - slots.begin();
    loads.resize(static_cast<std::size_t>(used));
    return loads;
}

} // namespace tvk
