#pragma once

#include <maya/MFn.h>

#include <utility>
#include <vector>

namespace host::api {

/// The enumerator's name ("kMesh"); "kInvalid" for a number that no type has.
const char* fnTypeName(MFn::Type type);

/// All types with their names, in the order of the list.
const std::vector<std::pair<MFn::Type, const char*>>& fnTypeNames();

} // namespace host::api
