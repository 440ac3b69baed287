#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <string_view>

#include "host/graph/DagPath.h"
#include "host/nodes/meshQueries.h"
#include "host/scene/Scene.h"

// Any bytes as a scene. What opens must have names by which its nodes are found and meshes that are whole, and what
// does not must leave nothing.
namespace {

constexpr std::size_t kNodesToAsk = 64;

// A project with one file that scenes may refer to.
class Project {
public:
    Project()
        : folder_(std::filesystem::temp_directory_path() / ("scene_fuzz_" + std::to_string(std::random_device()()))) {
        std::filesystem::create_directory(folder_);
        std::ofstream(folder_ / "rig.ma") << "//Maya ASCII 2018 scene\ncreateNode transform -n \"a\";\n"
                                             "\tsetAttr -l on \".tx\";\ncreateNode transform -n \"b\" -p \"a\";\n"
                                             "createNode animCurveTA -n \"c\";\nconnectAttr \"c.o\" \"b.rx\";\n";
    }
    ~Project() {
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }
    Project(const Project&) = delete;
    Project& operator=(const Project&) = delete;
    std::string folder() const { return folder_.string(); }

private:
    std::filesystem::path folder_;
};

void checkNames(host::Scene& scene) {
    const std::size_t count = scene.graph().nodes().size();
    for (std::size_t at = 0; at < count && at < kNodesToAsk; ++at) {
        host::Node& node = *scene.graph().nodes()[count - 1 - at];
        if (scene.find(scene.names().shortestName(node)).node != &node) {
            std::abort();
        }
        const host::Scene::PlugMatch matrix = scene.findPlug(scene.names().shortestName(node) + ".worldMatrix");
        if (matrix.ok()) {
            scene.graph().matrix(matrix.plug);
        }
    }
}

// Nodes that make millions of faces from one number are no find, only slow.
bool makesManyFaces(host::Scene& scene) {
    constexpr double kMany = 50.0;
    for (host::Node* node : scene.graph().nodes()) {
        for (const char* count : {"subdivisionsAxis", "subdivisionsWidth", "subdivisionsHeight", "subdivisionsDepth"}) {
            const host::AttrIndex attr =
                node->type().isKindOf("polyPrimitive") ? node->findAttribute(count) : host::kNoAttr;
            if (attr != host::kNoAttr && scene.graph().number({node, {attr, 0, {}}}) > kMany) {
                return true;
            }
        }
    }
    return false;
}

void checkMesh(const host::MeshData& mesh) {
    const host::MeshTopology& topology = *mesh.topology;
    const auto corners = static_cast<std::size_t>(topology.cornerCount());
    bool isWhole = mesh.points->size() == static_cast<std::size_t>(topology.vertexCount()) &&
                   topology.normalFans().ofCorner.size() == corners &&
                   mesh.normals().size() == static_cast<std::size_t>(topology.normalFans().count) &&
                   topology.facesOfEdge().items.size() == corners;
    for (const std::int32_t vertex : topology.cornerVertices()) {
        isWhole = isWhole && vertex >= 0 && vertex < topology.vertexCount();
    }
    for (const host::UvSet& set : mesh.uvSets) {
        for (const std::int32_t id : set.ids->ids) {
            isWhole = isWhole && id >= 0 && static_cast<std::size_t>(id) < set.points->size();
        }
    }
    for (const host::ColorSet& set : mesh.colorSets) {
        for (const std::int32_t id : set.ids->ids) {
            isWhole = isWhole && id >= -1 && id < static_cast<std::int32_t>(set.colors->size());
        }
    }
    if (!isWhole) {
        std::abort();
    }
}

void checkMeshes(host::Scene& scene) {
    if (makesManyFaces(scene)) {
        return;
    }
    const std::size_t count = scene.graph().nodes().size();
    for (std::size_t at = 0; at < count && at < kNodesToAsk; ++at) {
        checkMesh(*host::evaluatedMesh(scene.graph(), *scene.graph().nodes()[count - 1 - at]));
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const Project project;
    static host::Scene scene;
    static const bool isInProject = scene.workspace().open(project.folder());
    if (!isInProject) {
        std::abort();
    }
    static const std::size_t defaultCount = scene.graph().nodes().size();
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    if (scene.openText(text, "fuzz.ma").ok()) {
        checkNames(scene);
        checkMeshes(scene);
    } else if (scene.graph().nodes().size() != defaultCount) {
        std::abort();
    }
    return 0;
}
