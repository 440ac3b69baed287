#pragma once

#include <maya/MStatus.h>

namespace tvk {

/// Steps the host through the run's frame range, first frame first, and records every node's effective visibility (its
/// own and that of all ancestors) per frame. The host's time is the same afterwards.
MStatus sampleAnimation();

} // namespace tvk
