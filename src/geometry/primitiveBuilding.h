#pragma once

#include "geometry/Corner.h"
#include "geometry/PolygonPrimitives.h"

#include <cstdint>
#include <functional>

namespace tvk {

// How long strips are improved. Both take time linear in the faces; kThorough takes some forty times as long.
enum class StripEffort { kStandard, kThorough };

// The console cannot show models beyond a few thousand triangles, so that what can be shown gets the thorough effort
// and only what could never be shown is spared it.
//   modelTriangles   of all polygons of the model
StripEffort stripEffortFor(int64_t modelTriangles);

enum class PrimitiveStep { kGroupMatrices, kMakeStrips };

// Told how far a step is with the polygon at hand, from 0 to 1, rising; at least once with 1 for kMakeStrips when
// strips are made, and for kGroupMatrices when the polygon needs more than one group.
using PrimitiveProgress = std::function<void(PrimitiveStep step, double done)>;

struct PrimitiveOptions {
    bool makeStrips = true; // off: one kQuads, then one kTriangles, each in face order
    StripEffort effort = StripEffort::kStandard;
    // How many quads may be sent as two triangles of a triangle strip; quadsThatMaySplit() tells. They are, where that
    // sends fewer vertices. Without room for all of a polygon's gains only those that fit are taken.
    int64_t splittableQuads = 0;
    PrimitiveProgress progress; // may be empty
};

// What the console has for the polygons of a model, and what each face takes of it.
inline constexpr int64_t kPolygonMemory = 40960;
inline constexpr int64_t kTriangleMemory = 20;
inline constexpr int64_t kQuadMemory = 24;

// A quad in a quad strip costs as many vertices as its two triangles in a triangle strip and less polygon memory. Two
// triangles can save vertices where a strip goes on from a quad into a triangle; they are worth it as long as the model
// fits into the console's polygon memory.
//   triangles, quads   of the whole model, as they are or will be sent
//   returns            how many of the quads may become two triangles without overfilling the memory; 0 when it is full
int64_t quadsThatMaySplit(int64_t triangles, int64_t quads);

// Builds what the file says of a polygon's faces: matrix groups, and in each the primitives with the fewest vertices.
//   faces      triangles and quads; an empty list gives no groups
// Every face is sent exactly once, with all its corners and its winding: as itself, or, when options.splittableQuads
// allows, a quad as the two triangles along either of its diagonals. Primitives join faces only along edges whose two
// corners agree in all five indices. No strip repeats a vertex to turn. The result depends on nothing but the
// arguments.
PolygonPrimitives buildPrimitives(const FaceList& faces, const PrimitiveOptions& options);

} // namespace tvk
