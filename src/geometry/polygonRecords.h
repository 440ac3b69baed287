#pragma once

#include <maya/MStatus.h>

namespace tvk {

/// Makes a polygon record of every shape and shading group, with its material and what its corners hold: vertices,
/// normals, colours, texture coordinates. Positions come later. Shapes are read already. Fails, with a message, on the
/// first shape whose shading groups cannot be found, and on faces with holes.
/// Faces in no shading group are left out, with one warning per shape.
MStatus buildPolygonRecords();

} // namespace tvk
