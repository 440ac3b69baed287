#pragma once

#include "host/api/values/UiUnits.h"
#include "host/graph/Units.h"

namespace host {

/// The scene's units as the API numbers them. A frame rate that the API has no unit for ("7fps") gives kFilm.
api::UiUnits uiUnitsOf(const Units& units);
Units unitsOf(const api::UiUnits& uiUnits);

bool sameUnits(const api::UiUnits& a, const api::UiUnits& b);

} // namespace host
