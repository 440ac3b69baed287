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
    /// Takes over the attributes of `parent` (may be null) at the same indices, and its compute function, DAG role,
    /// time input and `affects`.
    NodeType(std::string name, const NodeType* parent, int apiType);

    /// Adds an attribute and returns its index. Fills arrayDepth, rows and the parent's child list; a child of a
    /// computed compound is computed. Of two attributes with one name, `find` knows the first.
    AttrIndex add(Attribute attribute);

    const std::string& name() const { return name_; }
    const NodeType* parent() const { return parent_; }
    int apiType() const { return apiType_; } // a number of MFn::Type
    bool isKindOf(const NodeType& other) const;
    bool isKindOf(std::string_view typeName) const; // this type or one it derives from

    const std::vector<Attribute>& attributes() const { return attributes_; }
    /// By long or short name; kNoAttr when there is none.
    AttrIndex find(std::string_view name) const;

    /// The computed attributes without those below another one, in order.
    const std::vector<AttrIndex>& outputs() const { return outputs_; }
    /// Those of outputs() that change with this attribute, by `affects`.
    const std::vector<AttrIndex>& outputsAffectedBy(AttrIndex input) const;
    /// Those of outputs() that depend on the node's place in the DAG.
    const std::vector<AttrIndex>& worldOutputs() const { return worldOutputs_; }

    ComputeFunction compute = nullptr; // inherited when not set
    DagRole dagRole = DagRole::kNone;  // inherited
    bool known = true;                 // false: made up for a type that no table has; holds what files set
    bool timeDriven = false;           // `timeInput`, while nothing drives it, reads as the current time
    AttrIndex timeInput = kNoAttr;
    bool passesThrough = false; // set on types that are not evaluated; whoever fills the type tells the user

    /// Per input, which of outputs() change with it. A child without an entry uses its compound's; no entry (or an
    /// empty one) means all outputs, {kNoAttr} none. Dynamic attributes affect nothing but what they are connected to.
    std::vector<std::vector<AttrIndex>> affects;
    /// The API types of the families it belongs to beside its own (kReflect, kLambert …), for MObject::hasFn.
    std::vector<int> families;

private:
    std::string name_;
    const NodeType* parent_;
    int apiType_;
    std::vector<Attribute> attributes_;
    std::unordered_map<std::string, AttrIndex> byName_;
    std::vector<AttrIndex> outputs_, worldOutputs_;
};

/// Fills what follows from an attribute's place in the list that it is about to join (`parent` may be null):
/// arrayDepth, rows, computed.
void placeAttribute(Attribute& attribute, const Attribute* parent);
/// Tells a compound of its new child.
void joinCompound(Attribute& compound, const Attribute& child, AttrIndex childIndex);

/// All node types by name. The tables of host/nodes fill it; a scene adds the unknown types that it meets.
class NodeTypeRegistry {
public:
    /// Of two types with one name, `find` knows the first.
    NodeType& add(std::unique_ptr<NodeType> type);
    const NodeType* find(std::string_view name) const;
    /// A type for a name that nobody declared: derives from `parent` ("dependNode", or "transform"/"shape" when the
    /// file gives it a DAG parent), `known` is false. The type itself when the name is known by now.
    const NodeType& addUnknown(std::string_view name, std::string_view parent);
    const std::vector<std::unique_ptr<NodeType>>& all() const { return types_; }

private:
    std::vector<std::unique_ptr<NodeType>> types_;
    std::unordered_map<std::string, NodeType*> byName_;
};

} // namespace host
