#pragma once

#include "bench/stripMeshes.h"

#include <algorithm>
#include <cstdint>
#include <ctime>
#include <limits>

namespace tvk {

// The processor seconds of the fastest of several runs: other work on the machine does not count.
template <typename Run>
double measureProcessorSeconds(int repeats, Run run) {
    double least = std::numeric_limits<double>::infinity();
    for (int i = 0; i < repeats; ++i) {
        const std::clock_t start = std::clock();
        run();
        least = std::min(least, static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC);
    }
    return least;
}

// What another stripper sends for some triangles, and how long it takes.
struct RivalResult {
    int64_t vertices = 0; // of its strips and single triangles; repeats counted
    double seconds = 0;   // of the processor
};

// meshoptimizer: the best of the given order, its vertex-cache order and its order for strips.
RivalResult stripWithMeshoptimizer(const TriangleIndices& triangles);

// OpenSceneGraph's TriStripVisitor.
RivalResult stripWithOpenSceneGraph(const TriangleIndices& triangles);

} // namespace tvk
