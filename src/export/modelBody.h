#pragma once

#include <maya/MStatus.h>

#include <iosfwd>

namespace tvk {

/// The sections of the model file, in their order.
MStatus writeModelBody(std::ostream& out);

} // namespace tvk
