#pragma once

#include "decode/ModelGeometry.h"

#include <cstddef>
#include <vector>

namespace decode {

// One polygon of a model file, sent through the console. Used by readModelGeometry alone.

/// What the polygons of a file share.
struct PolygonTables {
    std::vector<double> positions, colors; // three numbers an entry; empty when the file has no such table
    std::size_t matrixCount = 0;
    double scale = 1.0; // 2^pos_scale
};

/// Everything of it but `material` and `node`; nothing is in the world yet. Throws a FileError as readModelGeometry
/// does.
DrawnPolygon readPolygon(const FileElement& element, const PolygonTables& tables);

} // namespace decode
