#pragma once

#include "host/graph/Node.h"
#include "host/graph/Units.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace host {

class DirtyPropagation;
struct StoredPlace;

/// What setting or connecting can say. `ok()` or one line of text without a full stop, naming the plug.
struct GraphResult {
    std::string error;
    bool ok() const { return error.empty(); }
};

/// The dependency graph of one scene: owns the nodes, their connections and the current time, and answers what any
/// plug's value is now. Values in and out are in internal units (centimetres, radians, ticks).
///
/// Evaluation is by pull: reading a plug computes what is not in the cache; changing a value, a connection, the time or
/// the DAG drops exactly the cached outputs that depend on it. Cycles give the stored value and one warning per plug.
class Graph {
public:
    explicit Graph(NodeTypeRegistry& types);
    ~Graph();

    NodeTypeRegistry& types() { return types_; }

    // --- nodes
    /// A DAG node has no place until addParent gives it one (the world for a top node). Names are not checked.
    Node& create(const NodeType& type, std::string name);
    /// Disconnects, unparents and frees it (DAG children with it when this was their only parent). The world stays.
    void destroy(Node& node);
    void rename(Node& node, std::string name);
    Node* node(NodeId id) const; // null when it is gone
    /// Creation order, without the world. Valid until the next create or destroy.
    const std::vector<Node*>& nodes() const;
    Node& world() const; // the DAG root: not exported, not named in files

    // --- DAG
    /// Adds `parent` to the node's parents. Refuses a cycle (`a` below itself), a shape as parent, and a parent given
    /// twice.
    GraphResult addParent(Node& node, Node& parent);
    GraphResult removeParent(Node& node, Node& parent);
    bool isAncestor(const Node& ancestor, const Node& node) const;
    /// Changes whenever a node loses a parent, and is never the same in two graphs: as long as it stays, what was a way
    /// down the DAG is one.
    std::uint64_t lossOfParents() const;

    // --- plugs by name: "a", "a.b", "a[3].b[0:2]" without the node. Ranges are in PlugRange (parsePlugPath.h).
    /// Address of an attribute path on this node, indices included; attr is kNoAttr when there is none, or when the
    /// path is a range. `instance`: the index of a world-space array on the way that has none (findPlugRange).
    PlugAddress findPlug(const Node& node, std::string_view path, std::int32_t instance = 0) const;
    /// "long.names[2].of" as the host prints it, without the node: compounds that are not in an array are left out.
    std::string plugName(const Node& node, const PlugAddress& at, bool longNames) const;

    // --- connections
    /// Refuses unknown or unreadable/unwritable plugs, incompatible kinds, and locked destinations; an existing source
    /// is replaced only with `force`.
    GraphResult connect(const Plug& source, const Plug& destination, bool force);
    GraphResult disconnect(const Plug& source, const Plug& destination);
    /// The plug that is connected to exactly this plug; null when none.
    Plug sourceOf(const Plug& destination) const;
    /// The source that drives this plug: its own, or the matching child/element of what drives an ancestor compound.
    Plug drivingSource(const Plug& destination) const;
    std::vector<Plug> destinationsOf(const Plug& source) const;
    /// Whether a connection arrives at this plug, at one that it is part of, or at one that is part of it. When not,
    /// what is stored is all there is, so bulk readers may read storedRows.
    bool isDriven(const Plug& plug) const;
    /// Whether this plug, or one that it is part of, is locked.
    bool isLocked(const Plug& plug) const;
    /// Lowest logical index that is neither stored nor connected, for `connectAttr -nextAvailable`.
    std::int32_t nextAvailableIndex(const Plug& array) const;
    /// Logical indices that are stored, connected or (world-space arrays) exist per path; ascending.
    std::vector<std::int32_t> elementIndices(const Plug& array) const;

    // --- ties: what the host does without connections, as when inverse kinematics turns joints. Nothing that tells
    // connections shows them, and they hinder nobody from setting or connecting. They end with either node.
    /// `follower` counts as changed whenever `cause` does.
    void tie(const Plug& cause, const Plug& follower);
    /// `follower` reads as `cause`, whatever is stored or connected there; of two compounds, each part as its match.
    /// A plug that is overridden already stays as it is.
    void overrideValue(const Plug& cause, const Plug& follower);
    /// Where the value of this plug comes from: what overrides it or what it is part of, else drivingSource.
    Plug valueSource(const Plug& plug) const;
    /// The number that is stored or connected here, as if nothing overrode it.
    double numberBeneath(const Plug& plug);

