#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "host/graph/Graph.h"
#include "host/nodes/nodeTypes.h"

namespace {

host::NodeTypeRegistry& types() {
    static host::NodeTypeRegistry* const kRegistry = [] {
        static host::NodeTypeRegistry registry;
        host::registerNodeTypes(registry);
        return &registry;
    }();
    return *kRegistry;
}

} // namespace

// Any bytes as the stored text of an expression that drives a joint and reads what it drives: evaluated at some times,
// it must end and give numbers.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    host::Graph graph(types());
    host::Node& node = graph.create(*graph.types().find("expression"), "expression1");
    host::Node& joint = graph.create(*graph.types().find("joint"), "joint1");
    const auto plug = [&](host::Node& owner, const char* path) {
        return host::Plug{&owner, graph.findPlug(owner, path)};
    };
    graph.setString(plug(node, "ixp"), std::string(reinterpret_cast<const char*>(data), size));
    graph.setNumber(plug(node, "in[0]"), 2.5);
    graph.connect(plug(joint, "ty"), plug(node, "in[1]"), false);
    graph.connect(plug(node, "out[0]"), plug(joint, "tx"), false);
    graph.connect(plug(node, "out[1]"), plug(joint, "ty"), false);
    for (const host::Ticks time : {host::Ticks{0}, host::kTicksPerSecond}) {
        graph.setTime(time);
        for (const char* path : {"tx", "ty"}) {
            if (!std::isfinite(graph.number(plug(joint, path)))) {
                std::abort();
            }
        }
    }
    return 0;
}
