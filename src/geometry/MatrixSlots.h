#pragma once

#include "geometry/PolygonPrimitives.h"

#include <array>
#include <cstdint>
#include <vector>

namespace tvk {

// The console's matrix slots while one polygon is sent. They keep what they hold from group to group.
class MatrixSlots {
public:
    MatrixSlots() { slots.fill(-1); }

    // Makes room for a group's matrices and says what to load: one entry per slot in use, the matrix for a slot that is
    // loaded now and -1 for one that is left alone.
    //   matrices  each once, at most kMatrixSlotCount
    // All matrices that are held already are marked first; only then does each of the others take the first slot that
    // is not marked. In one pass a matrix that comes later in the list could lose its slot.
    std::vector<int32_t> load(const std::vector<int32_t>& matrices);

    // The slot that holds a matrix, -1 when none does.
    int32_t slotOf(int32_t matrix) const;

    bool holds(int32_t matrix) const { return slotOf(matrix) >= 0; }

    // Per slot its matrix, -1 for one that was never loaded.
    const std::array<int32_t, kMatrixSlotCount>& held() const { return slots; }

private:
    std::array<int32_t, kMatrixSlotCount> slots;
};

} // namespace tvk
