// The node tables may not see the API's headers and hold its numbers themselves; here both are known.

#include "host/nodes/apiTypes.h"

#include <maya/MFn.h>

// NOLINTNEXTLINE(readability-identifier-naming): the name that the list asks for
#define HOST_API_TYPE(name, number) static_assert(MFn::name == (number), "the node tables number " #name " otherwise");
#include "host/nodes/apiTypes.inc"
#undef HOST_API_TYPE
