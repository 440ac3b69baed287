#include "host/scene/Scene.h"

#include "host/nodes/defaultNodes.h"
#include "host/nodes/deformerSpaces.h"
#include "host/nodes/evaluationNotes.h"
#include "host/nodes/ikCompute.h"
#include "host/nodes/nodeTypes.h"
#include "host/nodes/traxCompute.h"
#include "host/scene/MappedFile.h"
#include "host/scene/References.h"
#include "host/scene/layerNotes.h"
#include "host/scene/sceneMessages.h"
#include "host/scene/transformFit.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

namespace host {

namespace {

constexpr std::string_view kShapeEnding = "Shape";

// A shape's own name without its ending, for the transform that is made with it.
std::string transformNameFor(const NodeType& shapeType, std::string_view shapeName) {
    const std::size_t own = shapeName.rfind(':') + 1; // 0 without a namespace
    const std::size_t ending = shapeName.rfind(kShapeEnding);
    if (ending == std::string_view::npos || ending <= own) {
        return std::string(shapeName.substr(0, own)) + shapeType.name() + "1";
    }
    return std::string(shapeName.substr(0, ending)) + std::string(shapeName.substr(ending + kShapeEnding.size()));
}

std::string defaultName(const NodeType& type) {
    return type.name() + (type.dagRole == DagRole::kShape ? std::string(kShapeEnding) : std::string()) + "1";
}

// The nodes and all below them that have no place elsewhere.
std::vector<Node*> withOnlyChildren(const std::vector<Node*>& nodes) {
    std::vector<Node*> gone;
    std::unordered_set<const Node*> known;
    for (Node* node : nodes) {
        if (known.insert(node).second) {
            gone.push_back(node);
        }
    }
    for (std::size_t next = 0; next < gone.size(); ++next) {
        const std::vector<Node*> children = gone[next]->children();
        for (Node* child : children) {
            const bool isOrphan = std::all_of(child->parents().begin(), child->parents().end(),
                                              [&](const Node* parent) { return known.count(parent) != 0; });
            if (isOrphan && known.insert(child).second) {
                gone.push_back(child);
            }
        }
    }
    return gone;
}

} // namespace

Scene::Scene() : types_(std::make_unique<NodeTypeRegistry>()) {
    registerNodeTypes(*types_);
    graph_ = std::make_unique<Graph>(*types_);
    graph_->onWarning = [this](const std::string& line) {
        if (onWarning) {
            onWarning(line);
        }
    };
    names_ = std::make_unique<SceneNames>(*graph_);
    newScene();
}

Scene::~Scene() = default;

// --- content

void Scene::clear() {
    selection_.clear();
    names_->clear();
    // Children stand behind their parents mostly, so going backwards takes few nodes at once.
    std::vector<NodeId> ids;
    for (const Node* node : graph_->nodes()) {
        ids.push_back(node->id());
    }
    for (auto id = ids.rbegin(); id != ids.rend(); ++id) {
        if (Node* node = graph_->node(*id)) {
            graph_->destroy(*node);
        }
    }
    graph_->setTime(0);
    graph_->forgetWarnings();
    file_ = SceneFile();
    playback_ = PlaybackRange();
    setUnits(Units());
}

void Scene::newScene() {
    clear();
    createDefaultNodes(*graph_);
    for (Node* node : graph_->nodes()) {
        names_->add(*node);
        for (const Node* parent : node->parents()) {
            names_->addChild(*node, *parent);
        }
    }
    graph_->setTime(units_.ticks(playback_.minimum));
}

SceneResult Scene::open(const std::string& path) {
    MappedFile file;
    std::string error = openSceneFile(path, file);
    if (!error.empty()) {
        return {std::move(error)};
    }
    SceneResult result = openText(file.bytes(), path);
    if (result.ok()) {
        file_.path = path;
        std::replace(file_.path.begin(), file_.path.end(), '\\', '/');
    }
    return result;
}

void Scene::setUnits(const Units& units) {
    units_ = units;
    graph_->setFramesPerSecond(units.framesPerSecond);
}

SceneResult Scene::openText(std::string_view text, const std::string& name) {
    newScene();
    SceneResult result = read(text, name);
    if (!result.ok()) {
        newScene();
    }
    selection_.clear();
    file_.modified = false;
    return result;
}

SceneResult Scene::read(std::string_view text, const std::string& name) {
    SceneResult result = References(*this).readScene(text, name);
    tieIkChains(*graph_);
    tieClips(*graph_);
    tieDeformerSpaces(*graph_);
    if (!result.ok()) {
        return result;
    }
    const EvaluationNotes notes = findEvaluationNotes(*graph_);
    for (const std::string& warning : notes.warnings) {
        if (onWarning) {
            onWarning(warning);
        }
    }
    const std::string layer = currentLayerNote(*graph_);
    if (onWarning && !layer.empty()) {
        onWarning(layer);
    }
    return {notes.refusal.empty() ? "" : name + ": " + notes.refusal};
}

// --- nodes

const NodeType& Scene::unknownType(std::string_view name, std::string_view parentType) {
    constexpr std::size_t kMostTypes = 1000;
    const std::string shared = "unknown:" + std::string(parentType); // no file can name it
    for (const std::string_view wanted : {name, std::string_view(shared)}) {
        if (const NodeType* known = types_->find(wanted)) {
            return *known;
        }
    }
    const bool isMany = unknownTypes_++ >= kMostTypes;
    return types_->addUnknown(isMany ? std::string_view(shared) : name, parentType);
}

Node* Scene::createNode(const NodeType& type, std::string_view name, Node* parent) {
    if (type.dagRole == DagRole::kWorld || (parent != nullptr && parent->type().dagRole == DagRole::kShape)) {
        return nullptr;
    }
    const std::string wanted = SceneNames::legalName(name).empty() ? defaultName(type) : std::string(name);
    return makeNode(type, names_->scope().isPlain() ? wanted : names_->scope().nameOf(wanted), parent);
}

Node* Scene::makeNode(const NodeType& type, const std::string& wanted, Node* parent) {
    if (type.dagRole == DagRole::kNone) {
        parent = nullptr;
    } else if (parent == nullptr && type.dagRole == DagRole::kShape) {
        parent = makeNode(*types_->find("transform"), transformNameFor(type, wanted), nullptr);
    } else if (parent == nullptr) {
        parent = &graph_->world();
    }
    std::string given = names_->freeName(wanted, parent);
    if (given != wanted) {
        noteRename(wanted, given, parent);
    }
    Node& node = graph_->create(type, std::move(given));
    node.isFromReference = names_->scope().isReference;
    names_->add(node);
    if (parent != nullptr) {
        graph_->addParent(node, *parent);
        names_->addChild(node, *parent);
    }
    file_.modified = true;
    return &node;
}

// A file's own nodes never clash where the host wrote it; with the nodes of another file they may, and then the file
// goes on to name its own.
void Scene::noteRename(const std::string& wanted, const std::string& given, const Node* parent) {
    NameScope& scope = names_->scope();
    const Node* holder = parent != nullptr ? names_->child(*parent, wanted) : nullptr;
    if (holder == nullptr) {
        const std::vector<Node*> holders = names_->nodesNamed(wanted);
        holder = holders.empty() ? nullptr : holders.front();
    }
    if (holder != nullptr && (scope.isReference || holder->isFromReference)) {
        scope.renamed[wanted] = given;
    }
}

SceneResult Scene::deleteNodes(const std::vector<Node*>& nodes) {
    const std::vector<Node*> gone = withOnlyChildren(nodes);
    for (const Node* node : gone) {
        if (node->isDefault) {
            return {messages::text(messages::kDefaultNode, {node->name()})};
        }
    }
    selection_.nodesDeleted({gone.begin(), gone.end()});
    for (Node* node : gone) {
        for (Node* child : std::vector<Node*>(node->children())) {
            names_->removeChild(*child, *node);
        }
        for (const Node* parent : node->parents()) {
            names_->removeChild(*node, *parent);
        }
        names_->remove(*node);
    }
    // From the leaves up, so that no node goes before its turn.
    for (auto node = gone.rbegin(); node != gone.rend(); ++node) {
        graph_->destroy(**node);
    }
    file_.modified = true;
    return {};
}

void Scene::giveName(Node& node, std::string name) {
    for (const Node* parent : node.parents()) {
        names_->removeChild(node, *parent);
    }
    names_->remove(node);
    graph_->rename(node, std::move(name));
    names_->add(node);
    for (const Node* parent : node.parents()) {
        names_->addChild(node, *parent);
    }
}

// A name that is free below each of the parents, or outside the DAG.
std::string Scene::freeNameFor(const Node& node, std::string_view wanted, const std::vector<Node*>& parents) const {
    if (!node.isDag()) {
        return names_->freeName(wanted, nullptr);
    }
    std::string name(wanted);
    for (bool isFree = false; !isFree;) {
        isFree = true;
        for (const Node* parent : parents) {
            std::string next = names_->freeName(name, parent);
            isFree = isFree && (next == name || parents.size() == 1);
            name = std::move(next);
        }
    }
    return name;
}

SceneResult Scene::renameNode(Node& node, std::string_view name) {
    if (node.isDefault) {
        return {messages::text(messages::kDefaultNode, {node.name()})};
    }
    const std::string legal = SceneNames::legalName(name);
    if (legal.empty()) {
        return {messages::text(messages::kNoLegalName, {name})};
    }
    if (legal != node.name()) {
        giveName(node, freeNameFor(node, name, node.parents()));
        file_.modified = true;
    }
    return {};
}

SceneResult Scene::addParent(Node& node, Node& parent) {
    const bool isFree = names_->isFree(node.name(), &parent);
    GraphResult result = graph_->addParent(node, parent);
    if (!result.ok()) {
        return {std::move(result.error)};
    }
    if (!isFree) {
        // The new place is not in the tables yet, so that the name is looked for in all of them.
        std::string name = freeNameFor(node, node.name(), node.parents());
        giveName(node, std::move(name));
    }
    names_->addChild(node, parent);
    file_.modified = true;
    return {};
}

void Scene::removeParent(Node& node, Node& parent) {
    names_->removeChild(node, parent);
    graph_->removeParent(node, parent);
    file_.modified = true;
}

SceneResult Scene::reparent(Node& node, Node& oldParent, Node& newParent) {
    if (&oldParent == &newParent) {
        return {};
    }
    if (node.isDefault) {
        return {messages::text(messages::kDefaultNode, {node.name()})};
    }
    SceneResult result = addParent(node, newParent);
    if (result.ok()) {
        removeParent(node, oldParent);
    }
    return result;
}

SceneResult Scene::reparentInPlace(Node& node, Node& oldParent, Node& newParent) {
    const Matrix44 before = worldMatrixOf(*graph_, node);
    SceneResult result = reparent(node, oldParent, newParent);
    if (result.ok() && node.type().dagRole == DagRole::kTransform) {
        moveToWorldMatrix(*graph_, node, before);
    }
    return result;
}

SceneResult Scene::addInstance(Node& node, Node& newParent) {
    return addParent(node, newParent);
}

SceneResult Scene::removeInstance(Node& node, Node& oldParent) {
    if (node.parents().size() < 2) {
        return {messages::text(messages::kLastParent, {node.name()})};
    }
    removeParent(node, oldParent);
    return {};
}

void Scene::selectOnly(Node& node) {
    selection_.clear();
    std::vector<SelectionItem> items;
    if (findItems(names_->shortestName(node), items).ok()) {
        selection_.add(items.front());
    }
}

} // namespace host
