#pragma once

#include <maya/MObject.h>
#include <maya/MPlug.h>

namespace tvk {

/// The plug that is connected into this very plug; null when there is none. Connections of the compound that it belongs
/// to, or of its children, do not count.
MPlug sourceOf(const MPlug& plug);

/// The node behind sourceOf, or, when a compound has no source of its own, behind the first of its children that has
/// one; null when there is none.
MObject firstSourceNode(const MPlug& plug);

} // namespace tvk
