#include "host/api/deformedVertices.h"

#include "host/api/ApiAccess.h"
#include "host/api/Host.h"
#include "host/api/geometryChain.h"
#include "host/nodes/meshQueries.h"

#include <numeric>

namespace host {

std::optional<std::int32_t> deformedIndex(const MObject& filter, const MDagPath& path) {
    Node* node = ApiAccess::node(filter);
    Node* shape = ApiAccess::end(path);
    return node != nullptr && shape != nullptr ? outputIndexOf(*node, *shape) : std::nullopt;
}

MStatus verticesOf(Node& shape, const MObject& component, std::vector<std::int32_t>& vertices) {
    const std::int32_t count = evaluatedMesh(Host::instance().graph(), shape)->topology->vertexCount();
    const ComponentObject* some = ApiAccess::component(component);
    if (!component.isNull() && (some == nullptr || some->type != MFn::kMeshVertComponent)) {
        return MStatus::kFailure;
    }
    if (some == nullptr || some->indices.isComplete()) {
        vertices.resize(static_cast<std::size_t>(count));
        std::iota(vertices.begin(), vertices.end(), 0);
        return MStatus::kSuccess;
    }
    const std::vector<IndexRange>& ranges = some->indices.ranges();
    if (!ranges.empty() && ranges.back().last >= count) {
        return MStatus::kFailure;
    }
    vertices = some->indices.all();
    return MStatus::kSuccess;
}

} // namespace host
