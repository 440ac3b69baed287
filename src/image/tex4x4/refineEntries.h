#pragma once

#include "image/tex4x4/entryCandidates.h"

namespace tvk {

/// Moves the colours of a draft's entries to where their blocks want them, then the blocks to the entries that serve
/// them best. The sum of errors does not grow. Entries that lose all their blocks are given up.
void refineEntries(const Tex4x4Colors& colors, const std::vector<PaletteBlock>& blocks,
                   const BlockNeighbours& neighbours, PaletteDraft& draft);

} // namespace tvk
