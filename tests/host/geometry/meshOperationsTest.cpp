#include "TestMeshes.h"

#include "host/geometry/deleteParts.h"
#include "host/geometry/detachment.h"
#include "host/geometry/extrusion.h"
#include "host/geometry/faceOrder.h"
#include "host/geometry/mergeVertices.h"
#include "host/geometry/meshEdits.h"
#include "host/geometry/quadrangulation.h"
#include "host/geometry/subdivision.h"
#include "host/geometry/triangulation.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <iterator>
#include <limits>
#include <random>
#include <string>

// What every operation on meshes must stand: edges of many faces, faces on top of each other, faces that pass a vertex
// or an edge twice, points that are no numbers.

namespace host {

namespace {

using Imath::V2f;
using Imath::V3f;
using Imath::V4f;

using Ids = std::vector<std::int32_t>;

struct Operation {
    const char* name;
    std::shared_ptr<MeshData> (*run)(const MeshData& mesh, const std::vector<bool>& faces, std::mt19937& random);
};

std::vector<bool> some(std::int32_t count, std::mt19937& random) {
    std::vector<bool> chosen(static_cast<std::size_t>(count));
    for (std::size_t i = 0; i < chosen.size(); ++i) {
        chosen[i] = random() % 2 == 0;
    }
    return chosen;
}

const Operation kOperations[] = {
    {"keepFaces", [](const MeshData& mesh, const auto& faces, std::mt19937&) { return keepFaces(mesh, faces); }},
    {"reverseFaces",
     [](const MeshData& mesh, const auto& faces, std::mt19937&) { return reverseFaces(mesh, faces, true); }},
    {"conformFaces",
     [](const MeshData& mesh, const auto& faces, std::mt19937&) {
         return reverseFaces(mesh, facesToReverse(*mesh.topology, faces, WindingRule::kAsMost), true);
     }},
    {"triangulateFaces",
     [](const MeshData& mesh, const auto& faces, std::mt19937&) { return triangulateFaces(mesh, faces); }},
    {"quadrangulateFaces",
     [](const MeshData& mesh, const auto& faces, std::mt19937&) {
         QuadRules rules;
         rules.angle = 3.2;
         rules.keepsHardEdges = rules.keepsUvBorders = rules.keepsGroupBorders = false;
         return quadrangulateFaces(mesh, faces, rules);
     }},
    {"subdivideFaces",
     [](const MeshData& mesh, const auto& faces, std::mt19937&) { return subdivideFaces(mesh, faces, 2); }},
    {"smoothFaces", [](const MeshData& mesh, const auto&, std::mt19937&) { return smoothFaces(mesh, 2, {}); }},
    {"detachFaces", [](const MeshData& mesh, const auto& faces,
                       std::mt19937& random) { return detachFaces(mesh, faces, random() % 2 == 0); }},
    {"duplicateFaces", [](const MeshData& mesh, const auto& faces,
                          std::mt19937& random) { return duplicateFaces(mesh, faces, random() % 2 == 0); }},
    {"mergeVertices",
     [](const MeshData& mesh, const auto&, std::mt19937& random) {
         return mergeVertices(mesh, some(mesh.topology->vertexCount(), random), 0.4, {});
     }},
    {"deleteEdges",
     [](const MeshData& mesh, const auto&, std::mt19937& random) {
         return deleteEdges(mesh, some(mesh.topology->edgeCount(), random), random() % 2 == 0).mesh;
     }},
    {"deleteVertices",
     [](const MeshData& mesh, const auto&, std::mt19937& random) {
         return deleteVertices(mesh, some(mesh.topology->vertexCount(), random)).mesh;
     }},
    {"extrudeFaces",
     [](const MeshData& mesh, const auto& faces, std::mt19937& random) {
         Extrusion how;
         how.together = random() % 2 == 0;
         how.along = 1;
         how.offset = 0.1;
         return extrudeFaces(mesh, faces, how).mesh;
     }},
};

/// A heap of faces over few vertices, with UVs, colours, user normals and groups.
std::shared_ptr<MeshData> heapOfFaces(std::mt19937& random) {
    const auto vertexCount = static_cast<std::int32_t>(3 + random() % 8);
    Points points;
    for (std::int32_t i = 0; i < vertexCount; ++i) {
        const auto number = [&] {
            return random() % 40 == 0 ? std::numeric_limits<float>::quiet_NaN() : static_cast<float>(random() % 3);
        };
        points.emplace_back(number(), number(), number());
    }
    std::vector<Ids> faces(random() % 12);
    for (Ids& face : faces) {
        face.resize(3 + random() % 4);
        for (std::int32_t& vertex : face) {
            vertex = static_cast<std::int32_t>(random() % static_cast<std::uint32_t>(vertexCount));
        }
    }
    const auto mesh = meshOfFaces(points, faces);
    UvSet uvs;
    ColorSet colors;
    auto uvIds = std::make_shared<FaceIds>();
    auto colorIds = std::make_shared<FaceIds>();
    for (std::int32_t face = 0; face < mesh->topology->faceCount(); ++face) {
        if (random() % 3 == 0) {
            continue;
        }
        for (std::int32_t k = 0; k < mesh->topology->cornerCount(face); ++k) {
            uvIds->ids.push_back(static_cast<std::int32_t>(random() % 5));
            colorIds->ids.push_back(static_cast<std::int32_t>(random() % 3) - 1);
        }
        for (FaceIds* ids : {uvIds.get(), colorIds.get()}) {
            ids->faces.push_back(face);
            ids->starts.push_back(static_cast<std::int32_t>(ids->ids.size()));
        }
    }
    uvs.points = std::make_shared<std::vector<V2f>>(5, V2f(0.5F));
    uvs.ids = uvIds;
    colors.colors = std::make_shared<std::vector<V4f>>(2, V4f(1));
    colors.ids = colorIds;
    mesh->uvSets = {uvs};
    mesh->colorSets = {colors};
    mesh->userNormals =
        std::make_shared<Points>(static_cast<std::size_t>(mesh->topology->normalFans().count), V3f(0, 1, 0));
    std::vector<ComponentRange> ranges(3);
    EXPECT_TRUE(parseComponent("f[1:4]", ranges[0]) && parseComponent("e[2:9]", ranges[1]) &&
                parseComponent("vtx[*]", ranges[2]));
    mesh->groups = {{1, std::make_shared<const ComponentList>(ranges)}};
    return mesh;
}

void expectIdsFit(const FaceIds& ids, const MeshTopology& topology, std::size_t count, std::int32_t lowest) {
    ASSERT_EQ(ids.starts.size(), ids.faces.size() + 1);
    for (std::size_t i = 0; i < ids.faces.size(); ++i) {
        ASSERT_LT(ids.faces[i], topology.faceCount());
        EXPECT_EQ(ids.starts[i + 1] - ids.starts[i], topology.cornerCount(ids.faces[i]));
    }
    for (const std::int32_t id : ids.ids) {
        EXPECT_GE(id, lowest);
        EXPECT_LT(id, static_cast<std::int32_t>(count));
    }
}

/// The topology again from its own parts: whatever does not fit together is found then.
void expectWhole(const MeshData& mesh) {
    std::string problem;
    const auto again =
        MeshTopology::make(mesh.topology->vertexCount(), mesh.topology->edges(), mesh.topology->faces(), problem);
    EXPECT_EQ(problem, "");
    EXPECT_EQ(mesh.points->size(), static_cast<std::size_t>(mesh.topology->vertexCount()));
    EXPECT_EQ(again->faceCount(), mesh.topology->faceCount());
    for (const UvSet& set : mesh.uvSets) {
        expectIdsFit(*set.ids, *mesh.topology, set.points->size(), 0);
    }
    for (const ColorSet& set : mesh.colorSets) {
        expectIdsFit(*set.ids, *mesh.topology, set.colors->size(), -1);
    }
    if (mesh.userNormals != nullptr) {
        EXPECT_EQ(mesh.userNormals->size(), static_cast<std::size_t>(mesh.topology->normalFans().count));
    }
    EXPECT_EQ(mesh.normals().size(), static_cast<std::size_t>(mesh.topology->normalFans().count));
}

class EveryOperation : public testing::TestWithParam<Operation> {};

TEST_P(EveryOperation, MakesWholeMeshesOfHeapsOfFaces) {
    std::mt19937 random(20);
    for (int round = 0; round < 400 && !HasFailure(); ++round) {
        const auto mesh = heapOfFaces(random);
        const auto made = GetParam().run(*mesh, some(mesh->topology->faceCount(), random), random);
        SCOPED_TRACE(round);
        expectWhole(*made);
    }
}

TEST_P(EveryOperation, GoesOnFromWhatOthersMade) {
    std::mt19937 random(21);
    for (int round = 0; round < 100 && !HasFailure(); ++round) {
        auto mesh = heapOfFaces(random);
        const Operation& before = kOperations[random() % std::size(kOperations)];
        mesh = before.run(*mesh, some(mesh->topology->faceCount(), random), random);
        const auto made = GetParam().run(*mesh, some(mesh->topology->faceCount(), random), random);
        SCOPED_TRACE(before.name);
        expectWhole(*made);
    }
}

INSTANTIATE_TEST_SUITE_P(Of, EveryOperation, testing::ValuesIn(kOperations),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace

} // namespace host
