#pragma once

namespace host::api {

/// Object types of the plug-in API, by the API's names. This room may not see the API's headers, so the numbers stand
/// here too; apiTypes.inc says who compares them.
// The list names its macro itself. NOLINTNEXTLINE(readability-identifier-naming,bugprone-macro-parentheses)
#define HOST_API_TYPE(name, number) constexpr int name = number;
#include "host/nodes/apiTypes.inc"
#undef HOST_API_TYPE

} // namespace host::api
