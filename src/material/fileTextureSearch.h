#pragma once

#include <maya/MObject.h>
#include <maya/MPlug.h>

namespace tvk {

/// The file texture that is connected to a colour; null when there is none. The first node connected decides: of a
/// layered texture the first layer that is a file is taken, a procedural texture is none. Both are warned of, except in
/// a name check.
MObject findFileTexture(const MPlug& colorPlug);

} // namespace tvk
