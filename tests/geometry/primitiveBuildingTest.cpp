#include "geometry/primitiveBuilding.h"

#include "primitiveChecks.h"
#include "randomFaces.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

namespace tvk::test {
namespace {

constexpr int64_t kAll = std::numeric_limits<int64_t>::max();

PrimitiveOptions withSplits(int64_t splits) {
    PrimitiveOptions options;
    options.splittableQuads = splits;
    return options;
}

int64_t facesSent(const PolygonPrimitives& polygon, PrimitiveType type) {
    int64_t count = 0;
    for (const MatrixGroup& group : polygon.groups) {
        for (const Primitive& primitive : group.primitives) {
            if (primitive.type == type)
                count += static_cast<int64_t>(decodePrimitive(primitive).size());
        }
    }
    return count;
}

// A sheet of quads that are all alike.
FaceList makeGrid(int32_t side) {
    RandomFaces settings;
    settings.faces = side * side;
    settings.quadShare = 1;
    settings.holeShare = 0;
    settings.seamShare = 0;
    return makeRandomFaces(settings);
}

std::string flatten(const PolygonPrimitives& polygon) {
    std::string text;
    for (const MatrixGroup& group : polygon.groups) {
        for (const int32_t matrix : group.matrices)
            text += std::to_string(matrix) + ' ';
        for (const Primitive& primitive : group.primitives) {
            text += '\n' + std::to_string(static_cast<int>(primitive.type));
            for (const Corner& corner : primitive.vertices)
                text += ' ' + std::to_string(corner.position) + '/' + std::to_string(corner.texCoord);
        }
    }
    return text;
}

TEST(PrimitiveBuilding, NoFacesGiveNoGroups) {
    const PolygonPrimitives polygon = buildPrimitives({}, {});
    EXPECT_TRUE(polygon.groups.empty());
    EXPECT_FALSE(polygon.usesMatrixCommands);
}

TEST(PrimitiveBuilding, SingleFacesBecomeLists) {
    FaceList faces;
    faces.corners.resize(7);
    for (std::size_t i = 0; i < faces.corners.size(); ++i)
        faces.corners[i].position = static_cast<int32_t>(i);
    faces.sizes = {3, 4};
    const PolygonPrimitives polygon = buildPrimitives(faces, {});
    ASSERT_EQ(polygon.groups.size(), 1u);
    ASSERT_EQ(polygon.groups[0].primitives.size(), 2u);
    EXPECT_EQ(polygon.groups[0].primitives[0].type, PrimitiveType::kQuads);
    EXPECT_EQ(polygon.groups[0].primitives[1].type, PrimitiveType::kTriangles);
    EXPECT_EQ(polygon.groups[0].vertexCount, 7);
    EXPECT_TRUE(sendsFaces(polygon, faces, 0));
}

TEST(PrimitiveBuilding, FacesThatRepeatAVertexStayAlone) {
    FaceList faces = makeGrid(4);
    // A quad over its neighbour's edge whose first and third corner are the same.
    const Corner a = faces.corners[0];
    const Corner b = faces.corners[1];
    const Corner c = faces.corners[2];
    faces.corners.insert(faces.corners.end(), {a, b, a, c});
    faces.sizes.push_back(4);
    EXPECT_TRUE(sendsFaces(buildPrimitives(faces, {}), faces, 0));
}

TEST(PrimitiveBuilding, ManyFacesOnOneEdgeAreAllSent) {
    FaceList faces;
    for (int32_t i = 0; i < 1000; ++i) {
        const std::array<int32_t, 3> positions =
            i % 2 == 0 ? std::array<int32_t, 3>{0, 1, i + 2} : std::array<int32_t, 3>{1, 0, i + 2};
        for (const int32_t position : positions) {
            Corner corner;
            corner.position = position;
            faces.corners.push_back(corner);
        }
        faces.sizes.push_back(3);
    }
    const PolygonPrimitives polygon = buildPrimitives(faces, {});
    EXPECT_TRUE(sendsFaces(polygon, faces, 0));
    EXPECT_TRUE(isWellFormed(polygon));
    EXPECT_EQ(verticesOf(polygon), 500 * 4);
}

TEST(PrimitiveBuilding, CoincidentFacesOfOppositeWindingAreBothSent) {
    FaceList faces;
    for (const int32_t position : {0, 1, 2, 0, 2, 1}) {
        Corner corner;
        corner.position = position;
        faces.corners.push_back(corner);
    }
    faces.sizes = {3, 3};
    EXPECT_TRUE(sendsFaces(buildPrimitives(faces, {}), faces, 0));
}

TEST(PrimitiveBuilding, WithoutStripsThereAreTwoListsInFaceOrder) {
    RandomFaces settings;
    settings.faces = 300;
    settings.matrices = 5;
    const FaceList faces = makeRandomFaces(settings);
    PrimitiveOptions options;
    options.makeStrips = false;
    const PolygonPrimitives polygon = buildPrimitives(faces, options);
    ASSERT_EQ(polygon.groups.size(), 1u);
    ASSERT_EQ(polygon.groups[0].primitives.size(), 2u);
    EXPECT_EQ(polygon.groups[0].primitives[0].type, PrimitiveType::kQuads);
    EXPECT_EQ(polygon.groups[0].primitives[1].type, PrimitiveType::kTriangles);
    std::vector<Corner> quads;
    std::vector<Corner> triangles;
    for (const FaceCorners& face : facesOf(faces)) {
        std::vector<Corner>& list = face.size() == 4 ? quads : triangles;
        list.insert(list.end(), face.begin(), face.end());
    }
    EXPECT_EQ(polygon.groups[0].primitives[0].vertices, quads);
    EXPECT_EQ(polygon.groups[0].primitives[1].vertices, triangles);
}

TEST(PrimitiveBuilding, SmoothGridSendsFewerThanSixTenths) {
    const FaceList faces = makeGrid(100);
    const PolygonPrimitives polygon = buildPrimitives(faces, {});
    EXPECT_LT(static_cast<double>(verticesOf(polygon)), 0.6 * 4 * 100 * 100);
    EXPECT_TRUE(sendsFaces(polygon, faces, 0));
}

TEST(PrimitiveBuilding, GridOfQuadsIsAsManyStripsAsRows) {
    // Each strip of 20 quads sends 42 vertices.
    PrimitiveOptions options;
    options.effort = StripEffort::kThorough;
    EXPECT_EQ(verticesOf(buildPrimitives(makeGrid(20), options)), 20 * 42);
}

TEST(PrimitiveBuilding, ClosedCubeOfSharedCornersTakesItsThreeFourFaceBelt) {
    // Six quads: one belt of four is 10 vertices, and two lids are 4 each; two strips of three are 8 each.
    FaceList faces;
    for (const int32_t position : {0, 1, 3, 2, 4, 6, 7, 5, 0, 4, 5, 1, 1, 5, 7, 3, 3, 7, 6, 2, 2, 6, 4, 0}) {
        Corner corner;
        corner.position = position;
        faces.corners.push_back(corner);
    }
    faces.sizes.assign(6, 4);
    const PolygonPrimitives polygon = buildPrimitives(faces, {});
    EXPECT_EQ(verticesOf(polygon), 16);
    EXPECT_TRUE(sendsFaces(polygon, faces, 0));
}

TEST(PrimitiveBuilding, HardEdgesKeepFacesApart) {
    FaceList faces = makeGrid(10);
    for (std::size_t i = 0; i < faces.corners.size(); ++i)
        faces.corners[i].normal = static_cast<int32_t>(i / 4);
    const PolygonPrimitives polygon = buildPrimitives(faces, {});
    ASSERT_EQ(polygon.groups[0].primitives.size(), 1u);
    EXPECT_EQ(polygon.groups[0].primitives[0].type, PrimitiveType::kQuads);
}

TEST(PrimitiveBuilding, SplittingIsDoneOnlyWhereItSavesVertices) {
    // A quad between two triangles: 4 + 3 + 3 vertices, or one strip of four triangles with 6.
    FaceList faces;
    for (const int32_t position : {0, 1, 2, 3, 1, 0, 4, 3, 2, 5}) {
        Corner corner;
        corner.position = position;
        faces.corners.push_back(corner);
    }
    faces.sizes = {4, 3, 3};
    const PolygonPrimitives whole = buildPrimitives(faces, withSplits(0));
    EXPECT_EQ(verticesOf(whole), 10);
    EXPECT_EQ(whole.groups[0].quadCount, 1);
    const PolygonPrimitives split = buildPrimitives(faces, withSplits(1));
    EXPECT_EQ(verticesOf(split), 6);
    EXPECT_EQ(split.groups[0].quadCount, 0);
    EXPECT_EQ(split.groups[0].triangleCount, 4);
    EXPECT_TRUE(sendsFaces(split, faces, 1));

    const FaceList grid = makeGrid(6);
    EXPECT_EQ(buildPrimitives(grid, withSplits(kAll)).groups[0].quadCount, 36);
}

TEST(PrimitiveBuilding, QuadsMaySplitAsLongAsTheModelFitsIntoPolygonMemory) {
    struct Case {
        int64_t triangles;
        int64_t quads;
        int64_t expected;
    };
    // Each split takes 2 * 20 - 24 = 16 of the 40960.
    for (const Case& c : {Case{0, 0, 2560}, Case{2048, 0, 0}, Case{2047, 0, 1}, Case{0, 1706, 1}, Case{0, 1000, 1060},
                          Case{5000, 5000, 0}})
        EXPECT_EQ(quadsThatMaySplit(c.triangles, c.quads), c.expected) << c.triangles << ' ' << c.quads;
}

TEST(PrimitiveBuilding, ModelsThatTheConsoleCanShowGetTheThoroughEffort) {
    EXPECT_EQ(stripEffortFor(0), StripEffort::kThorough);
    EXPECT_EQ(stripEffortFor(4095), StripEffort::kThorough);
    EXPECT_EQ(stripEffortFor(4096), StripEffort::kStandard);
}

TEST(PrimitiveBuilding, ProgressRisesToOne) {
    RandomFaces settings;
    settings.faces = 2000;
    settings.matrices = 60;
    std::vector<double> strips;
    std::vector<double> groups;
    PrimitiveOptions options;
    options.progress = [&](PrimitiveStep step, double done) {
        (step == PrimitiveStep::kMakeStrips ? strips : groups).push_back(done);
    };
    buildPrimitives(makeRandomFaces(settings), options);
    for (const std::vector<double>& told : {strips, groups}) {
        ASSERT_FALSE(told.empty());
        EXPECT_TRUE(std::is_sorted(told.begin(), told.end()));
        EXPECT_GE(told.front(), 0);
        EXPECT_DOUBLE_EQ(told.back(), 1);
    }
}

TEST(PrimitiveBuilding, ListsBeginWithTheCurrentMatrix) {
    // Three lone triangles over the matrices 1 2, 1 2 and 2 3.
    FaceList faces;
    const std::vector<int32_t> matrices{1, 2, 1, 1, 1, 2, 3, 2, 3};
    for (std::size_t i = 0; i < matrices.size(); ++i) {
        Corner corner;
        corner.position = static_cast<int32_t>(i);
        corner.matrix = matrices[i];
        faces.corners.push_back(corner);
    }
    faces.sizes = {3, 3, 3};
    const PolygonPrimitives polygon = buildPrimitives(faces, {});
    std::vector<int32_t> sent;
    for (const Corner& corner : polygon.groups[0].primitives[0].vertices)
        sent.push_back(corner.matrix);
    EXPECT_EQ(sent, (std::vector<int32_t>{1, 2, 1, 1, 1, 2, 2, 3, 3}));
    EXPECT_TRUE(polygon.usesMatrixCommands);
}

struct Kind {
    const char* name;
    double quads;
    double large;
    double seams;
    int32_t matrices;
    double stray;
    bool isClosed;
    bool isMirrored;
    bool isShuffled;
};

constexpr Kind kKinds[] = {
    {"triangles", 0, 0, 0, 1, 0, false, false, false},   {"quads", 1, 0, 0.02, 1, 0, true, false, true},
    {"mixed", 0.5, 0.2, 0.1, 1, 0, false, true, false},  {"mixedShuffled", 0.7, 0, 0.05, 3, 0, true, true, true},
    {"large", 0.3, 0.8, 0, 12, 0.1, false, false, true}, {"allSeams", 0.5, 0.1, 1, 1, 0, false, false, false},
    {"skin", 0.6, 0, 0.05, 100, 0, false, false, false}, {"straySkin", 0.5, 0.1, 0.05, 60, 0.3, false, true, true},
    {"wildSkin", 0.3, 0, 0, 400, 1, true, false, true},
};

class RandomPrimitives : public testing::TestWithParam<Kind> {
protected:
    static FaceList make(int32_t faces, uint32_t seed) {
        RandomFaces settings;
        settings.faces = faces;
        settings.quadShare = GetParam().quads;
        settings.largeShare = GetParam().large;
        settings.seamShare = GetParam().seams;
        settings.matrices = GetParam().matrices;
        settings.strayMatrices = GetParam().stray;
        settings.isClosed = GetParam().isClosed;
        settings.isMirrored = GetParam().isMirrored;
        settings.isShuffled = GetParam().isShuffled;
        settings.seed = seed;
        return makeRandomFaces(settings);
    }
};

TEST_P(RandomPrimitives, SendEveryFaceOnceWithItsWinding) {
    for (const int32_t size : {1, 2, 3, 5, 10, 30, 100, 1000, 10000}) {
        // Matrices at random need hundreds of groups.
        if (size > 1000 && GetParam().stray > 0.2)
            continue;
        for (uint32_t seed = 0; seed < (size > 100 ? 1u : 8u); ++seed) {
            const FaceList faces = make(size, seed);
            if (faces.sizes.empty())
                continue;
            for (const int64_t splits : {int64_t{0}, int64_t{5}, kAll}) {
                if (size > 100 && splits == 5)
                    continue;
                const PolygonPrimitives polygon = buildPrimitives(faces, withSplits(splits));
                ASSERT_TRUE(isWellFormed(polygon)) << size << " faces, seed " << seed << ", splits " << splits;
                ASSERT_TRUE(sendsFaces(polygon, faces, splits)) << size << " faces, seed " << seed << ' ' << splits;
            }
        }
    }
}

TEST_P(RandomPrimitives, SendEveryFaceOnceWithoutStrips) {
    PrimitiveOptions options;
    options.makeStrips = false;
    for (const int32_t size : {1, 7, 100, 1000}) {
        const FaceList faces = make(size, 3);
        const PolygonPrimitives polygon = buildPrimitives(faces, options);
        ASSERT_TRUE(isWellFormed(polygon)) << size;
        ASSERT_TRUE(sendsFaces(polygon, faces, 0)) << size;
        EXPECT_EQ(facesSent(polygon, PrimitiveType::kTriangleStrip) + facesSent(polygon, PrimitiveType::kQuadStrip), 0);
    }
}

TEST_P(RandomPrimitives, StripsNeverSendMoreThanLists) {
    for (const int32_t size : {5, 50, 1000}) {
        const FaceList faces = make(size, 7);
        EXPECT_LE(verticesOf(buildPrimitives(faces, {})), static_cast<int64_t>(faces.corners.size())) << size;
    }
}

TEST_P(RandomPrimitives, MoreSplitsNeverSendMoreVertices) {
    const FaceList faces = make(400, 11);
    int64_t before = std::numeric_limits<int64_t>::max();
    for (const int64_t splits : {int64_t{0}, int64_t{20}, kAll}) {
        const int64_t vertices = verticesOf(buildPrimitives(faces, withSplits(splits)));
        EXPECT_LE(vertices, before) << splits;
        before = vertices;
    }
}

TEST_P(RandomPrimitives, ThoroughEffortKeepsThePromises) {
    PrimitiveOptions options = withSplits(kAll);
    options.effort = StripEffort::kThorough;
    const FaceList faces = make(300, 5);
    const PolygonPrimitives polygon = buildPrimitives(faces, options);
    EXPECT_TRUE(isWellFormed(polygon));
    EXPECT_TRUE(sendsFaces(polygon, faces, kAll));
    options.effort = StripEffort::kStandard;
    EXPECT_LE(verticesOf(polygon), verticesOf(buildPrimitives(faces, options)));
}

TEST_P(RandomPrimitives, AreTheSameTheSecondTime) {
    const FaceList faces = make(500, 9);
    EXPECT_EQ(flatten(buildPrimitives(faces, withSplits(kAll))), flatten(buildPrimitives(faces, withSplits(kAll))));
}

INSTANTIATE_TEST_SUITE_P(Kinds, RandomPrimitives, testing::ValuesIn(kKinds),
                         [](const testing::TestParamInfo<Kind>& kind) { return kind.param.name; });

} // namespace
} // namespace tvk::test
