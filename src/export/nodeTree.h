#pragma once

#include <maya/MStatus.h>

namespace tvk {

/// The name of the node that holds the model together when the scene has several top nodes.
inline constexpr const char* kSyntheticRootName = "world_root";

/// Builds the run's node list from the scene: walk, links, unique names, order, output list. Fails, with a message,
/// when there is nothing to export (a name check succeeds then, with a warning).
MStatus buildNodeTree();

/// Gives later records of an equal name "_1", "_2" … in list order, and says so unless the run is a name check. Names
/// are equal when they are written with the same bytes, so two characters that Shift_JIS lacks are not told apart.
void makeNodeNamesUnique();

} // namespace tvk
