// Meshes of real scenes against what the real host evaluated, asserted or stored.

#include "host/geometry/meshComponents.h"
#include "host/geometry/meshNormals.h"
#include "host/nodes/meshQueries.h"
#include "host/scene/Scene.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace host {

namespace {

using nlohmann::json;

struct Folder {
    std::string name, scene;
    std::vector<json> checks;
};

std::vector<Folder> folders() {
    std::vector<Folder> found;
    for (const auto& entry : std::filesystem::directory_iterator(std::string(TVK_TEST_DATA) + "/scenes")) {
        Folder folder;
        folder.name = entry.path().filename().string();
        std::ifstream expected(entry.path() / "expected.json");
        if (!expected) {
            continue;
        }
        folder.checks = json::parse(expected)["checks"].get<std::vector<json>>();
        for (const auto& file : std::filesystem::directory_iterator(entry.path())) {
            folder.scene = file.path().extension() == ".ma" ? file.path().string() : folder.scene;
        }
        found.push_back(std::move(folder));
    }
    std::sort(found.begin(), found.end(), [](const Folder& a, const Folder& b) { return a.name < b.name; });
    return found;
}

void PrintTo(const Folder& folder, std::ostream* out) {
    *out << folder.name;
}

bool isNear(double actual, double expected, double tolerance) {
    // Recorded numbers have nine significant digits, and their tolerance leaves this out.
    return std::abs(actual - expected) <= tolerance + 5e-9 * std::abs(expected);
}

/// Whether the rows are the same up to their order.
::testing::AssertionResult areSameRows(std::vector<std::vector<double>> actual,
                                       std::vector<std::vector<double>> expected, double tolerance) {
    if (actual.size() != expected.size()) {
        return ::testing::AssertionFailure() << actual.size() << " rows instead of " << expected.size();
    }
    for (const std::vector<double>& row : expected) {
        const auto found = std::find_if(actual.begin(), actual.end(), [&](const std::vector<double>& each) {
            return std::equal(row.begin(), row.end(), each.begin(), each.end(),
                              [&](double wanted, double got) { return isNear(got, wanted, tolerance); });
        });
        if (found == actual.end()) {
            return ::testing::AssertionFailure() << "no row " << ::testing::PrintToString(row);
        }
        actual.erase(found);
    }
    return ::testing::AssertionSuccess();
}

std::vector<std::vector<double>> rowsOf(const json& value) {
    return value.get<std::vector<std::vector<double>>>();
}

/// Distinct at the four decimals that the origin wrote.
std::vector<std::vector<double>> distinct(const std::vector<std::vector<double>>& rows) {
    std::map<std::vector<long>, std::vector<double>> kept;
    for (const std::vector<double>& row : rows) {
        std::vector<long> key;
        std::transform(row.begin(), row.end(), std::back_inserter(key),
                       [](double number) { return std::lround(number * 1e4); });
        kept.emplace(key, row);
    }
    std::vector<std::vector<double>> result;
    for (const auto& [key, row] : kept) {
        result.push_back(row);
    }
    return result;
}

class RealMeshes : public testing::TestWithParam<Folder> {
protected:
    void SetUp() override {
        scene.onWarning = [this](const std::string& line) { warnings.push_back(line); };
        ASSERT_TRUE(scene.open(GetParam().scene).ok());
        warnings.clear();
    }

    Node* shapeOf(const std::string& path) {
        const std::string prefix = "|world";
        const NodeMatch match = scene.find(
            path.compare(0, prefix.size() + 1, prefix + "|") == 0 && !scene.find(path).ok() ? path.substr(prefix.size())
                                                                                            : path);
        EXPECT_TRUE(match.ok()) << path;
        return match.node;
    }

    /// The mesh that a check is about, at its time.
    MeshPtr meshOfCheck(const json& check) {
        const auto time = check.find("time");
        if (time != check.end() && time->is_number()) {
            scene.setCurrentFrame(time->get<double>());
        }
        Node* shape = shapeOf(check["shape"]);
        return shape != nullptr ? evaluatedMesh(scene.graph(), *shape) : std::make_shared<MeshData>();
    }

