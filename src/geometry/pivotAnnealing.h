#pragma once

#include "geometry/annealing.h"
#include "geometry/pivotLabels.h"

#include <functional>

namespace tvk {

// How triangle strips are improved. Faces are worked on in blocks that fit into the processor's nearest memory, one
// block after the other, so that the time per triangle does not depend on the size of the mesh.
struct PivotPlan {
    // Counts joins only, which is quick. A join of out edges weighs 10 units and one of in edges 6: among chains of
    // even length those that start well then weigh more than those that must be cut, without anyone following the
    // chains.
    AnnealPlan joins;
    // Counts strips as countTriangleStrips does, by following the chains that a change touches. A strip is 1 unit.
    AnnealPlan strips;
    uint64_t seed = 0; // of the random changes
};

// Changes `pivots` for fewer strips; keeps them when nothing better was found.
//   done   called now and then with the part of the work done, 0 to 1; may be empty
void annealPivots(const StripMesh& mesh, const PivotPlan& plan, PivotLabels& pivots,
                  const std::function<void(double)>& done = {});

} // namespace tvk
