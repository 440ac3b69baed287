#pragma once

#include "bench/stripMeshes.h"

#include <cstdint>

namespace tvk {

// What another stripper sends for some triangles, and how long it takes.
struct RivalResult {
    int64_t vertices = 0; // of its strips and single triangles; repeats counted
    double seconds = 0;
};

// meshoptimizer: the best of the given order, its vertex-cache order and its order for strips.
RivalResult stripWithMeshoptimizer(const TriangleIndices& triangles);

// OpenSceneGraph's TriStripVisitor.
RivalResult stripWithOpenSceneGraph(const TriangleIndices& triangles);

} // namespace tvk
