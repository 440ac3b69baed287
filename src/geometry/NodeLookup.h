#pragma once

#include "scene/SceneData.h"

#include <maya/MDagPath.h>

#include <string>
#include <unordered_map>

namespace tvk {

/// Finds the records of exported nodes by their DAG paths.
class NodeLookup {
public:
    explicit NodeLookup(const SceneData& scene);

    /// The record of a transform, or of the transform above a shape; null for a node that is not exported.
    NodeRecord* find(const MDagPath& path) const;

private:
    // By the node's own name: path names of deep hierarchies would take quadratic memory.
    std::unordered_multimap<std::string, NodeRecord*> records;
};

} // namespace tvk
