#include "host/api/transformValues.h"

#include "host/api/Host.h"

#include <array>

namespace host {

namespace {

std::optional<std::array<Plug, 3>> componentsOf(Node& node, const char* compound) {
    const AttrIndex attr = node.findAttribute(compound);
    if (attr == kNoAttr || node.attribute(attr).children.size() != 3 || node.attribute(attr).arrayDepth != 0) {
        return std::nullopt;
    }
    std::array<Plug, 3> components;
    for (std::size_t i = 0; i < components.size(); ++i) {
        components[i] = {&node, PlugAddress{node.attribute(attr).children[i], 0, {}}};
    }
    return components;
}

} // namespace

std::optional<MVector> readVector(Node& node, const char* compound) {
    const auto components = componentsOf(node, compound);
    if (!components) {
        return std::nullopt;
    }
    Graph& graph = Host::instance().graph();
    return MVector(graph.number((*components)[0]), graph.number((*components)[1]), graph.number((*components)[2]));
}

bool writeVector(Node& node, const char* compound, const MVector& value) {
    const auto components = componentsOf(node, compound);
    Graph& graph = Host::instance().graph();
    if (!components) {
        return false;
    }
    for (const Plug& component : *components) {
        if (!graph.isFreeToChange(component).ok()) {
            return false;
        }
    }
    bool done = true;
    for (unsigned int i = 0; i < components->size(); ++i) {
        done = graph.setNumber((*components)[i], value[i]).ok() && done;
    }
    Host::instance().scene().file().modified = true;
    return done;
}

MEulerRotation::RotationOrder readRotateOrder(Node& node) {
    const AttrIndex attr = node.findAttribute("rotateOrder");
    const double order = attr == kNoAttr ? 0.0 : Host::instance().graph().number({&node, PlugAddress{attr, 0, {}}});
    constexpr int kFirst = MEulerRotation::kXYZ;
    constexpr int kLast = MEulerRotation::kZYX;
    const bool isKnown = order >= kFirst && order <= kLast;
    return isKnown ? static_cast<MEulerRotation::RotationOrder>(static_cast<int>(order)) : MEulerRotation::kXYZ;
}

} // namespace host
