#pragma once

#include "host/graph/NodeType.h"
#include "host/graph/Value.h"

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <set>
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

/// The source of a connection, and where the source's node keeps the other end of it.
struct IncomingLink : Plug {
    std::multimap<PlugAddress, Plug>::iterator outgoing;
};

/// What the host does to a node without connections; see Graph::tie and Graph::overrideValue.
struct Ties {
    std::multimap<PlugAddress, Plug> followers; // cause here -> plugs that change with it
    std::multimap<PlugAddress, Plug> causes;    // follower here -> what it changes with
    std::map<PlugAddress, Plug> overrides;      // follower here -> whose value it has
};

/// Which elements of an array may be free: all from `highWater` on that are not in use, and those in `freed` that are
/// not in use again. Lets the next free index be found without looking at every element.
struct FreeIndices {
    std::int32_t highWater = 0;
    std::set<std::int32_t> freed;
};

/// One node of the graph: its type, stored values, connections, cached outputs and place in the DAG.
/// Nodes are made, connected, renamed and deleted through Graph; the members here are for reading.
class Node {
public:
    Node(NodeId id, const NodeType& type, std::string name);
    Node(const Node&) = delete;
    Node& operator=(const Node&) = delete;

    NodeId id() const { return id_; }
    const NodeType& type() const { return *type_; }
    const std::string& name() const { return name_; } // with namespace, without DAG path

    /// Attributes of the type, then dynamic ones.
    AttrIndex attributeCount() const;
    const Attribute& attribute(AttrIndex attr) const;
    /// By long name, short name or alias; children of compounds too. kNoAttr when there is none.
    AttrIndex findAttribute(std::string_view attrName) const;
    /// Adds a dynamic attribute (a child names its `parent`, which must be a dynamic compound); returns kNoAttr when a
    /// name is taken or empty, the parent is not such a compound, or it would lie in more than
    /// PlugAddress::kMaxDepth arrays. A child that joins a compound array drops what the array stored until then.
    AttrIndex addAttribute(Attribute attribute);

    bool isDag() const { return type_->dagRole != DagRole::kNone; }
    /// DAG parents in the order in which they were given; several when the node is instanced. The world node for top
    /// nodes.
    const std::vector<Node*>& parents() const { return parents_; }
    /// In the order in which they were given this parent. Valid until the next change of the DAG.
    const std::vector<Node*>& children() const {
        if (goneChildren_ != 0) {
            closeChildGaps();
        }
        return children_;
    }

    const std::map<PlugAddress, IncomingLink>& incoming() const { return incoming_; } // destination here -> source
    const std::multimap<PlugAddress, Plug>& outgoing() const { return outgoing_; }    // source here -> destinations
    const Ties* ties() const { return ties_.get(); }                                  // null when there are none
    const std::map<std::string, PlugAddress>& aliases() const { return aliases_; }
    const PlugFlags* flags(const PlugAddress& at) const;

    bool isDefault = false; // one of the nodes that every new scene has
    bool isFromReference = false;
    std::string uuid;

private:
    friend class Graph;
    friend class Evaluation;
    friend class DirtyPropagation;
    friend class PathCounter;

    void closeChildGaps() const;
    void dropStoredArray(AttrIndex compound);

    NodeId id_;
    const NodeType* type_;
    std::string name_;
    Block values_;
    std::vector<Attribute> dynamic_;
    std::unordered_map<std::string, AttrIndex> dynamicByName_;
    std::map<std::string, PlugAddress> aliases_;
    std::map<PlugAddress, PlugFlags> flags_;
    std::map<PlugAddress, IncomingLink> incoming_;
    std::multimap<PlugAddress, Plug> outgoing_;
    std::map<PlugAddress, FreeIndices> freeIndices_; // of the arrays that nextAvailableIndex was asked about
    std::unique_ptr<Ties> ties_;                     // few nodes have some
    std::map<PlugAddress, Value> cache_;             // computed outputs; what is here is clean

    std::vector<Node*> parents_;
    std::vector<std::uint32_t> placeInParent_; // per parent: where this node stands in its children_
    // A child that goes leaves a null behind until somebody looks, so that thousands can go one by one.
    mutable std::vector<Node*> children_;
    mutable std::size_t goneChildren_ = 0;

    // No world-space output of this node, or of any node below it, is in a cache. While this is false it is false for
    // every ancestor too.
    bool worldDropped_ = true;
    mutable std::size_t pathCount_ = 0; // valid while pathVersion_ is the graph's
    mutable std::uint64_t pathVersion_ = 0;
};

} // namespace host
