#pragma once

#include "host/graph/NodeType.h"
#include "host/graph/Value.h"

#include <map>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace host {

/// Stays valid when the node is deleted: the generation no longer matches then. {0, 0} is no node.
struct NodeId {
    std::uint32_t slot = 0;
    std::uint32_t generation = 0;
    friend bool operator==(NodeId a, NodeId b) { return a.slot == b.slot && a.generation == b.generation; }
};

struct PlugFlags {
    bool locked = false;
    std::optional<bool> keyable, channelBox; // what setAttr changed; otherwise the attribute's own
};

/// One node of the graph: its type, stored values, connections, cached outputs and place in the DAG.
/// Nodes are made, connected, renamed and deleted through Graph; the members here are for reading.
class Node {
public:
    Node(NodeId id, const NodeType& type, std::string name);

    NodeId id() const { return id_; }
    const NodeType& type() const { return *type_; }
    const std::string& name() const { return name_; } // with namespace, without DAG path

    /// Attributes of the type, then dynamic ones.
    AttrIndex attributeCount() const;
    const Attribute& attribute(AttrIndex attr) const;
    /// By long or short name or alias of a top-level attribute; kNoAttr when there is none.
    AttrIndex findAttribute(std::string_view attrName) const;
    /// Adds a dynamic attribute (a child names its `parent`); returns kNoAttr when the name is taken.
    AttrIndex addAttribute(Attribute attribute);

    bool isDag() const { return type_->dagRole != DagRole::kNone; }
    /// DAG parents in the order in which they were given; several when the node is instanced. The world node for top
    /// nodes.
    const std::vector<Node*>& parents() const { return parents_; }
    const std::vector<Node*>& children() const { return children_; } // DAG order

    const std::map<PlugAddress, Plug>& incoming() const { return incoming_; }      // destination here -> source
    const std::multimap<PlugAddress, Plug>& outgoing() const { return outgoing_; } // source here -> destinations
    const std::map<std::string, PlugAddress>& aliases() const { return aliases_; }
    const PlugFlags* flags(const PlugAddress& at) const;

    bool isDefault = false; // one of the nodes that every new scene has
    bool isFromReference = false;
    std::string uuid;

private:
    friend class Graph;
    friend class Evaluation;

    NodeId id_;
    const NodeType* type_;
    std::string name_;
    Block values_;
    std::vector<Attribute> dynamic_;
    std::unordered_map<std::string, AttrIndex> dynamicByName_;
    std::map<std::string, PlugAddress> aliases_;
    std::map<PlugAddress, PlugFlags> flags_;
    std::map<PlugAddress, Plug> incoming_;
    std::multimap<PlugAddress, Plug> outgoing_;
    std::vector<Node*> parents_;
    std::vector<Node*> children_;
    std::map<PlugAddress, Value> cache_; // computed outputs; what is here is clean
};

} // namespace host
