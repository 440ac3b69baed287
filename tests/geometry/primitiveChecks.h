#pragma once

#include "geometry/Corner.h"
#include "geometry/PolygonPrimitives.h"

#include <gtest/gtest.h>

#include <vector>

namespace tvk::test {

using FaceCorners = std::vector<Corner>;

// The faces that a primitive shows, each in winding order.
std::vector<FaceCorners> decodePrimitive(const Primitive& primitive);

// The faces themselves.
std::vector<FaceCorners> facesOf(const FaceList& faces);

// Whether the primitives send exactly these faces, each once, with its corners and winding. A quad may have become the
// two triangles along either diagonal, at most `splits` of them.
testing::AssertionResult sendsFaces(const PolygonPrimitives& polygon, const FaceList& faces, int64_t splits);

// Whether every sentence of PolygonPrimitives.h holds that does not speak of the source: kinds and sizes of primitives,
// at most 31 matrices to a group, matrices held before loaded ones, slots loaded before use, counts, and the first
// vertex of later groups.
testing::AssertionResult isWellFormed(const PolygonPrimitives& polygon);

// The vertices sent.
int64_t verticesOf(const PolygonPrimitives& polygon);

} // namespace tvk::test
