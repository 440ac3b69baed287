#pragma once

#include "host/graph/DagPath.h"
#include "host/scene/NameScope.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

namespace host {

/// What a name stands for: a node, or one line that says why not.
struct NodeMatch {
    Node* node = nullptr;
    bool isAmbiguous = false;
    std::string error; // "No object matches name: x", "More than one object matches name: x"
    bool ok() const { return node != nullptr; }
};

/// The names of a scene's nodes, hashed.
///
/// Nodes outside the DAG have names of their own; DAG nodes may share a name when no parent has both. Names carry their
/// namespaces ("ns:a"); a leading ':' stands for the root namespace and may be left out. A node is named by its short
/// name, by a full path ("|a|b") or by the end of one ("a|b").
class SceneNames {
public:
    explicit SceneNames(const Graph& graph) : graph_(graph) {}

    // --- making names
    /// The name that a node gets when `wanted` is asked for: illegal bytes become '_' (letters, digits, '_', ':' and
    /// everything beyond ASCII are legal, a digit may not come first), a '#' at the end becomes the first free number,
    /// and a taken name gets the first free number behind its text ("a" a1, "a7" a8).
    /// `parent` is the DAG parent, or null for nodes outside the DAG.
    std::string freeName(std::string_view wanted, const Node* parent) const;
    static std::string legalName(std::string_view wanted);
    /// Whether `name` may be given to a node with this parent.
    bool isFree(std::string_view name, const Node* parent) const;

    // --- keeping the tables; every node and every parent of it, once
    void add(Node& node);
    void addChild(Node& node, const Node& parent);
    void removeChild(const Node& node, const Node& parent);
    void remove(const Node& node); // after its parents were taken away
    void clear();

    // --- namespaces
    /// How names are read and given now. Not plain while a file is read into a namespace, and behind `namespace -set`.
    NameScope& scope() { return scope_; }
    const NameScope& scope() const { return scope_; }
    /// Namespaces that were made for themselves, by a reference or by `namespace -add`: "a:b", without ':' at the end.
    void addNamespace(std::string name) { namespaces_.insert(std::move(name)); }
    bool isNamespaceMade(const std::string& name) const { return namespaces_.count(name) != 0; }
    /// The same, or one that is part of a node's name. Costs a look at every name.
    bool isNamespace(const std::string& name) const;

    // --- looking up, by names as the scope has them; what is not there is looked for in the root namespace, where a
    // referenced file finds default nodes only
    /// The one node of that name. Several paths to one node are one node.
    NodeMatch findNode(std::string_view name) const;
    /// The same with the path that the name tells: the first one when it tells none. Costs the length of the path.
    NodeMatch findPath(std::string_view name, DagPath& path) const;
    /// All nodes that have this short name, in no order.
    std::vector<Node*> nodesNamed(std::string_view shortName) const;
    /// The DAG child of that name.
    Node* child(const Node& parent, std::string_view name) const;

    // --- telling names
    /// Shortest name that findNode understands: the short name, or as much of the path as makes it unique.
    std::string shortestName(const Node& node) const;
    /// The same for one path of a node.
    std::string shortestName(const DagPath& path) const;

private:
    struct Bearers { // nodes of one short name; mostly one, so the set is made only when there are more
        Node* single = nullptr;
        std::unique_ptr<std::unordered_set<Node*>> more;
        std::size_t count() const { return more != nullptr ? more->size() : (single != nullptr ? 1 : 0); }
    };
    struct ChildKey {
        const Node* parent;
        std::string_view name; // points into the node's own name
        friend bool operator==(const ChildKey& a, const ChildKey& b) {
            return a.parent == b.parent && a.name == b.name;
        }
    };
    struct ChildHash {
        std::size_t operator()(const ChildKey& key) const;
    };
    struct CountKey { // by id: another node may get the address of a deleted parent
        NodeId parent;
        std::uint32_t start = 0;
        friend bool operator==(const CountKey& a, const CountKey& b) {
            return a.parent == b.parent && a.start == b.start;
        }
    };
    struct CountHash {
        std::size_t operator()(const CountKey& key) const;
    };
    struct EndMatch {
        DagPath nodes; // one per part of the name
        bool isOnlyWay = true;
    };

    NodeMatch findAbsolute(std::string_view name) const;
    // The same for a name of the scope; `absolute` becomes the name that was found.
    NodeMatch findInScope(std::string_view name, std::string& absolute) const;
    const Bearers* bearers(std::string_view name) const;
    void forgetCounts(std::string_view name);
    Node* walkDown(Node* from, const std::vector<std::string_view>& parts, std::size_t first, DagPath& path) const;
    // Up to `limit` nodes at the ends of paths that end in these parts, each node once.
    std::vector<EndMatch> endsMatching(const std::vector<std::string_view>& parts, std::size_t limit) const;
    bool matchUpwards(const std::vector<std::string_view>& parts, std::size_t last, Node* from, EndMatch& match) const;

    const Graph& graph_;
    NameScope scope_;
    std::set<std::string> namespaces_;
    std::unordered_map<std::string, Bearers> byName_;
    std::unordered_map<ChildKey, Node*, ChildHash> children_;
    // Where counting goes on, by the text before the number. Numbers below are all taken; when a name with that text
    // becomes free, counting starts anew, so that the result is always that of trying one after the other.
    mutable std::unordered_map<std::string, std::unordered_map<CountKey, std::uint32_t, CountHash>> counts_;
};

/// Whether a name matches a pattern: '*' any run and '?' any one character, neither of them ':' or '|'.
bool matchesPattern(std::string_view pattern, std::string_view name);
constexpr bool isPattern(std::string_view name) {
    return name.find_first_of("*?") != std::string_view::npos;
}

} // namespace host
