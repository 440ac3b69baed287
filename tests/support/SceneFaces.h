#pragma once

#include "host/app/verify/SceneFaces.h"

namespace tvk {

// The faces of scenes as the product's own proof reads them.
using host::app::verify::outlineOf;
using host::app::verify::SceneCorner;
using host::app::verify::SceneFace;
using host::app::verify::sceneFaces;
using host::app::verify::vectorArea;

} // namespace tvk
