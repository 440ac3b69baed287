#pragma once

#include <iosfwd>

namespace tvk {

/// Sections of the model file that are written from the model's tables. Each writes nothing when there is nothing to
/// tell. Values are decimal, or the stored integers by ExportOptions::rawValues.

/// The box round all output points, in its own 16-bit scale: corner and size. Only for models with a polygon.
void writeBoxTest(std::ostream& out);
/// The tables that vertices index when ExportOptions::vertexTableFlag is on.
void writeVertexPositions(std::ostream& out);
void writeVertexColors(std::ostream& out);
/// Weights and nodes of the blends.
void writeEnvelope(std::ostream& out);
void writeMatrixArray(std::ostream& out);

} // namespace tvk
