#pragma once

#include "host/scene/StatementContext.h"

#include <cstddef>
#include <string_view>

namespace host {

/// What a setAttr says about its values.
struct ValueRequest {
    std::string_view name;    // of the attribute as written, for messages
    std::string_view type;    // "" when the statement names none
    std::size_t sizeHint = 0; // elements of the whole array
};

/// Reads values from the stream into the plug, or into each element of the range in turn. Values that do not fit the
/// attribute are read over and reported; missing ones break the statement.
Outcome readAttributeValues(StatementContext& context, ArgumentStream& arguments, const PlugTarget& target,
                            const ValueRequest& request);

} // namespace host
