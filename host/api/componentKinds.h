#pragma once

#include "host/api/ObjectPayload.h"

#include <string>
#include <vector>

namespace host {

/// The API type of components that a name like "f[0:3]" means on a shape of this type; kComponent for kinds that the
/// API has no type for.
MFn::Type componentType(const std::string& text, const Node& shape);

/// Components sorted out by kind, each kind in the order given, kinds in the order of their first component.
std::vector<ComponentObject> componentsByKind(const std::vector<std::string>& texts, const Node& shape);

} // namespace host
