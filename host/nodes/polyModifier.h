#pragma once

#include "host/geometry/ComponentList.h"
#include "host/graph/Evaluation.h"

#include <memory>

namespace host {

/// What all modifiers inherit from "polyModifier".
struct ModifierAttributes {
    AttrIndex input, components, matrix, worldSpace;
};
const ModifierAttributes& modifierAttributes(const Node& modifier);

/// The component list that an attribute of a node holds; an empty one when it holds none.
std::shared_ptr<const ComponentList> componentsOf(Evaluation& evaluation, Node& node, AttrIndex attr);
/// What a modifier works on.
std::shared_ptr<const ComponentList> chosenOf(Evaluation& evaluation, Node& modifier);
/// From the space of the mesh to the one that a modifier works in: the world, or the same.
Matrix44 workingSpace(Evaluation& evaluation, Node& modifier);

} // namespace host
