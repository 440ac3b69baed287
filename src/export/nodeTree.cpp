#include "export/nodeTree.h"

#include "common/UniqueNames.h"
#include "common/byteOrder.h"
#include "export/exportMessages.h"
#include "export/sceneWalk.h"
#include "platform/codePage.h"
#include "scene/Run.h"
#include "scene/hostCompatibility.h"
#include "scene/nodeTests.h"

#include <algorithm>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace tvk {
namespace {

using RecordList = std::vector<std::unique_ptr<NodeRecord>>;

int64_t countTops(const RecordList& nodes) {
    return std::count_if(nodes.begin(), nodes.end(), [](const auto& node) { return node->scene.depth == 0; });
}

// A model has one root. Where the scene has several, and where its nodes are united, a node of our own is put above
// them.
void addSyntheticRoot(RecordList& nodes) {
    if (countTops(nodes) < 2 && !run().options.unite) {
        return;
    }
    auto root = std::make_unique<NodeRecord>();
    root->name = kSyntheticRootName;
    root->kind = NodeKind::kRoot;
    root->hasDagNode = false;
    for (const auto& node : nodes) {
        if (node->scene.depth == 0) {
            node->scene.parent = root.get();
        }
        ++node->scene.depth;
    }
    nodes.push_back(std::move(root));
}

// By depth, then by the bytes of the written names, which are unique: a total order.
void sortNodes(RecordList& nodes) {
    std::vector<std::pair<std::string, std::unique_ptr<NodeRecord>>> keyed;
    keyed.reserve(nodes.size());
    bool lossy = false;
    for (auto& node : nodes) {
        std::string key = toShiftJis(node->name, lossy);
        keyed.emplace_back(std::move(key), std::move(node));
    }
    std::sort(keyed.begin(), keyed.end(), [](const auto& a, const auto& b) {
        const int32_t depthA = a.second->scene.depth;
        const int32_t depthB = b.second->scene.depth;
        return depthA != depthB ? depthA < depthB : bytesBefore(a.first, b.first);
    });
    for (std::size_t i = 0; i < keyed.size(); ++i) {
        nodes[i] = std::move(keyed[i].second);
        nodes[i]->index = static_cast<int32_t>(i);
        nodes[i]->listPlace = nodes[i]->index;
    }
}

// Chains the children of every record, and the top nodes, in list order.
void linkBrothers(const RecordList& nodes) {
    std::vector<NodeRecord*> lastChild(nodes.size(), nullptr);
    NodeRecord* lastTop = nullptr;
    for (const auto& owned : nodes) {
        NodeRecord& node = *owned;
        NodeRecord* const parent = node.scene.parent;
        NodeRecord*& last = parent == nullptr ? lastTop : lastChild[static_cast<std::size_t>(parent->index)];
        if (last != nullptr) {
            last->scene.brotherNext = &node;
            node.scene.brotherPrev = last;
        } else if (parent != nullptr) {
            parent->scene.child = &node;
        }
        if (parent != nullptr) {
            ++parent->scene.childCount;
        }
        last = &node;
    }
}

void resolveVisibility(const RecordList& nodes) {
    for (const auto& node : nodes) {
        const NodeRecord* const parent = node->scene.parent;
        node->visibility = isSelfVisible(*node) && (parent == nullptr || parent->visibility);
    }
}

void makeOutputList(SceneData& scene) {
    scene.outputNodes.clear();
    scene.outputNodes.reserve(scene.nodes.size());
    for (const auto& node : scene.nodes) {
        node->output = node->scene;
        scene.outputNodes.push_back(node.get());
    }
    scene.outputNodes.front()->isRoot = true;
}

MStatus reportEmpty() {
    if (run().options.quietTextureWarnings) {
        say(kNoEffectiveNodeQuiet);
        return MS::kSuccess;
    }
    say(kNoEffectiveNode);
    return MS::kFailure;
}

std::string subjectOf(const NodeRecord& node) {
    return node.hasDagNode ? textOf(node.path.partialPathName()) : node.name;
}

} // namespace

void makeNodeNamesUnique() {
    UniqueNames names;
    names.reserve(run().scene.nodes.size());
    bool lossy = false;
    for (const auto& node : run().scene.nodes) {
        const std::string written = toShiftJis(node->name, lossy);
        const std::string suffix = names.allocate(written).substr(written.size());
        if (suffix.empty()) {
            continue;
        }
        const std::string name = node->name + suffix;
        if (!run().options.quietTextureWarnings) {
            say(kNodeNameChanged, subjectOf(*node) + " -> " + name);
        }
        node->name = name;
    }
}

MStatus buildNodeTree() {
    SceneData& scene = run().scene;
    const MStatus status = walkScene(scene.nodes);
    if (!status) {
        return status;
    }
    if (scene.nodes.empty()) {
        return reportEmpty();
    }
    addSyntheticRoot(scene.nodes);
    makeNodeNamesUnique();
    sortNodes(scene.nodes);
    linkBrothers(scene.nodes);
    resolveVisibility(scene.nodes);
    makeOutputList(scene);
    // Cannot happen as long as several top nodes get a synthetic root; a model with two roots must never be written.
    if (scene.nodes.front()->scene.brotherNext != nullptr) {
        say(kSeveralRoots);
        return MS::kFailure;
    }
    return MS::kSuccess;
}

} // namespace tvk
