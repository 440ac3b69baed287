#pragma once

#include "host/geometry/MeshTopology.h"

#include <memory>
#include <string>

namespace host {

/// The ids as they fit the topology: faces that are not there are left out, and so are faces with another number of ids
/// than corners or with an id below `lowest` or not below `count`. The same object when all of it fits. `problem` says
/// what was wrong with the first face that is there ("face 3 names 17 of 14"); it stays untouched when nothing was.
std::shared_ptr<const FaceIds> checkedIds(std::shared_ptr<const FaceIds> ids, const MeshTopology& topology,
                                          std::int32_t count, std::int32_t lowest, std::string& problem);

} // namespace host
