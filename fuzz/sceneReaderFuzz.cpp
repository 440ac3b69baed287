#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "host/graph/DagPath.h"
#include "host/scene/Scene.h"

// Any bytes as a scene. What opens must have names by which its nodes are found, and what does not must leave nothing.
namespace {

constexpr std::size_t kNodesToAsk = 64;

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

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static host::Scene scene;
    static const std::size_t defaultCount = scene.graph().nodes().size();
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    if (scene.openText(text, "fuzz.ma").ok()) {
        checkNames(scene);
    } else if (scene.graph().nodes().size() != defaultCount) {
        std::abort();
    }
    return 0;
}
