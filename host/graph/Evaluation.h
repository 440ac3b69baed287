#pragma once

#include "host/graph/Graph.h"

namespace host {

/// What a compute function sees: inputs of its own node, evaluated, and a place to put outputs.
/// Reading goes through connections and the cache; a missing input gives the attribute's default. What a function reads
/// in other ways than through here (or Graph's values now) it must be told about: see Graph::changed. It may put more
/// outputs of its node than the one asked for; one that it does not put has its default. It changes nothing else.
class Evaluation {
public:
    explicit Evaluation(Graph& graph) : graph_(graph) {}

    Graph& graph() { return graph_; }
    double number(Node& node, const PlugAddress& at) { return graph_.number({&node, at}); }
    std::string string(Node& node, const PlugAddress& at) { return graph_.string({&node, at}); }
    Matrix44 matrix(Node& node, const PlugAddress& at) { return graph_.matrix({&node, at}); }
    DataPtr data(Node& node, const PlugAddress& at) { return graph_.data({&node, at}); }
    /// Top-level attribute without arrays.
    double number(Node& node, AttrIndex attr) { return number(node, PlugAddress{attr, 0, {}}); }

    void putNumber(Node& node, const PlugAddress& at, double value);
    void putString(Node& node, const PlugAddress& at, std::string value);
    void putMatrix(Node& node, const PlugAddress& at, const Matrix44& value);
    void putData(Node& node, const PlugAddress& at, DataPtr value);

    /// One line for the user, said once per text.
    void warn(const std::string& text);

private:
    Graph& graph_;
};

} // namespace host
