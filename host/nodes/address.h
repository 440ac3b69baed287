#pragma once

#include "host/graph/PlugAddress.h"

namespace host {

/// Where an attribute outside of arrays stands, or an array as a whole.
inline PlugAddress address(AttrIndex attr) {
    return {attr, 0, {}};
}

} // namespace host
