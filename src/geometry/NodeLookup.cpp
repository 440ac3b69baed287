#include "geometry/NodeLookup.h"

#include "scene/hostCompatibility.h"

#include <maya/MFn.h>

#include <algorithm>

namespace tvk {

namespace {

std::string nameOf(const MDagPath& path) {
    const MObject node = path.node();
    return textOf(MFnDependencyNode(node).name());
}

} // namespace

NodeLookup::NodeLookup(const SceneData& scene) {
    records.reserve(scene.nodes.size());
    for (const auto& node : scene.nodes) {
        if (node->hasDagNode && !node->skipOutput) {
            records.emplace(nameOf(node->path), node.get());
        }
    }
}

NodeRecord* NodeLookup::find(const MDagPath& path) const {
    MDagPath transform = path;
    if (!path.node().hasFn(MFn::kTransform)) {
        transform.pop();
    }
    const auto [first, last] = records.equal_range(nameOf(transform));
    const auto found = std::find_if(first, last, [&](const auto& entry) { return entry.second->path == transform; });
    return found == last ? nullptr : found->second;
}

} // namespace tvk
