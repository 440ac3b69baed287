#pragma once

#include "image/tex4x4/nearestPoints.h"
#include "image/tex4x4/paletteEntries.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace tvk {

/// Which blocks lie near each other in colour, by block, the nearest first.
using BlockNeighbours = std::vector<std::vector<uint32_t>>;

BlockNeighbours findNeighbours(const Tex4x4Colors& colors, const std::vector<PaletteBlock>& blocks);

/// The entries that a block may change to: its own, those of its neighbours and, where these are few, those most like
/// its own. The own one comes first, none comes twice.
class EntryCandidates {
public:
    EntryCandidates(const Tex4x4Colors& colors, const BlockNeighbours& blockNeighbours,
                    const PaletteDraft& paletteDraft);

    /// Fills `entries` for a block. Calls after a change of the draft's blocks look at the new state; the likeness of
    /// entries is that of the beginning.
    void find(size_t block, std::vector<uint32_t>& entries) const;

private:
    std::vector<Point6> pointsOfEntries(const Tex4x4Colors& colors);
    void addLikeEntries(uint32_t entry, std::vector<uint32_t>& entries) const;

    const BlockNeighbours& neighbours;
    const PaletteDraft& draft;
    std::vector<uint32_t> entryOfPoint; // the entries that are not given up
    std::vector<uint32_t> pointOfEntry;
    NearestPoints entryPoints;
};

} // namespace tvk
