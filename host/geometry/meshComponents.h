#pragma once

#include "host/geometry/ComponentList.h"
#include "host/geometry/MeshTopology.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace host {

/// Per vertex, edge or face of the mesh, whether the list names it: itself, or (vertices, edges) as part of a face or
/// edge that the list names. What is not there is left out.
std::vector<bool> namedVertices(const ComponentList& list, const MeshTopology& topology);
std::vector<bool> namedEdges(const ComponentList& list, const MeshTopology& topology);
std::vector<bool> namedFaces(const ComponentList& list, const MeshTopology& topology);

/// The first `most` indices of one kind in the order of the list, none of `count` or more; an index that stands there
/// twice comes twice.
std::vector<std::int32_t> listedIndices(const ComponentList& list, ComponentKind kind, std::int32_t count,
                                        std::size_t most);

} // namespace host
