#include "host/api/geometryChain.h"

#include "host/api/Host.h"
#include "host/api/dagQueries.h"

#include <array>
#include <set>

namespace host {

namespace {

/// Where geometry goes into nodes that hand it on, and where it comes out again.
constexpr std::array<const char*, 4> kInputs = {"inMesh", "inputPolymesh", "inputGeometry", "create"};
constexpr std::array<const char*, 3> kOutputs = {"outputGeometry", "output", "outMesh"};

Graph& graph() {
    return Host::instance().graph();
}

bool isFilter(const Node& node) {
    return node.type().isKindOf("geometryFilter");
}

/// The first of the attributes that the node has outside arrays.
template <std::size_t Count>
Plug firstOf(Node& node, const std::array<const char*, Count>& names) {
    for (const char* const name : names) {
        const AttrIndex attr = node.findAttribute(name);
        if (attr != kNoAttr && node.attribute(attr).arrayDepth == 0) {
            return {&node, {attr, 0, {}}};
        }
    }
    return {};
}

bool isGeometryInput(const Plug& plug) {
    const std::string& name = plug.node->attribute(plug.at.attr).longName;
    for (const char* const known : kInputs) {
        if (name == known) {
            return true;
        }
    }
    return false;
}

/// Where the geometry that comes out at a plug went into its node.
Plug behind(const Plug& output) {
    Node& node = *output.node;
    return isFilter(node) ? filterInput(node, output.at.depth > 0 ? output.at.index[0] : 0, "inputGeometry")
                          : firstOf(node, kInputs);
}

/// Where what goes in at a plug comes out of its node.
Plug ahead(const Plug& input) {
    Node& node = *input.node;
    if (!isFilter(node)) {
        return firstOf(node, kOutputs);
    }
    const AttrIndex outputs = node.findAttribute("outputGeometry");
    return input.at.depth > 0 ? Plug{&node, PlugAddress{outputs, 0, {}}.element(input.at.index[0])} : Plug{};
}

std::vector<std::int32_t> connectedIndices(Node& filter, const char* attribute, bool outgoing) {
    const AttrIndex attr = filter.findAttribute(attribute);
    std::set<std::int32_t> indices;
    const auto add = [&](const PlugAddress& at) {
        if (at.attr == attr && at.depth > 0) {
            indices.insert(at.index[0]);
        }
    };
    if (outgoing) {
        for (const auto& [at, destination] : filter.outgoing()) {
            add(at);
        }
    } else {
        for (const auto& [at, source] : filter.incoming()) {
            add(at);
        }
    }
    return {indices.begin(), indices.end()};
}

} // namespace

Plug filterInput(Node& filter, std::int32_t index, const char* child) {
    const AttrIndex attr = filter.findAttribute(child);
    return attr == kNoAttr ? Plug{} : Plug{&filter, PlugAddress{attr, 0, {}}.element(index)};
}

Node* outputShape(Node& filter, std::int32_t index) {
    const AttrIndex outputs = filter.findAttribute("outputGeometry");
    std::vector<Plug> open = {{&filter, PlugAddress{outputs, 0, {}}.element(index)}};
    std::set<const Node*> seen;
    while (!open.empty()) {
        const Plug output = open.back();
        open.pop_back();
        for (const Plug& user : graph().destinationsOf(output)) {
            if (!isGeometryInput(user)) {
                continue;
            }
            if (isShape(*user.node)) {
                return user.node;
            }
            const Plug next = ahead(user);
            if (next && seen.insert(user.node).second) {
                open.push_back(next);
            }
        }
    }
    return nullptr;
}

Node* inputShape(Node& filter, std::int32_t index) {
    Plug source = graph().sourceOf(filterInput(filter, index, "inputGeometry"));
    std::set<const Node*> seen;
    while (source && seen.insert(source.node).second) {
        if (isShape(*source.node)) {
            return source.node;
        }
        const Plug input = behind(source);
        source = input ? graph().sourceOf(input) : Plug{};
    }
    return nullptr;
}

std::optional<std::int32_t> outputIndexOf(Node& filter, Node& shape) {
    Plug input = firstOf(shape, kInputs);
    std::set<const Node*> seen;
    while (input) {
        const Plug source = graph().sourceOf(input);
        if (!source || isShape(*source.node) || !seen.insert(source.node).second) {
            break;
        }
        if (source.node == &filter) {
            return source.at.depth > 0 ? source.at.index[0] : 0;
        }
        input = behind(source);
    }
    return std::nullopt;
}

std::vector<std::int32_t> connectedOutputs(Node& filter) {
    return connectedIndices(filter, "outputGeometry", true);
}

std::vector<std::int32_t> connectedInputs(Node& filter) {
    return connectedIndices(filter, "inputGeometry", false);
}

} // namespace host
