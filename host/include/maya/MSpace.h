#pragma once

#include <maya/MTypes.h>

/// The spaces in which transformations and points are given.
class MSpace {
public:
    enum Space {
        kInvalid = 0,
        kTransform = 1,    // as the node stores it
        kPreTransform = 2, // before the node's own matrix: the space of its geometry
        kObject = 2,
        kPostTransform = 3, // after the node's own matrix
        kWorld = 4,         // after all matrices
        kLast = 5
    };
};
