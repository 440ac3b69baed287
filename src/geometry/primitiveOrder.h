#pragma once

#include "geometry/PolygonPrimitives.h"

#include <cstdint>
#include <vector>

namespace tvk {

// The primitives of one group before they are in order. Each entry is one strip or one face, as its vertices:
struct LooseFaces {
    std::vector<std::vector<Corner>> quadStrips;     // of two or more quads, as Primitive has them
    std::vector<std::vector<Corner>> triangleStrips; // of two or more triangles
    std::vector<std::vector<Corner>> quads;          // four each, in winding order
    std::vector<std::vector<Corner>> triangles;      // three each, in winding order
};

// Puts them into the order in which the fewest matrix commands are needed: quad strips, triangle strips, quads,
// triangles; among strips the next whose first vertex is on the current matrix, else the next in the given order.
//   faces        taken over
//   lastMatrix   that of the last vertex of the group before, -1 for the first group. Otherwise the first vertex is on
//                another one: another primitive comes first, or a strip is broken open, as little as it takes. Some
//                vertex must be on another matrix.
//   sortLists    whether single faces are sorted by their matrices and turned so that they begin with the current one;
//                off: they keep their order and their first corner
std::vector<Primitive> orderPrimitives(LooseFaces faces, int32_t lastMatrix, bool sortLists);

} // namespace tvk
