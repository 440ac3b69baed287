// Whatever a file says, a mesh comes out that everything else can walk through.

#include "TestMeshes.h"

#include "host/geometry/checkIds.h"
#include "host/geometry/meshEdits.h"
#include "host/geometry/meshNormals.h"
#include "host/geometry/triangulation.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

namespace host {

namespace {

class Chance {
public:
    explicit Chance(unsigned seed) : engine_(seed) {}
    std::int32_t below(std::int32_t end) { return std::uniform_int_distribution<std::int32_t>(0, end - 1)(engine_); }
    bool oneIn(std::int32_t count) { return below(count) == 0; }
    /// Mostly an index, sometimes what is none.
    std::int32_t index(std::int32_t count) {
        constexpr std::int32_t kStrange[] = {-1, -2, std::numeric_limits<std::int32_t>::min(),
                                             std::numeric_limits<std::int32_t>::max(), 1000000};
        return oneIn(200) ? kStrange[below(5)] : below(count);
    }
    float number() {
        const float kStrange[] = {NAN, INFINITY, -INFINITY, 1e38F, 0.0F};
        return oneIn(30) ? kStrange[below(5)] : static_cast<float>(below(20)) - 10.0F;
    }

private:
    std::mt19937 engine_;
};

/// Faces around random vertices, so that most loops close.
std::shared_ptr<MeshData> randomMesh(Chance& chance) {
    const std::int32_t vertices = 3 + chance.below(12);
    std::vector<MeshEdge> edges;
    auto faces = std::make_shared<PolyFaces>();
    auto ids = std::make_shared<FaceIds>();
    for (std::int32_t face = chance.below(12); face > 0; --face) {
        const std::int32_t corners = 3 + chance.below(5);
        std::int32_t vertex = chance.below(vertices);
        const std::int32_t start = vertex;
        for (std::int32_t i = 0; i < corners; ++i) {
            const std::int32_t next = i + 1 == corners ? start : chance.index(vertices);
            edges.push_back({vertex, next, chance.oneIn(2)});
            const auto edge = static_cast<std::int32_t>(edges.size()) - 1;
            faces->edges.push_back(chance.oneIn(300) ? chance.index(edge + 1) : edge);
            vertex = next;
            ids->ids.push_back(chance.index(8));
        }
        faces->loopStarts.push_back(static_cast<std::int32_t>(faces->edges.size()));
        if (!chance.oneIn(8) || face == 1) { // else the next loop is a hole in this face
            faces->faceStarts.push_back(static_cast<std::int32_t>(faces->loopStarts.size()) - 1);
            ids->faces.push_back(faces->faceCount() - 1);
            ids->starts.push_back(static_cast<std::int32_t>(ids->ids.size()));
        }
    }
    auto mesh = std::make_shared<MeshData>();
    std::string problem;
    mesh->topology = MeshTopology::make(vertices, std::move(edges), std::move(faces), problem);
    auto points = std::make_shared<Points>(static_cast<std::size_t>(mesh->topology->vertexCount()));
    for (Imath::V3f& point : *points) {
        point = {chance.number(), chance.number(), chance.number()};
    }
    mesh->points = std::move(points);
    UvSet set;
    set.points = std::make_shared<std::vector<Imath::V2f>>(8);
    set.ids = checkedIds(std::move(ids), *mesh->topology, 8, 0, problem);
    mesh->uvSets.push_back(std::move(set));
    return mesh;
}

/// Walks through all that can be asked.
void expectWhole(const MeshData& mesh) {
    const MeshTopology& topology = *mesh.topology;
    const NormalFans& fans = topology.normalFans();
    ASSERT_EQ(fans.ofCorner.size(), static_cast<std::size_t>(topology.cornerCount()));
    ASSERT_EQ(mesh.normals().size(), static_cast<std::size_t>(fans.count));
    for (const Imath::V3f& normal : mesh.normals()) {
        EXPECT_TRUE(normal == Imath::V3f(0.0F) || std::abs(normal.length() - 1.0F) < 1e-4F) << normal;
    }
    for (std::int32_t corner = 0; corner < topology.cornerCount(); ++corner) {
        const std::int32_t vertex = topology.cornerVertices()[static_cast<std::size_t>(corner)];
        ASSERT_TRUE(vertex >= 0 && vertex < topology.vertexCount());
    }
    for (std::int32_t vertex = 0; vertex < topology.vertexCount(); ++vertex) {
        vertexNormal(mesh, vertex, NormalWeighting::kAngle);
    }
    EXPECT_EQ(topology.cornersOfVertex().items.size(), fans.ofCorner.size());
    EXPECT_EQ(topology.facesOfEdge().items.size(), fans.ofCorner.size());
    for (const std::int32_t id : mesh.uvSets.at(0).ids->ids) {
        ASSERT_TRUE(id >= 0 && static_cast<std::size_t>(id) < mesh.uvSets[0].points->size());
    }
}

TEST(BrokenMeshes, CanBeWalkedThroughAndEdited) {
    std::int32_t faces = 0;
    for (unsigned seed = 0; seed < 3000; ++seed) {
        SCOPED_TRACE(seed);
        Chance chance(seed);
        const auto mesh = randomMesh(chance);
        expectWhole(*mesh);
        faces += mesh->topology->faceCount();
        std::vector<bool> chosen(static_cast<std::size_t>(mesh->topology->faceCount()));
        for (std::size_t i = 0; i < chosen.size(); ++i) {
            chosen[i] = chance.oneIn(2);
        }
        const std::vector<bool> edges(static_cast<std::size_t>(mesh->topology->edgeCount()), true);
        expectWhole(*keepFaces(*mesh, chosen));
        expectWhole(*reverseFaces(*mesh, chosen, true));
        expectWhole(*softenEdges(*mesh, edges, 0.5, {}));
        expectWhole(*triangulateFaces(*mesh, chosen));
        expectWhole(*uniteMeshes({{mesh, {}}, {mesh, {}}}));
        if (testing::Test::HasFailure()) {
            break;
        }
    }
    EXPECT_GT(faces, 3000); // most of what was made is still there
}

} // namespace

} // namespace host
