#pragma once

#include "host/api/IndexSet.h"
#include "host/graph/Node.h"

#include <maya/MFn.h>
#include <maya/MFnNumericData.h>

#include <array>
#include <string>
#include <variant>
#include <vector>

namespace host {

class Plugin;

/// An attribute: of a node type, at its place in the topmost type that has it, so that a transform's and a mesh's
/// visibility are one; or a dynamic one of a node.
struct AttributeObject {
    const NodeType* type = nullptr; // null for dynamic attributes
    NodeId node;                    // of dynamic attributes
    AttrIndex attr = kNoAttr;
};

/// Two to four numbers: the value of a compound of numbers.
struct NumericValue {
    MFnNumericData::Type type = MFnNumericData::kInvalid;
    std::array<double, 4> numbers{};
};

/// A value of a plug. Function sets for data may change it in place.
struct DataObject {
    std::variant<NumericValue, Matrix44, std::string, DataPtr> value;
};

/// Components of one kind of a shape. Function sets for components may change it in place.
struct ComponentObject {
    MFn::Type type = MFn::kComponent;
    IndexSet indices;               // of kinds that are counted with one number: vertices, edges, faces …
    std::vector<std::string> texts; // of all others, as names write them: "vtxFace[3][1]", "cv[0:3][*]"
};

/// A plug-in while its entry points run.
struct PluginObject {
    Plugin* plugin = nullptr; // null once the entry point has returned
};

/// What an MObject that is no node stands for.
struct ObjectPayload {
    std::variant<AttributeObject, DataObject, ComponentObject, PluginObject> what;
};

} // namespace host
