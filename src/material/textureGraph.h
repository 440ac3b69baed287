#pragma once

#include <maya/MFn.h>
#include <maya/MObject.h>
#include <maya/MPlug.h>

namespace tvk {

/// The node at the other end of an attribute's incoming connection when it is of this type, else null.
MObject sourceNodeOf(const MObject& node, const char* attribute, MFn::Type type);

/// The curve, or whatever else, that drives a plug. Steps through one character node, by the element that drives the
/// plug or, when that has no source, the character's first incoming connection; and through one unit or time conversion
/// on either side of it. Null when there is nothing.
MPlug driverThroughCharacter(const MPlug& plug);

} // namespace tvk
