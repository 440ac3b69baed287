#pragma once

#include "scene/NodeRecord.h"

#include <maya/MObject.h>

namespace tvk {

/// Tests of a scene node, by its attributes at the current time. An attribute that is missing or cannot be read counts
/// as its default.

/// Neither switched to "has no effect" nor to "blocking".
bool isNodeEffective(const MObject& node);

/// Protected from node compression: "tvk_no_cut" is there and not 0.
bool isNoCut(const MObject& node);

/// For shapes: rendered, no template, not intermediate, and not hidden or templated by its display override.
bool isShown(const MObject& shape);

/// For transforms: visible by its own switch and by its display override. Ancestors are not looked at.
bool isVisible(const MObject& transform);

/// The "tvk_billboard" choice; outside its range, unreadable or missing it is off.
Billboard billboardOf(const MObject& transform);

/// What the node itself contributes to being seen: isVisible, not a template, and for a mesh node its shape's own
/// switch.
bool isSelfVisible(const NodeRecord& node);

} // namespace tvk