    /// Runs a comparison for every check of a kind.
    void forChecks(const std::string& what, const std::function<void(const json&, const MeshData&)>& compare) {
        for (const json& check : GetParam().checks) {
            if (check["what"] == what) {
                SCOPED_TRACE(check["shape"].get<std::string>() + " " + check.value("set", ""));
                compare(check, *meshOfCheck(check));
            }
        }
    }

    Scene scene;
    std::vector<std::string> warnings;
};

// All that scenes of real users store must be sound to us too.
TEST_P(RealMeshes, EvaluateWithoutComplaints) {
    for (Node* node : scene.graph().nodes()) {
        if (node->type().isKindOf("mesh")) {
            const MeshPtr mesh = evaluatedMesh(scene.graph(), *node);
            EXPECT_GT(mesh->topology->faceCount(), 0) << node->name();
            EXPECT_EQ(mesh->points->size(), static_cast<std::size_t>(mesh->topology->vertexCount()));
            EXPECT_EQ(mesh->normals().size(), static_cast<std::size_t>(mesh->topology->normalFans().count));
        }
    }
    EXPECT_THAT(warnings, testing::IsEmpty());
}

TEST_P(RealMeshes, HaveThePointsExpected) {
    forChecks("points", [](const json& check, const MeshData& mesh) {
        const auto expected = rowsOf(check["value"]);
        ASSERT_EQ(mesh.points->size(), expected.size());
        for (std::size_t i = 0; i < expected.size(); ++i) {
            for (unsigned axis = 0; axis < 3; ++axis) {
                EXPECT_TRUE(isNear((*mesh.points)[i][axis], expected[i][axis], check["tol"].get<double>()))
                    << check["time"] << ": point " << i << " " << (*mesh.points)[i];
            }
        }
    });
}

TEST_P(RealMeshes, HaveTheCountsExpected) {
    forChecks("mesh", [](const json& check, const MeshData& mesh) {
        EXPECT_EQ(mesh.topology->vertexCount(), check["vertices"].get<int>());
        EXPECT_EQ(mesh.topology->faceCount(), check["faces"].get<int>());
        EXPECT_EQ(mesh.uvSets.at(0).points->size(), check.value("uvCount", mesh.uvSets.at(0).points->size()));
    });
}

TEST_P(RealMeshes, HaveTheExtentsPointsCoordinatesAndNormalsExpected) {
    forChecks("evaluatedMesh", [](const json& check, const MeshData& mesh) {
        std::vector<std::vector<double>> points;
        std::vector<std::vector<double>> uvs;
        std::vector<std::vector<double>> normals;
        int triangles = 0;
        const UvSet& set = *mesh.findUvSet("");
        for (std::int32_t face = 0; face < mesh.topology->faceCount(); ++face) {
            triangles += mesh.topology->cornerCount(face) - 2;
            std::int32_t count = 0;
            const std::int32_t* ids = set.ids->find(face, count);
            for (std::int32_t corner = 0; corner < mesh.topology->cornerCount(face); ++corner) {
                const auto at = static_cast<std::size_t>(mesh.topology->firstCorner(face) + corner);
                const auto& p = (*mesh.points)[static_cast<std::size_t>(mesh.topology->cornerVertices()[at])];
                const auto& n = mesh.normals()[static_cast<std::size_t>(mesh.topology->normalFans().ofCorner[at])];
                points.push_back({p.x, p.y, p.z});
                normals.push_back({p.x, p.y, p.z, n.x, n.y, n.z});
                const auto& uv = (*set.points)[static_cast<std::size_t>(ids[corner])];
                uvs.push_back({uv.x, uv.y});
            }
        }
        const double tolerance = check["tol"].get<double>();
        EXPECT_EQ(triangles, check["triangles"].get<int>());
        EXPECT_EQ(distinct(points).size(), check["distinctPoints"].get<std::size_t>());
        EXPECT_EQ(distinct(uvs).size(), check["distinctUVs"].get<std::size_t>());
        for (unsigned axis = 0; axis < 3; ++axis) {
            const auto [low, high] = std::minmax_element(
                points.begin(), points.end(), [axis](const auto& a, const auto& b) { return a[axis] < b[axis]; });
            EXPECT_TRUE(isNear((*low)[axis], check["min"][axis].get<double>(), tolerance));
            EXPECT_TRUE(isNear((*high)[axis], check["max"][axis].get<double>(), tolerance));
        }
        if (check.contains("points")) {
            EXPECT_TRUE(areSameRows(distinct(points), rowsOf(check["points"]), tolerance));
            EXPECT_TRUE(areSameRows(distinct(uvs), rowsOf(check["uvs"]), tolerance));
        }
        if (check.contains("cornerNormals")) {
            EXPECT_TRUE(areSameRows(distinct(normals), rowsOf(check["cornerNormals"]), tolerance));
        }
    });
}

/// What the faces of a mesh have in a set, as the checks write it: per face a row per corner, or null.
json valuesByFace(const MeshData& mesh, const FaceIds& ids, const std::function<json(std::int32_t)>& valueOf,
                  bool unmappedIsNull) {
    json faces = json::array();
    for (std::int32_t face = 0; face < mesh.topology->faceCount(); ++face) {
        std::int32_t count = 0;
        const std::int32_t* list = ids.find(face, count);
        json corners = json::array();
        for (std::int32_t i = 0; i < mesh.topology->cornerCount(face); ++i) {
            corners.push_back(list != nullptr && list[i] >= 0 ? valueOf(list[i]) : json());
        }
        faces.push_back(list == nullptr && unmappedIsNull ? json() : corners);
    }
    return faces;
}

::testing::AssertionResult isNearJson(const json& actual, const json& expected, double tolerance) {
    if (expected.is_number() && actual.is_number()) {
        return isNear(actual.get<double>(), expected.get<double>(), tolerance)
                   ? ::testing::AssertionSuccess()
                   : ::testing::AssertionFailure() << actual << " instead of " << expected;
    }
    if (!expected.is_array() || !actual.is_array() || expected.size() != actual.size()) {
        return expected == actual ? ::testing::AssertionSuccess()
                                  : ::testing::AssertionFailure() << actual << " instead of " << expected;
    }
    for (std::size_t i = 0; i < expected.size(); ++i) {
        if (auto result = isNearJson(actual[i], expected[i], tolerance); !result) {
            return result << " at " << i;
        }
    }
    return ::testing::AssertionSuccess();
}

TEST_P(RealMeshes, HaveTheTextureCoordinatesExpected) {
    const auto uvOf = [](const UvSet& set) {
        return [&set](std::int32_t id) {
            const auto& uv = (*set.points)[static_cast<std::size_t>(id)];
            return json{uv.x, uv.y};
        };
    };
    forChecks("uvPerFaceVertex", [&](const json& check, const MeshData& mesh) {
        const UvSet* set = mesh.findUvSet(check["set"].get<std::string>());
        ASSERT_NE(set, nullptr);
        EXPECT_TRUE(isNearJson(valuesByFace(mesh, *set->ids, uvOf(*set), true), check["value"], check["tol"]));
    });
    forChecks("uvFaceVertex", [&](const json& check, const MeshData& mesh) {
        const UvSet* set = mesh.findUvSet(check["set"].get<std::string>());
        ASSERT_NE(set, nullptr);
        std::int32_t count = 0;
        const std::int32_t* ids = set->ids->find(check["face"], count);
        ASSERT_NE(ids, nullptr);
        EXPECT_TRUE(isNearJson(uvOf(*set)(ids[check["corner"].get<std::size_t>()]), check["value"], check["tol"]));
    });
    forChecks("uvCount", [&](const json& check, const MeshData& mesh) {
        EXPECT_EQ(mesh.findUvSet(check["set"].get<std::string>())->points->size(), check["value"].get<std::size_t>());
    });
    forChecks("uvSetNames", [&](const json& check, const MeshData& mesh) {
        std::vector<std::string> names;
        for (const UvSet& set : mesh.uvSets) {
            names.push_back(set.name);
        }
        EXPECT_EQ(names, check["value"].get<std::vector<std::string>>());
    });
}

TEST_P(RealMeshes, HaveTheColoursExpected) {
    const std::map<std::string, ColorRepresentation> kRepresentations = {{"Alpha", ColorRepresentation::kAlpha},
                                                                         {"RGB", ColorRepresentation::kRgb},
                                                                         {"RGBA", ColorRepresentation::kRgba}};
    forChecks("colorsPerFaceVertex", [&](const json& check, const MeshData& mesh) {
        const ColorSet* set = mesh.findColorSet(check["set"].get<std::string>());
        ASSERT_NE(set, nullptr);
        ASSERT_EQ(set->representation, kRepresentations.at(check["representation"]));
        const auto colorOf = [set](std::int32_t id) {
            const auto& c = (*set->colors)[static_cast<std::size_t>(id)];
            return set->representation == ColorRepresentation::kAlpha ? json{c.w}
                   : set->representation == ColorRepresentation::kRgb ? json{c.x, c.y, c.z}
                                                                      : json{c.x, c.y, c.z, c.w};
        };
        EXPECT_TRUE(isNearJson(valuesByFace(mesh, *set->ids, colorOf, false), check["value"], check["tol"]));
    });
}

TEST_P(RealMeshes, HaveTheFaceSetsExpected) {
    forChecks("faceSetsResolved", [&](const json& check, const MeshData& mesh) {
        Graph& graph = scene.graph();
        Node& shape = *shapeOf(check["shape"]);
        const Plug groups{&shape, graph.findPlug(shape, "instObjGroups[0].objectGroups")};
        std::map<std::string, std::set<int>> faces;
        for (const std::int32_t group : graph.elementIndices(groups)) {
            const auto components = groupComponents(graph, shape, 0, group);
            for (const Plug& set : graph.destinationsOf({&shape, groups.at.element(group)})) {
                const std::vector<bool> named = namedFaces(*components, *mesh.topology);
                for (std::size_t face = 0; face < named.size(); ++face) {
                    if (named[face]) {
                        faces[set.node->name()].insert(static_cast<int>(face));
                    }
                }
            }
        }
        EXPECT_EQ(faces, (check["value"].get<std::map<std::string, std::set<int>>>()));
    });
}

INSTANTIATE_TEST_SUITE_P(All, RealMeshes, testing::ValuesIn(folders()), [](const auto& row) {
    std::string name = row.param.name;
    name.erase(std::remove(name.begin(), name.end(), '-'), name.end());
    return name;
});

// The targets of this blend shape are copies of the deformed cube, which a polyCube node makes.
TEST(RealCopies, OfAPolyCubeAreWhatItsNodeMakes) {
    Scene scene;
    ASSERT_TRUE(scene.open(std::string(TVK_TEST_DATA) + "/scenes/trax-character/ComplexAnim1.ma").ok());
    const MeshPtr made = evaluatedMesh(scene.graph(), *scene.find("characterShapeOrig").node);
    for (const char* name : {"target1Shape", "targetShape2", "targetShape3"}) {
        const MeshPtr stored = evaluatedMesh(scene.graph(), *scene.find(name).node);
        EXPECT_EQ(made->topology->cornerEdges(), stored->topology->cornerEdges()) << name;
        EXPECT_EQ(made->topology->normalFans().ofCorner, stored->topology->normalFans().ofCorner) << name;
        EXPECT_EQ(made->uvSets[0].ids->ids, stored->uvSets[0].ids->ids) << name;
        for (std::size_t i = 0; i < stored->uvSets[0].points->size(); ++i) {
            EXPECT_TRUE(((*made->uvSets[0].points)[i] - (*stored->uvSets[0].points)[i]).length() < 1e-6F) << i;
        }
    }
}

} // namespace

} // namespace host
