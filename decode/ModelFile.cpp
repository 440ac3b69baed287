#include "decode/ModelFile.h"

#include "decode/FileError.h"

#include <algorithm>
#include <cmath>
#include <set>

namespace decode {
namespace {

constexpr double kRadians = 3.14159265358979323846 / 180.0;

Imath::V3d vectorOf(const FileElement& element, const char* name) {
    const std::vector<double> parts = element.reals(name, 3);
    return {parts[0], parts[1], parts[2]};
}

// One elementary rotation for row vectors; axis 0 is x.
Imath::M44d turn(int axis, double degrees) {
    const double c = std::cos(degrees * kRadians);
    const double s = std::sin(degrees * kRadians);
    const int a = (axis + 1) % 3;
    const int b = (axis + 2) % 3;
    Imath::M44d matrix;
    matrix[a][a] = c;
    matrix[a][b] = s;
    matrix[b][a] = -s;
    matrix[b][b] = c;
    return matrix;
}

Imath::M44d scaling(const Imath::V3d& factors) {
    Imath::M44d matrix;
    for (int i = 0; i < 3; ++i) {
        matrix[i][i] = factors[i];
    }
    return matrix;
}

Imath::M44d moving(const Imath::V3d& offset) {
    Imath::M44d matrix;
    for (int i = 0; i < 3; ++i) {
        matrix[3][i] = offset[i];
    }
    return matrix;
}

Imath::V3d undone(const Imath::V3d& scale) {
    Imath::V3d result;
    for (int i = 0; i < 3; ++i) {
        result[i] = scale[i] == 0.0 ? 1.0 : 1.0 / scale[i];
    }
    return result;
}

ModelNode readNode(const FileElement& element) {
    ModelNode node;
    node.index = element.integer("index");
    node.name = element.value("name");
    node.kind = element.value("kind");
    node.parent = element.integer("parent");
    node.child = element.integer("child");
    node.brotherNext = element.integer("brother_next");
    node.brotherPrev = element.integer("brother_prev");
    node.drawMtx = element.isOn("draw_mtx");
    if (element.attribute("scale_compensate") != nullptr) {
        node.scaleCompensate = element.isOn("scale_compensate");
    }
    node.billboard = element.value("billboard");
    node.scale = vectorOf(element, "scale");
    node.rotate = vectorOf(element, "rotate");
    node.translate = vectorOf(element, "translate");
    node.visibility = element.isOn("visibility");
    node.displaySize = element.integer("display_size");
    node.attributeNames = element.attributeNames();
    require(node.displaySize == static_cast<int>(element.children.size()), element, "display_size of ", node.name,
            " is ", node.displaySize, ", but there are ", element.children.size(), " displays");
    return node;
}

class Checker {
public:
    Checker(const std::vector<ModelNode>& all, const FileElement& nodeArray) : nodes(all), array(nodeArray) {}

    void checkAll() const {
        std::set<std::string_view> names;
        for (const ModelNode& node : nodes) {
            check(names.insert(node.name).second, node, "stands there twice");
            check(node.scaleCompensate.has_value() == nodes.front().scaleCompensate.has_value(), node,
                  "has scale_compensate and others do not, or the reverse");
            checkPlace(node);
        }
    }

private:
    bool isNode(int index) const { return index >= 0 && index < static_cast<int>(nodes.size()); }
    const ModelNode& at(int index) const { return nodes[static_cast<std::size_t>(index)]; }

    void check(bool holds, const ModelNode& node, const char* what) const {
        require(holds, array.children[static_cast<std::size_t>(node.index)], node.name, ": ", what);
    }

    void checkPlace(const ModelNode& node) const {
        check((node.parent == -1) == (node.index == 0), node, "the first node, and it alone, is the root");
        check(node.parent < node.index, node, "parents stand first");
        for (const int link : {node.parent, node.child, node.brotherNext, node.brotherPrev}) {
            check(link == -1 || isNode(link), node, "links to a node that is not there");
        }
        if (node.brotherNext != -1) {
            const ModelNode& next = at(node.brotherNext);
            check(next.brotherPrev == node.index && next.parent == node.parent, node,
                  "brother_next does not lead back");
        }
        if (node.brotherPrev != -1) {
            check(at(node.brotherPrev).brotherNext == node.index, node, "brother_prev does not lead back");
        } else if (node.parent != -1) {
            check(at(node.parent).child == node.index, node, "is nobody's first child and has no brother before it");
        }
        if (node.child != -1) {
            check(at(node.child).parent == node.index && at(node.child).brotherPrev == -1, node,
                  "child does not lead back");
        }
    }

    const std::vector<ModelNode>& nodes;
    const FileElement& array;
};

} // namespace

void buildMatrices(std::vector<ModelNode>& nodes) {
    for (ModelNode& node : nodes) {
        const bool hasParent = node.parent >= 0 && node.parent < node.index;
        const ModelNode* const parent = hasParent ? &nodes[static_cast<std::size_t>(node.parent)] : nullptr;
        node.local = scaling(node.scale) * turn(0, node.rotate.x) * turn(1, node.rotate.y) * turn(2, node.rotate.z);
        if (parent != nullptr && node.scaleCompensate.value_or(false)) {
            node.local = node.local * scaling(undone(parent->scale));
        }
        node.local = node.local * moving(node.translate);
        node.world = parent == nullptr ? node.local : node.local * parent->world;
    }
}

const ModelNode* ModelFile::find(std::string_view name) const {
    const auto found =
        std::find_if(nodes.begin(), nodes.end(), [&](const ModelNode& node) { return node.name == name; });
    return found == nodes.end() ? nullptr : &*found;
}

const ModelNode& ModelFile::node(std::string_view name) const {
    const ModelNode* const found = find(name);
    if (found == nullptr) {
        throw FileError("there is no node " + excerpt(name));
    }
    return *found;
}

std::vector<std::string> ModelFile::names() const {
    std::vector<std::string> result;
    std::transform(nodes.begin(), nodes.end(), std::back_inserter(result),
                   [](const ModelNode& node) { return node.name; });
    return result;
}

std::vector<std::string> ModelFile::childrenOf(std::string_view name) const {
    std::vector<std::string> result;
    for (int at = node(name).child; at != -1 && result.size() < nodes.size();) {
        const ModelNode& child = nodes[static_cast<std::size_t>(at)];
        result.push_back(child.name);
        at = child.brotherNext;
    }
    return result;
}

ModelFile readModelFile(std::string_view text) {
    ModelFile file;
    file.root = readIntermediateFile(text);
    require(file.root.name == "imd", file.root, "is no model");
    const FileElement& body = file.root.child("body");
    file.info = &body.child("model_info");
    if (const FileElement* const array = body.find("node_array")) {
        const std::vector<FileElement>& elements = array->countedChildren();
        std::transform(elements.begin(), elements.end(), std::back_inserter(file.nodes), readNode);
        Checker(file.nodes, *array).checkAll();
    }
    buildMatrices(file.nodes);
    return file;
}

} // namespace decode
