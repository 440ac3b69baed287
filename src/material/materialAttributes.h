#pragma once

#include "scene/MaterialRecord.h"

#include <maya/MObject.h>

namespace tvk {

// The attributes that artists give a shader for the console. Any numeric type is taken, read as an integer; what is
// missing or cannot be read leaves its field as it is.

/// All that do not depend on the texture.
void readConsoleAttributes(const MObject& shader, MaterialRecord& record);

/// Where a textured material gets its coordinates from, by its attributes and its placement: lights and placement of
/// the record are final.
void readTexGenAttributes(const MObject& shader, MaterialRecord& record);

} // namespace tvk
