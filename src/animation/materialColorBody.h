#pragma once

#include <maya/MStatus.h>

#include <iosfwd>

namespace tvk {

/// The body of the ima file: the colours of the animated materials. Nothing when there are none.
MStatus writeMaterialColorBody(std::ostream& out);

} // namespace tvk
