#include "scene/nodeTests.h"

#include "scene/plugReading.h"

namespace tvk {

bool isNodeEffective(const MObject& node) {
    constexpr int kHasNoEffect = 1;
    constexpr int kBlocking = 2;
    const int state = attributeOr(node, "nodeState", 0);
    return state != kHasNoEffect && state != kBlocking;
}

bool isNoCut(const MObject& node) {
    return attributeOr(node, "tvk_no_cut", 0) != 0;
}

bool isShown(const MObject& shape) {
    if (!attributeOr(shape, "primaryVisibility", true) || attributeOr(shape, "template", false) ||
        attributeOr(shape, "intermediateObject", false)) {
        return false;
    }
    if (!attributeOr(shape, "overrideEnabled", false)) {
        return true;
    }
    constexpr int kTemplate = 1;
    return attributeOr(shape, "overrideVisibility", true) && attributeOr(shape, "overrideShading", true) &&
           attributeOr(shape, "overrideDisplayType", 0) != kTemplate;
}

bool isVisible(const MObject& transform) {
    if (!attributeOr(transform, "visibility", true)) {
        return false;
    }
    return !attributeOr(transform, "overrideEnabled", false) || attributeOr(transform, "overrideVisibility", true);
}

Billboard billboardOf(const MObject& transform) {
    const int choice = attributeOr(transform, "tvk_billboard", 0);
    return choice >= static_cast<int>(Billboard::kOff) && choice <= static_cast<int>(Billboard::kYOn)
               ? static_cast<Billboard>(choice)
               : Billboard::kOff;
}

bool isSelfVisible(const NodeRecord& node) {
    if (!node.hasDagNode) {
        return true;
    }
    const MObject transform = node.path.node();
    return isVisible(transform) && !attributeOr(transform, "template", false) &&
           (node.kind != NodeKind::kMesh || attributeOr(node.shape.node(), "visibility", true));
}

} // namespace tvk
