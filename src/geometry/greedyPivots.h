#pragma once

#include "geometry/pivotLabels.h"

namespace tvk {

// Which of the triangles that are equally hard to reach starts the next strip.
enum class GreedyOrder {
    kBeside, // the one whose neighbour was taken last: strips run side by side, best on regular meshes
    kApart,  // the one that has waited longest
};

// Labels for a first set of strips. Each strip starts at the triangle with the fewest free neighbours and takes, of the
// three ways through it, the longest; no triangle is revisited. Linear in the triangles.
PivotLabels greedyPivots(const StripMesh& mesh, GreedyOrder order);

// Labels of strips that lie side by side: every component gets the direction of its lowest triangle everywhere, handed
// on from neighbour to neighbour. Of no use on irregular meshes, the best start on regular ones, where single strips
// cannot change direction one by one. Linear in the triangles.
//   direction   the pivot of the lowest triangle, 0 to 2
PivotLabels parallelPivots(const StripMesh& mesh, uint8_t direction);

} // namespace tvk
