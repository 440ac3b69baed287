#pragma once

#include "host/scene/StatementContext.h"
#include "host/scene/valueTypes.h"

#include <optional>

namespace host {

/// Readers of values that are more than numbers. Each reads one value from the stream; on broken syntax they give
/// nothing and an outcome that says what was expected. Counts in front of lists are never trusted for memory.

/// 16 numbers row by row, or "xform": scale, rotate (radians), rotate order, translate, shear, scale pivot and its
/// translate, rotate pivot and its translate, rotate orient and joint orient as quaternions, the parent's inverse scale
/// and whether it counts.
std::optional<Matrix44> readMatrix(ArgumentStream& arguments, Outcome& outcome);

/// A list of one of the array forms. Component texts that name no component are left out with a warning.
DataPtr readArrayData(StatementContext& context, ArgumentStream& arguments, ValueForm form, Outcome& outcome);

/// A count, then per channel its attribute's name, which array it is in, and its element.
DataPtr readCharacterMapping(ArgumentStream& arguments, Outcome& outcome);

/// Three counts, how many points, and the points, s fastest.
DataPtr readLattice(ArgumentStream& arguments, Outcome& outcome);

/// Degree, spans, form (0 open, 1 closed, 2 periodic), whether points have weights, dimension; how many knots, and the
/// knots; how many points, and the points, each with its weight. A curve that its numbers do not make stays as it is.
DataPtr readNurbsCurve(ArgumentStream& arguments, Outcome& outcome);

/// {"alias", "attribute", …}
DataPtr readAliases(ArgumentStream& arguments, Outcome& outcome);

/// One chunk of faces, into the builder.
Outcome readFaces(ArgumentStream& arguments, PolyFacesBuilder& builder, std::int32_t firstFace);

/// A value of any form that is held as data, but for aliases and faces.
DataPtr readDataValue(StatementContext& context, ArgumentStream& arguments, ValueForm form, Outcome& outcome);

} // namespace host
