#pragma once

#include "image/tex4x4/entryCandidates.h"

namespace tvk {

/// Gives up entries until a draft has at most so many pairs: always what costs least error for a pair, where the blocks
/// of an entry change to their next best one, or two entries become one that is fitted to the blocks of both, or an
/// entry of two pairs keeps one.
///   pairLimit   at least 1
/// Stops above the limit when the blocks' candidates do not reach that far; calling it again goes on from there.
void shrinkEntries(const Tex4x4Colors& colors, const std::vector<PaletteBlock>& blocks,
                   const BlockNeighbours& neighbours, size_t pairLimit, PaletteDraft& draft);

} // namespace tvk
