#pragma once

#include "host/graph/DagPath.h"
#include "host/graph/Graph.h"
#include "host/graph/Units.h"
#include "host/scene/OptionVars.h"
#include "host/scene/SceneNames.h"
#include "host/scene/Selection.h"
#include "host/scene/Workspace.h"

#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace host {

/// Success, or one line of text without "Error:".
struct [[nodiscard]] SceneResult {
    std::string error;
    bool ok() const { return error.empty(); }
};

/// In frames (user-interface time units).
struct PlaybackRange {
    double minimum = 1.0, maximum = 24.0;             // the part that is played
    double animationStart = 1.0, animationEnd = 48.0; // the whole
};

/// The file that the scene was opened from or saved to.
struct SceneFile {
    std::string path; // as given, with '/'; "" for a scene without a file
    bool modified = false;
    std::map<std::string, std::string> info; // fileInfo lines
    std::vector<std::string> references;     // files that the scene itself refers to, as it names them, loaded or not
};

/// What `file -exportAll` and `-exportSelected` ask for.
struct ExportRequest {
    std::string path;
    std::string type;    // name of the translator; "" when the command named none
    std::string options; // handed over unchanged
    bool hasOptions = false;
    bool selectionOnly = false;
    bool force = false;
    bool defaultExtensions = true;
    bool preserveReferences = false;
};

struct ExportOutcome {
    std::string path; // the file written
    std::string error;
};

/// The owner of one open scene: graph, names, DAG, selection, file state, units, playback range, and the workspace
/// around it. The objects that it hands out by reference live as long as it does; another scene that is opened is
/// another content of the same graph, so that ids of nodes of the old one stay dead.
///
/// Nodes are made, renamed, re-parented and deleted through it, never through the graph directly, so that the name
/// tables hold.
class Scene {
public:
    /// An empty scene with its default nodes.
    Scene();
    ~Scene();
    Scene(const Scene&) = delete;
    Scene& operator=(const Scene&) = delete;

    Graph& graph() { return *graph_; }
    const Graph& graph() const { return *graph_; }
    NodeTypeRegistry& types() { return *types_; }
    const SceneNames& names() const { return *names_; }
    NameScope& nameScope() { return names_->scope(); }
    void addNamespace(std::string name) { names_->addNamespace(std::move(name)); }
    Selection& selection() { return selection_; }
    const Selection& selection() const { return selection_; }
    Workspace& workspace() { return workspace_; }
    const Workspace& workspace() const { return workspace_; }
    OptionVars& optionVars() { return optionVars_; }
    SceneFile& file() { return file_; }
    PlaybackRange& playback() { return playback_; }
    const Units& units() const { return units_; }
    /// Changes how numbers are read and shown, not what they are; the playback range keeps its frames.
    void setUnits(const Units& units);

    // --- content
    /// Deletes everything, then makes the default nodes; units, time, playback range, selection and file are as new.
    void newScene();
    /// Replaces the content by that of a Maya ASCII file. What cannot be understood but left out is left out with a
    /// warning through onWarning; what is broken fails with "FILE:LINE:COLUMN: …", and the scene is as new then.
    SceneResult open(const std::string& path);
    /// The same with a text that need not be a file; `name` stands for it in messages.
    SceneResult openText(std::string_view text, const std::string& name);

    // --- nodes
    /// The type for a name that no table has, made as a child of `parentType` ("dependNode", "transform" or "shape").
    /// Every such type costs memory for good, so after the first thousand the others share one per parent type.
    const NodeType& unknownType(std::string_view name, std::string_view parentType);
    /// Makes a node with the name asked for, or the next free one (see SceneNames::freeName); "" takes the type's name
    /// and a number. The name is one of the current scope. DAG nodes come below `parent` (null: the world); a shape
    /// without one gets a transform of its own. Null when the parent is a shape.
    Node* createNode(const NodeType& type, std::string_view name, Node* parent = nullptr);
    /// Their DAG children go with them, unless these have another place. Default nodes cannot be deleted: nothing is
    /// then.
    SceneResult deleteNodes(const std::vector<Node*>& nodes);
    SceneResult deleteNode(Node& node) { return deleteNodes({&node}); }
    /// Gives the name or the next free one. Default nodes keep theirs.
    SceneResult renameNode(Node& node, std::string_view name);
    /// Moves the node from `oldParent` to `newParent`; a clash of names renames it. Its own attributes stay, so it
    /// moves in the world.
    SceneResult reparent(Node& node, Node& oldParent, Node& newParent);
    /// The same, with translate, rotate, scale and shear changed so that it stays where it is, as far as these are free
    /// to change.
    SceneResult reparentInPlace(Node& node, Node& oldParent, Node& newParent);
    /// One more parent: an instance.
    SceneResult addInstance(Node& node, Node& newParent);
    /// Takes one of several parents away; refused for the last one.
    SceneResult removeInstance(Node& node, Node& oldParent);
    void selectOnly(Node& node);

    // --- names
    /// A node by name, ":name", path or partial path.
    NodeMatch find(std::string_view name) const { return names_->findNode(name); }
    /// "node.attribute[index]" or "|path|node.attribute"; "" before the '.' stands for `current`. When the name's path
    /// tells an instance, a world-space attribute without an index means the element of that instance; without a path,
    /// element 0.
    struct PlugMatch {
        Plug plug;
        std::string error; // no node, or "No attribute matches name: x.y"
        bool ok() const { return static_cast<bool>(plug); }
    };
    PlugMatch findPlug(std::string_view name, Node* current = nullptr) const;
    /// Which instance of the node a name tells; 0 when it tells none.
    std::int32_t instanceOf(const Node& node, std::string_view name) const;
    /// What a selection name means: a node, components ("pCube1.f[0:3]") or a plug; with '*' and '?' in node names,
    /// everything that matches. An error when nothing does.
    SceneResult findItems(std::string_view name, std::vector<SelectionItem>& items) const;
    /// The name of an item as `ls` shows it, without its components. A DAG node without a path goes by its first one.
    std::string itemName(const SelectionItem& item, bool fullPaths) const;

    // --- time
    double currentFrame() const { return units_.frames(graph_->time()); }
    void setCurrentFrame(double frame) { graph_->setTime(units_.ticks(frame)); }

    // --- reporting and hooks
    /// Receives each warning of reading and evaluating: one line without "Warning:".
    std::function<void(const std::string&)> onWarning;
    /// Writes files for `file -ea` and `-es`; without one the commands fail.
    std::function<ExportOutcome(const ExportRequest&)> exportHandler;

private:
    void clear();
    SceneResult read(std::string_view text, const std::string& name);
    Node* makeNode(const NodeType& type, const std::string& wanted, Node* parent);
    void noteRename(const std::string& wanted, const std::string& given, const Node* parent);
    std::string freeNameFor(const Node& node, std::string_view wanted, const std::vector<Node*>& parents) const;
    SceneResult addParent(Node& node, Node& parent);
    void removeParent(Node& node, Node& parent);
    void giveName(Node& node, std::string name);

    std::unique_ptr<NodeTypeRegistry> types_;
    std::unique_ptr<Graph> graph_;
    std::unique_ptr<SceneNames> names_;
    Selection selection_;
    Workspace workspace_;
    OptionVars optionVars_;
    SceneFile file_;
    PlaybackRange playback_;
    Units units_;
    std::size_t unknownTypes_ = 0;
};

} // namespace host
