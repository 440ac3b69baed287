#pragma once

#include "host/graph/Attribute.h"
#include "host/graph/PlugAddress.h"

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace host {

class Evaluation;
class Node;

/// Fills the outputs that belong together with `output` through Evaluation::put…; reads inputs through Evaluation.
/// Called only when `output` (an address of a `computed` attribute) is asked for and not in the cache.
using ComputeFunction = void (*)(Evaluation& evaluation, Node& node, const PlugAddress& output);

enum class DagRole : std::uint8_t { kNone, kTransform, kShape, kWorld };

/// A node type: a row of a table plus, for types that compute, a function. Immutable once registered.
class NodeType {
public:
    /// Takes over the attributes of `parent` (may be null) at the same indices.
    NodeType(std::string name, const NodeType* parent, int apiType);

    /// Adds an attribute and returns its index. Fills arrayDepth, rows and the parent's child list.
    AttrIndex add(Attribute attribute);

    const std::string& name() const { return name_; }
    const NodeType* parent() const { return parent_; }
    int apiType() const { return apiType_; } // a number of MFn::Type
    bool isKindOf(const NodeType& other) const;
    bool isKindOf(std::string_view typeName) const; // this type or one it derives from

    const std::vector<Attribute>& attributes() const { return attributes_; }
    /// By long or short name; kNoAttr when there is none.
    AttrIndex find(std::string_view name) const;

    ComputeFunction compute = nullptr; // inherited when not set
    DagRole dagRole = DagRole::kNone;  // inherited
    bool known = true;                 // false: made up for a type that no table has; holds what files set
    bool timeDriven = false;           // an unconnected input named `timeInput` means the current time
    AttrIndex timeInput = kNoAttr;
    bool passesThrough = false; // set on types that are not evaluated: the user is told once (see EvaluationNotes)

    /// Which computed attributes change when `input` changes; without an entry, all of them.
    std::vector<std::vector<AttrIndex>> affects;
    /// The API types of the families it belongs to beside its own (kReflect, kLambert …), for MObject::hasFn.
    std::vector<int> families;

private:
    std::string name_;
    const NodeType* parent_;
    int apiType_;
    std::vector<Attribute> attributes_;
    std::unordered_map<std::string, AttrIndex> byName_;
};

/// All node types by name. The tables of host/nodes fill it; a scene adds the unknown types that it meets.
class NodeTypeRegistry {
public:
    NodeType& add(std::unique_ptr<NodeType> type);
    const NodeType* find(std::string_view name) const;
    /// A type for a name that nobody declared: derives from `parent` ("dependNode", or "transform"/"shape" when the
    /// file gives it a DAG parent), `known` is false.
    const NodeType& addUnknown(std::string_view name, std::string_view parent);
    const std::vector<std::unique_ptr<NodeType>>& all() const { return types_; }

private:
    std::vector<std::unique_ptr<NodeType>> types_;
    std::unordered_map<std::string, NodeType*> byName_;
};

} // namespace host
