#include "geometry/primitiveOrder.h"

#include "primitiveChecks.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace tvk::test {
namespace {

// Vertices on the given matrices, all at different places.
std::vector<Corner> verticesOn(const std::vector<int32_t>& matrices) {
    static int32_t place = 0;
    std::vector<Corner> vertices;
    for (const int32_t matrix : matrices) {
        Corner corner;
        corner.matrix = matrix;
        corner.position = place++;
        vertices.push_back(corner);
    }
    return vertices;
}

std::vector<PrimitiveType> typesOf(const std::vector<Primitive>& primitives) {
    std::vector<PrimitiveType> types;
    for (const Primitive& primitive : primitives)
        types.push_back(primitive.type);
    return types;
}

// The sorted positions of each face, turned so that the lowest comes first.
std::vector<std::vector<int32_t>> facesIn(const std::vector<Primitive>& primitives) {
    std::vector<std::vector<int32_t>> faces;
    for (const Primitive& primitive : primitives) {
        for (const FaceCorners& corners : decodePrimitive(primitive)) {
            std::vector<int32_t> face;
            for (const Corner& corner : corners)
                face.push_back(corner.position);
            std::rotate(face.begin(), std::min_element(face.begin(), face.end()), face.end());
            faces.push_back(face);
        }
    }
    std::sort(faces.begin(), faces.end());
    return faces;
}

TEST(PrimitiveOrder, NothingGivesNothing) {
    EXPECT_TRUE(orderPrimitives({}, -1, true).empty());
}

TEST(PrimitiveOrder, QuadStripsThenTriangleStripsThenLists) {
    LooseFaces faces;
    faces.triangles = {verticesOn({0, 0, 0})};
    faces.quads = {verticesOn({0, 0, 0, 0})};
    faces.triangleStrips = {verticesOn({0, 0, 0, 0})};
    faces.quadStrips = {verticesOn({0, 0, 0, 0, 0, 0})};
    EXPECT_EQ(typesOf(orderPrimitives(faces, -1, true)),
              (std::vector<PrimitiveType>{PrimitiveType::kQuadStrip, PrimitiveType::kTriangleStrip,
                                          PrimitiveType::kQuads, PrimitiveType::kTriangles}));
}

TEST(PrimitiveOrder, NextStripBeginsWithTheCurrentMatrixElseTheFirstWaiting) {
    LooseFaces faces;
    faces.triangleStrips = {verticesOn({1, 1, 1, 2}), verticesOn({3, 3, 3, 3}), verticesOn({2, 2, 2, 4}),
                            verticesOn({3, 3, 3, 1})};
    std::vector<int32_t> starts;
    for (const Primitive& primitive : orderPrimitives(faces, -1, true))
        starts.push_back(primitive.vertices[0].position - faces.triangleStrips[0][0].position);
    EXPECT_EQ(starts, (std::vector<int32_t>{0, 8, 4, 12}));
}

TEST(PrimitiveOrder, ListsAreSortedByMatricesAndTurnedToTheCurrentOne) {
    LooseFaces faces;
    faces.triangles = {verticesOn({3, 3, 3}), verticesOn({2, 1, 1}), verticesOn({1, 1, 1})};
    const std::vector<Primitive> sorted = orderPrimitives(faces, -1, true);
    std::vector<int32_t> matrices;
    for (const Corner& corner : sorted[0].vertices)
        matrices.push_back(corner.matrix);
    EXPECT_EQ(matrices, (std::vector<int32_t>{1, 1, 1, 1, 1, 2, 3, 3, 3}));
    const std::vector<Primitive> kept = orderPrimitives(faces, -1, false);
    matrices.clear();
    for (const Corner& corner : kept[0].vertices)
        matrices.push_back(corner.matrix);
    EXPECT_EQ(matrices, (std::vector<int32_t>{3, 3, 3, 2, 1, 1, 1, 1, 1}));
}

TEST(PrimitiveOrder, LaterGroupBeginsWithAStripOnAnotherMatrix) {
    LooseFaces faces;
    faces.quadStrips = {verticesOn({5, 5, 5, 5, 5, 5}), verticesOn({6, 5, 5, 5, 5, 5})};
    faces.triangleStrips = {verticesOn({7, 5, 5, 5})};
    const std::vector<Primitive> primitives = orderPrimitives(faces, 5, true);
    EXPECT_EQ(primitives[0].vertices[0].matrix, 6);
    EXPECT_EQ(primitives.size(), 3u);
    EXPECT_EQ(facesIn(primitives).size(), 6u);
}

TEST(PrimitiveOrder, LaterGroupBeginsWithATurnedFaceWhenNoStripFits) {
    LooseFaces faces;
    faces.quadStrips = {verticesOn({5, 5, 5, 5, 5, 6})};
    faces.triangles = {verticesOn({5, 5, 5}), verticesOn({5, 5, 6})};
    const std::vector<Primitive> primitives = orderPrimitives(faces, 5, true);
    EXPECT_EQ(typesOf(primitives), (std::vector<PrimitiveType>{PrimitiveType::kTriangles, PrimitiveType::kQuadStrip}));
    EXPECT_EQ(primitives[0].vertices[0].matrix, 6);
}

TEST(PrimitiveOrder, StripIsBrokenOpenWhereverItsOnlyOtherMatrixIs) {
    for (std::size_t count = 4; count <= 10; ++count) {
        for (std::size_t at = 1; at < count; ++at) {
            std::vector<int32_t> matrices(count, 5);
            matrices[at] = 6;
            for (const bool isQuads : {false, true}) {
                if (isQuads && (count < 6 || count % 2 != 0))
                    continue;
                LooseFaces faces;
                const std::vector<Corner> strip = verticesOn(matrices);
                (isQuads ? faces.quadStrips : faces.triangleStrips) = {strip};
                const PrimitiveType type = isQuads ? PrimitiveType::kQuadStrip : PrimitiveType::kTriangleStrip;
                const std::vector<Primitive> primitives = orderPrimitives(faces, 5, true);
                ASSERT_EQ(primitives[0].vertices[0].matrix, 6) << count << ' ' << at;
                EXPECT_EQ(facesIn(primitives), facesIn({Primitive{type, strip}})) << count << ' ' << at;
            }
        }
    }
}

} // namespace
} // namespace tvk::test
