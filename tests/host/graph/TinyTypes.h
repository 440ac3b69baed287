#pragma once

#include "host/graph/Graph.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

/// A graph of made-up node types, as small as the behaviour under test allows:
///   adder   in1, in2, more[], v (vx vy vz), bent (double3: x y z) -> sum = everything added; twice = 2 * in1 only;
///           r (rx ry rz) = bent; the affects table says so
///   clock   a time-driven node: input (time) -> output = frames at 24 per second + offset
///   time    outTime, unwarpedTime
///   group   a transform: shift -> local, place[] (world-space, matrix); walks up by itself
///   shape   a shape: size -> place[] of the group above
///   holder  one attribute of every kind and arrangement, computes nothing
class TinyScene : public ::testing::Test {
protected:
    TinyScene();

    host::Node& make(std::string_view type, std::string name) {
        return graph.create(*types.find(type), std::move(name));
    }
    /// A DAG node below `parent`, or below the world.
    host::Node& makeBelow(host::Node* parent, std::string_view type, std::string name);

    host::Plug plug(host::Node& node, std::string_view path) const { return {&node, graph.findPlug(node, path)}; }
    double number(host::Node& node, std::string_view path) { return graph.number(plug(node, path)); }
    /// Sets or connects, and expects that it is accepted.
    void set(host::Node& node, std::string_view path, double value);
    void connect(host::Node& source, std::string_view from, host::Node& destination, std::string_view to);
    /// What connecting answers; empty when accepted.
    std::string tryConnect(host::Node& source, std::string_view from, host::Node& destination, std::string_view to,
                           bool force = false);

    host::NodeTypeRegistry types;
    host::Graph graph;
    std::vector<std::string> warnings;
};
