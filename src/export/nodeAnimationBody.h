#pragma once

#include <maya/MStatus.h>

#include <iosfwd>

namespace tvk {

/// The body of the ica file: the pools of the node channels and what each node takes of them.
MStatus writeNodeAnimationBody(std::ostream& out);

} // namespace tvk
