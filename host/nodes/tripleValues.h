#pragma once

#include "host/graph/Evaluation.h"

#include <Imath/ImathVec.h>

namespace host {

/// The three numbers of a compound outside arrays; `first` is the attribute of the first, the others follow it.
inline Imath::V3d readTriple(Evaluation& evaluation, Node& node, AttrIndex first) {
    return {evaluation.number(node, first), evaluation.number(node, first + 1), evaluation.number(node, first + 2)};
}

/// The same of one element of an array: `element` is the address of the compound that holds the three, or of the
/// element that they stand in.
inline Imath::V3d readTriple(Evaluation& evaluation, Node& node, AttrIndex first, const PlugAddress& element) {
    PlugAddress at = element;
    Imath::V3d result;
    for (int i = 0; i < 3; ++i) {
        at.attr = first + i;
        result[i] = evaluation.number(node, at);
    }
    return result;
}

inline void putTriple(Evaluation& evaluation, Node& node, AttrIndex first, const Imath::V3d& value) {
    for (int i = 0; i < 3; ++i) {
        evaluation.putNumber(node, {first + i, 0, {}}, value[i]);
    }
}

} // namespace host
