#pragma once

#include "host/graph/NodeType.h"

#include <cstdint>
#include <string_view>

namespace host {

/// What becomes of the nodes of a type when a scene is evaluated.
enum class Treatment : std::uint8_t {
    kEvaluated,     // computes what the real host computes
    kHeld,          // computes nothing that is read: what is set on it or connected to it is all there is
    kPassedThrough, // not evaluated: what comes in goes out, with a warning
    kKept,          // not evaluated: what it drives keeps its stored values, with a warning
    kRefused,       // not evaluated: a scene in which it shapes a mesh does not open
};

Treatment treatmentOf(const NodeType& type);

/// The words of docs/node-types.md for it: "evaluated", "held", "passed through", "kept", "refused".
std::string_view treatmentName(Treatment treatment);

/// What follows where a type is not evaluated, to go on after a node's name: "passes its input through".
std::string_view consequenceOf(const NodeType& type);

} // namespace host
