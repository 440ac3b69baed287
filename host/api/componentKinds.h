#pragma once

#include "host/api/ObjectPayload.h"
#include "host/geometry/ComponentList.h"

#include <string>
#include <vector>

namespace host {

/// Whether components of this type are counted with one number.
bool isSingleIndexed(MFn::Type componentType);

/// Components sorted out by kind, kinds in the order of their first component. Kinds that the API has no type for are
/// kComponent. Where the shape evaluates to a mesh, numbers that it does not have are left out.
std::vector<ComponentObject> componentsByKind(const std::vector<std::string>& texts, Node& shape);
std::vector<ComponentObject> componentsByKind(const std::vector<ComponentRange>& ranges, Node& shape);

/// How names write them: "f[0:3]", "f[7]", "vtx[*]".
std::vector<std::string> componentTexts(const ComponentObject& component);

} // namespace host
