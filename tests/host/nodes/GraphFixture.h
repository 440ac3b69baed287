#pragma once

#include "host/graph/Graph.h"
#include "host/nodes/nodeTypes.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

namespace host {

constexpr double kDegree = 0.017453292519943295;

/// A graph with all node types, and short ways to build in it. What a test builds must work, so it fails where it does
/// not.
class GraphFixture : public ::testing::Test {
protected:
    GraphFixture() : graph(registered(types)) {}

    Node& make(const char* type, const char* name, Node* parent = nullptr) {
        const NodeType* found = types.find(type);
        EXPECT_NE(found, nullptr) << type;
        Node& node = graph.create(*found, name);
        if (found->dagRole != DagRole::kNone) {
            EXPECT_EQ(graph.addParent(node, parent != nullptr ? *parent : graph.world()).error, "");
        }
        return node;
    }
    Plug plug(Node& node, const std::string& path) {
        const Plug result{&node, graph.findPlug(node, path)};
        EXPECT_TRUE(static_cast<bool>(result)) << node.name() << "." << path;
        return result;
    }
    void set(Node& node, const std::string& path, double value) {
        EXPECT_EQ(graph.setNumber(plug(node, path), value).error, "");
    }
    void set3(Node& node, const std::string& path, double x, double y, double z) {
        const Plug parent = plug(node, path);
        const double values[] = {x, y, z};
        for (std::size_t i = 0; i < 3; ++i) {
            Plug child = parent;
            child.at.attr = node.attribute(parent.at.attr).children[i];
            EXPECT_EQ(graph.setNumber(child, values[i]).error, "");
        }
    }
    void connect(Node& source, const std::string& from, Node& node, const std::string& to) {
        EXPECT_EQ(graph.connect(plug(source, from), plug(node, to), false).error, "");
    }
    double number(Node& node, const std::string& path) { return graph.number(plug(node, path)); }
    Matrix44 matrix(Node& node, const std::string& path) { return graph.matrix(plug(node, path)); }

    NodeTypeRegistry types;
    Graph graph;

private:
    /// The graph takes its root's type from the registry.
    static NodeTypeRegistry& registered(NodeTypeRegistry& registry) {
        registerNodeTypes(registry);
        return registry;
    }
};

inline ::testing::AssertionResult isNear(const Matrix44& actual, const Matrix44& expected, double tolerance = 1e-12) {
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 4; ++column) {
            if (!(std::abs(actual[row][column] - expected[row][column]) <= tolerance)) {
                return ::testing::AssertionFailure() << "at " << row << " " << column << ":\n"
                                                     << ::testing::PrintToString(actual[row][column]) << " instead of "
                                                     << ::testing::PrintToString(expected[row][column]);
            }
        }
    }
    return ::testing::AssertionSuccess();
}

inline Matrix44 rows(const Imath::V3d& a, const Imath::V3d& b, const Imath::V3d& c, const Imath::V3d& origin) {
    return Matrix44(a.x, a.y, a.z, 0, b.x, b.y, b.z, 0, c.x, c.y, c.z, 0, origin.x, origin.y, origin.z, 1);
}

} // namespace host
