#include "host/graph/Evaluation.h"

#include "host/graph/numberConversion.h"

#include <memory>
#include <utility>

namespace host {

void Evaluation::putNumber(Node& node, const PlugAddress& at, double value) {
    graph_.putCached(node, at, convertNumber(value, node.attribute(at.attr).kind));
}

void Evaluation::putString(Node& node, const PlugAddress& at, std::string value) {
    graph_.putCached(node, at, std::move(value));
}

void Evaluation::putMatrix(Node& node, const PlugAddress& at, const Matrix44& value) {
    graph_.putCached(node, at, std::make_shared<const Matrix44>(value));
}

void Evaluation::putData(Node& node, const PlugAddress& at, DataPtr value) {
    graph_.putCached(node, at, value != nullptr ? Value(std::move(value)) : Value());
}

void Evaluation::warn(const std::string& text) {
    graph_.warn(text);
}

} // namespace host
