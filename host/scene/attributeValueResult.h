#pragma once

#include "host/mel/Value.h"
#include "host/scene/Scene.h"

#include <string>

namespace host {

/// What getAttr gives for a plug, in the scene's units: int for whole-number kinds, float, string, float[] for
/// compounds of numbers (children in order), for matrices (16, row by row) and for lists of numbers, string[] for lists
/// of texts and of components. None when the plug holds nothing that MEL can show.
mel::Value attributeValue(Scene& scene, const Plug& plug);

/// The word of the attribute's type: that of the file which made it, else "double3", "doubleLinear", "bool" …
std::string attributeTypeName(const Node& node, AttrIndex attr);

} // namespace host