    // --- values now. A plug that holds no value of the kind asked for (a compound, a whole array, another kind) gives
    // 0, "", the identity or null.
    double number(const Plug& plug);
    std::string string(const Plug& plug);
    Matrix44 matrix(const Plug& plug);
    DataPtr data(const Plug& plug); // null when there is none

    // --- stored values. Setting a connected or locked plug is refused; computed outputs too.
    GraphResult setNumber(const Plug& plug, double value);
    GraphResult setString(const Plug& plug, std::string value);
    GraphResult setMatrix(const Plug& plug, const Matrix44& value);
    GraphResult setData(const Plug& plug, DataPtr value);
    /// The rows of a `rows` array, made when missing, for bulk writing; call changed(array) afterwards. No checks: the
    /// plug must be the whole array of an attribute with `rows`.
    NumberRows& rowsForWriting(const Plug& array);
    const NumberRows* storedRows(const Plug& array) const;
    /// Null when nothing is stored. Elements of a `rows` array have no Value of their own: see storedRows.
    const Value* stored(const Plug& plug) const;
    bool hasStored(const Plug& plug) const; // elements of `rows` arrays included
    void setFlags(const Plug& plug, const PlugFlags& flags);
    void setAlias(Node& node, std::string alias, const PlugAddress& at);
    /// Whether a value may be set here, and if not why: "a.b is locked", "a.b is connected", "a.b is computed" (a.b
    /// being the plug asked for; a lock or connection of what it is part of counts).
    GraphResult isFreeToChange(const Plug& plug) const;

    // --- change
    /// Drops every cached output that depends on this plug, and the plug itself when it is one.
    void changed(const Plug& plug);

    // --- time
    Ticks time() const { return time_; }
    /// Drops what depends on the current time, and nothing else. Nodes of type "time" keep it in outTime and
    /// unwarpedTime; setNumber on such an outTime does the same as this.
    void setTime(Ticks time);
    /// How many frames of the user's time unit a second has; nodes that count frames ask for it.
    double framesPerSecond() const { return framesPerSecond_; }
    void setFramesPerSecond(double frames);

    // --- reporting
    /// Receives each one-line warning of evaluation (a cycle, a node type that passes its input through); never the
    /// same line twice.
    std::function<void(const std::string&)> onWarning;
    /// Gives `onWarning` a line unless it had it before.
    void warn(const std::string& text) const;
    /// Every line may be told again: another scene begins.
    void forgetWarnings();
    /// Counts compute calls, for tests of "asking twice computes once".
    std::size_t computeCount() const;
    bool isCached(const Plug& output) const;
    /// Counts the plugs and nodes that dropping has looked at, for tests of what a change costs.
    std::size_t dropCount() const;

private:
    friend class Evaluation;
    friend class DirtyPropagation;
    friend class PathCounter;
    struct Impl;

    void release(Node& node);
    void storeTime(Node& timeNode);
    void dropTimeDriven();

    void takeFromParent(Node& node, std::size_t parentIndex);
    std::vector<Node*> takeOutOfDag(Node& node, DirtyPropagation& dropped);

    GraphResult checkEnds(const Plug& source, const Plug& destination) const;
    void takeConnection(Node& destinationNode, const PlugAddress& destination);
    void disconnectAll(Node& node, DirtyPropagation& dropped);
    static void untie(Node& node, DirtyPropagation& dropped);
    bool isOwnerConnected(const Plug& plug) const;
    bool isElementUsed(const Plug& element) const;
    void noteFreed(const Plug& plug);

    GraphResult checkSettable(const Plug& plug, bool holdsThis, const char* what) const;

    const Value* valueNow(const Plug& plug);
    StoredPlace placeNow(const Plug& end);
    const Value* computedValue(const Plug& output);
    bool makeRoom(const Plug& output);
    double numberAt(const Plug& end);
    void warnOfCycle(const Plug& plug, bool isCycle);
    void putCached(Node& node, const PlugAddress& at, Value value);
    void forgetWorldDropped(Node& node);

    NodeTypeRegistry& types_;
    Ticks time_ = 0;
    double framesPerSecond_ = Units().framesPerSecond;
    std::unique_ptr<Impl> impl_;
};

} // namespace host
