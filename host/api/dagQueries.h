#pragma once

#include "host/graph/DagPath.h"
#include "host/graph/Value.h"

#include <optional>
#include <string>

namespace host {

/// Questions about DAG nodes and paths that several classes of the API answer.

bool isShape(const Node& node);
bool isTransform(const Node& node);

/// Number of the path among those of its end; 0 without looking when no node on it has several parents.
int instanceOf(const DagPath& path);
/// World matrix of the end of the path; the identity for the world.
Matrix44 worldMatrix(const DagPath& path);
/// Value of an attribute without index, by its long name; nothing when the node has none.
std::optional<double> numberOf(Node& node, const char* attribute);

/// Paths may differ in how visible they are: every node of one must be visible, and no shape intermediate.
bool isVisible(const DagPath& path);
bool isTemplated(const DagPath& path);

/// The first path to a DAG node.
DagPath firstPath(const Node& node);
/// Whether some node of some path to this one, or only the node itself, has several parents.
bool isInstanced(const Node& node, bool indirect);

} // namespace host
