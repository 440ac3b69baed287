#pragma once

#include <maya/MStatus.h>

#include <iosfwd>

namespace tvk {

/// Builds the primitives of every polygon that is kept and writes them: the polygon array of the model file. Shows how
/// far it is in the host's feedback line. Fills the display lists and counts of the nodes and the totals of the model,
/// and warns when these are more than the console takes.
MStatus writePolygonArray(std::ostream& out);

} // namespace tvk
