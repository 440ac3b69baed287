#pragma once

#include <maya/MAngle.h>
#include <maya/MDistance.h>
#include <maya/MTime.h>

namespace host::api {

/// The units in which the user and scripts count; one set for the whole host, as MTime::setUIUnit and its likes have
/// it.
struct UiUnits {
    MTime::Unit time = MTime::kFilm;
    MAngle::Unit angle = MAngle::kDegrees;
    MDistance::Unit distance = MDistance::kCentimeters;
};

/// The host's one set. Whoever opens a scene writes the scene's units here; only usable units may be written.
UiUnits& uiUnits();

} // namespace host::api
