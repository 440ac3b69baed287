#pragma once

#include "host/scene/StatementContext.h"

namespace host {

/// Reads the numbers of `count` rows from element `first` on, straight from the stream into the array's own block.
/// `array` is a whole array of plain numbers or of compounds of them. Rows are made as their numbers come, so that a
/// range that only claims to be long costs nothing. `sizeHint` (0: none) is what the statement says of the whole array.
Outcome readRows(StatementContext& context, ArgumentStream& arguments, const Plug& array, std::int32_t first,
                 std::size_t count, std::size_t sizeHint);

/// The form of sparse arrays within arrays: for each of the elements first … last of `outer`, a count and that many
/// pairs of a logical index and a row of the array `inner` below it.
Outcome readRaggedRows(StatementContext& context, ArgumentStream& arguments, const Plug& outer, std::int32_t first,
                       std::int32_t last, AttrIndex inner);

} // namespace host
