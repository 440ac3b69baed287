#include "host/api/dagQueries.h"

#include "host/api/Host.h"

#include <algorithm>

namespace host {

namespace {

constexpr double kTemplateDisplay = 1.0; // overrideDisplayType: 0 normal, 1 template, 2 reference

/// An attribute that is missing hides nothing.
bool isOff(Node& node, const char* attribute) {
    return numberOf(node, attribute).value_or(1.0) == 0.0;
}

bool isOn(Node& node, const char* attribute) {
    return numberOf(node, attribute).value_or(0.0) != 0.0;
}

bool isNodeVisible(Node& node) {
    const bool isOverridden = isOn(node, "overrideEnabled");
    return !isOff(node, "visibility") && !isOff(node, "lodVisibility") && !isOn(node, "intermediateObject") &&
           !(isOverridden && isOff(node, "overrideVisibility"));
}

bool isNodeTemplated(Node& node) {
    const double display = numberOf(node, "overrideDisplayType").value_or(0.0);
    return isOn(node, "template") || (isOn(node, "overrideEnabled") && display == kTemplateDisplay);
}

} // namespace

bool isShape(const Node& node) {
    return node.type().dagRole == DagRole::kShape;
}

bool isTransform(const Node& node) {
    return node.type().dagRole == DagRole::kTransform;
}

int instanceOf(const DagPath& path) {
    const bool isSingle =
        std::all_of(path.nodes.begin(), path.nodes.end(), [](const Node* node) { return node->parents().size() == 1; });
    return isSingle ? 0 : std::max(0, instanceNumber(Host::instance().graph(), path));
}

Matrix44 worldMatrix(const DagPath& path) {
    if (path.end() == nullptr) {
        return Matrix44();
    }
    Node& node = *path.end();
    const AttrIndex attr = node.findAttribute("worldMatrix");
    if (attr == kNoAttr) {
        return Matrix44();
    }
    return Host::instance().graph().matrix({&node, PlugAddress{attr, 0, {}}.element(instanceOf(path))});
}

std::optional<double> numberOf(Node& node, const char* attribute) {
    const AttrIndex attr = node.findAttribute(attribute);
    if (attr == kNoAttr || !isNumeric(node.attribute(attr).kind) || node.attribute(attr).arrayDepth != 0) {
        return std::nullopt;
    }
    return Host::instance().graph().number({&node, PlugAddress{attr, 0, {}}});
}

bool isVisible(const DagPath& path) {
    return std::all_of(path.nodes.begin(), path.nodes.end(), [](Node* node) { return isNodeVisible(*node); });
}

bool isTemplated(const DagPath& path) {
    return std::any_of(path.nodes.begin(), path.nodes.end(), [](Node* node) { return isNodeTemplated(*node); });
}

DagPath firstPath(const Node& node) {
    const Node* world = &Host::instance().graph().world();
    DagPath path;
    for (const Node* one = &node; one != world; one = one->parents().front()) {
        path.nodes.push_back(Host::instance().graph().node(one->id()));
    }
    std::reverse(path.nodes.begin(), path.nodes.end());
    return path;
}

bool isInstanced(const Node& node, bool indirect) {
    return node.parents().size() > 1 || (indirect && pathCount(Host::instance().graph(), node) > 1);
}

} // namespace host
