#pragma once

#include <maya/MStatus.h>

namespace tvk {

/// Steps the host through the run's frame range, first frame first, and records every node's effective visibility (its
/// own and that of all ancestors) per frame. The host's time is the same afterwards. Fails, with a message, on a range
/// of more than a million frames.
MStatus sampleAnimation();

} // namespace tvk
