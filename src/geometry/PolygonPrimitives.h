#pragma once

#include "geometry/Corner.h"

#include <cstdint>
#include <vector>

namespace tvk {

// The console's codes.
enum class PrimitiveType : uint8_t { kTriangles, kQuads, kTriangleStrip, kQuadStrip };

// How many matrices the console holds at a time.
inline constexpr int32_t kMatrixSlotCount = 31;

// Faces that are sent with one begin command.
struct Primitive {
    PrimitiveType type = PrimitiveType::kTriangles;
    // In sending order; never empty. For a whole number of faces:
    //   kTriangles      3 a face, in winding order
    //   kQuads          4 a face, in winding order
    //   kTriangleStrip  n + 2 for n > 1 triangles: triangle k is k, k+1, k+2, for odd k with the first two exchanged
    //   kQuadStrip      2n + 2 for n > 1 quads: quad k is 2k, 2k+1, 2k+3, 2k+2
    std::vector<Corner> vertices;
};

// Faces that get by with one filling of the matrix slots.
struct MatrixGroup {
    // The matrices of the group's vertices, each once, at most kMatrixSlotCount. First those that the slots hold from
    // the groups before, in slot order, then those to load, in the order in which the source's faces use them.
    std::vector<int32_t> matrices;
    // In sending order. Usually quad strips, triangle strips, at most one kQuads, at most one kTriangles; in a later
    // group another primitive may come first so that the first vertex is on another matrix than the last vertex of the
    // group before (loading slots changes the console's current matrix, and only a change makes the writer name it).
    std::vector<Primitive> primitives;

    int32_t vertexCount = 0;   // sent, over all primitives
    int32_t triangleCount = 0; // triangles sent
    int32_t quadCount = 0;     // quads sent; polygon_size is the sum of both
};

// What the file says of one polygon's faces.
struct PolygonPrimitives {
    std::vector<MatrixGroup> groups; // none when there are no faces; one unless the faces need more than 31 matrices
    bool usesMatrixCommands = false; // more than one matrix over all groups
};

} // namespace tvk
