#include "geometry/NodeLookup.h"

#include "scene/hostCompatibility.h"

#include <maya/MFn.h>

namespace tvk {

NodeLookup::NodeLookup(const SceneData& scene) {
    records.reserve(scene.nodes.size());
    for (const auto& node : scene.nodes) {
        if (node->hasDagNode && !node->skipOutput) {
            records.emplace(textOf(node->path.fullPathName()), node.get());
        }
    }
}

NodeRecord* NodeLookup::find(const MDagPath& path) const {
    MDagPath transform = path;
    if (!path.node().hasFn(MFn::kTransform)) {
        transform.pop();
    }
    const auto found = records.find(textOf(transform.fullPathName()));
    return found == records.end() ? nullptr : found->second;
}

} // namespace tvk
