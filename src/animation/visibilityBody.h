#pragma once

#include <maya/MStatus.h>

#include <iosfwd>

namespace tvk {

/// The body of the visibility animation: the shared keys and, for every output node, where its own stand. Nothing at
/// all when there is no output node.
MStatus writeVisibilityBody(std::ostream& out);

} // namespace tvk
