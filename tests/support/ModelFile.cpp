#include "ModelFile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <set>

namespace tvk {
namespace {

constexpr double kRadians = 3.14159265358979323846 / 180.0;

Imath::V3d vectorOf(const FileElement& element, const char* name) {
    const std::vector<double> parts = element.reals(name);
    EXPECT_EQ(parts.size(), 3U) << element.value("name") << "." << name;
    return parts.size() == 3 ? Imath::V3d(parts[0], parts[1], parts[2]) : Imath::V3d(0.0);
}

bool isOn(const FileElement& element, const char* name) {
    const std::string word = element.value(name);
    EXPECT_TRUE(word == "on" || word == "off") << name << "=" << word;
    return word == "on";
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
    node.drawMtx = isOn(element, "draw_mtx");
    if (element.attribute("scale_compensate") != nullptr) {
        node.scaleCompensate = isOn(element, "scale_compensate");
    }
    node.billboard = element.value("billboard");
    node.scale = vectorOf(element, "scale");
    node.rotate = vectorOf(element, "rotate");
    node.translate = vectorOf(element, "translate");
    node.visibility = isOn(element, "visibility");
    node.displaySize = element.integer("display_size");
    node.attributeNames = element.attributeNames();
    EXPECT_EQ(static_cast<int>(element.children.size()), node.displaySize) << node.name;
    return node;
}

class Checker {
public:
    explicit Checker(const std::vector<ModelNode>& all) : nodes(all) {}

    void checkAll() const {
        std::set<std::string> names;
        for (std::size_t i = 0; i < nodes.size(); ++i) {
            const ModelNode& node = nodes[i];
            EXPECT_EQ(node.index, static_cast<int>(i)) << node.name;
            EXPECT_TRUE(names.insert(node.name).second) << "twice: " << node.name;
            EXPECT_EQ(node.scaleCompensate.has_value(), nodes.front().scaleCompensate.has_value()) << node.name;
            checkPlace(node);
        }
    }

private:
    bool isNode(int index) const { return index >= 0 && index < static_cast<int>(nodes.size()); }
    const ModelNode& at(int index) const { return nodes[static_cast<std::size_t>(index)]; }

    void checkPlace(const ModelNode& node) const {
        EXPECT_EQ(node.parent == -1, node.index == 0) << "the first node, and it alone, is the root: " << node.name;
        EXPECT_LT(node.parent, node.index) << "parents stand first: " << node.name;
        for (const int link : {node.parent, node.child, node.brotherNext, node.brotherPrev}) {
            EXPECT_TRUE(link == -1 || isNode(link)) << node.name << " links to " << link;
        }
        if (isNode(node.brotherNext)) {
            EXPECT_EQ(at(node.brotherNext).brotherPrev, node.index) << node.name;
            EXPECT_EQ(at(node.brotherNext).parent, node.parent) << node.name;
        }
        if (node.brotherPrev == -1 && isNode(node.parent)) {
            EXPECT_EQ(at(node.parent).child, node.index) << node.name;
        }
        if (isNode(node.brotherPrev)) {
            EXPECT_EQ(at(node.brotherPrev).brotherNext, node.index) << node.name;
        }
        if (isNode(node.child)) {
            EXPECT_EQ(at(node.child).parent, node.index) << node.name;
            EXPECT_EQ(at(node.child).brotherPrev, -1) << node.name;
        }
    }

    const std::vector<ModelNode>& nodes;
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
    static const ModelNode none;
    const ModelNode* const found = find(name);
    EXPECT_NE(found, nullptr) << "no node " << name;
    return found == nullptr ? none : *found;
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
    EXPECT_EQ(file.root.name, "imd");
    const FileElement* const body = file.root.find("body");
    if (body == nullptr) {
        ADD_FAILURE() << "no body";
        return file;
    }
    file.info = body->find("model_info");
    EXPECT_NE(file.info, nullptr);
    if (const FileElement* const array = body->find("node_array")) {
        EXPECT_EQ(array->integer("size"), static_cast<int>(array->children.size()));
        std::transform(array->children.begin(), array->children.end(), std::back_inserter(file.nodes), readNode);
    }
    Checker(file.nodes).checkAll();
    buildMatrices(file.nodes);
    return file;
}

} // namespace tvk
