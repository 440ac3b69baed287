#include "export/nodeCompression.h"

#include "scene/ExportOptions.h"

namespace tvk {
namespace {

class Compression {
public:
    explicit Compression(SceneData& scene) : scene_(scene), root_(scene.nodes.front().get()) {}

    void cull() {
        for (const auto& node : scene_.nodes) {
            for (NodeRecord* leaf = node.get(); isUseless(*leaf) && leaf->output.child == nullptr;) {
                NodeRecord* const parent = leaf->output.parent;
                remove(*leaf);
                leaf = parent;
            }
        }
    }

    // Parents come first in the list, so each record changes its parent at most once.
    void merge() {
        for (const auto& node : scene_.nodes) {
            if (isUseless(*node)) {
                remove(*node);
            }
        }
    }

    void collapseRoot(bool evenOfTheScene) {
        NodeRecord* const only = root_->output.childCount == 1 ? root_->output.child : nullptr;
        if (only == nullptr || root_->keep || (root_->hasDagNode && !evenOfTheScene)) {
            return;
        }
        root_->removed = true;
        root_->isRoot = false;
        root_ = only;
        root_->isRoot = true;
        root_->output.parent = nullptr;
    }

    // Flat: the root and the protected nodes below it.
    void unite() {
        NodeRecord* last = nullptr;
        for (const auto& owned : scene_.nodes) {
            NodeRecord& node = *owned;
            node.output = NodeLinks();
            if (&node == root_) {
                continue;
            }
            node.removed = !node.noCut;
            if (node.removed) {
                continue;
            }
            node.output.parent = root_;
            node.output.brotherPrev = last;
            (last == nullptr ? root_->output.child : last->output.brotherNext) = &node;
            last = &node;
            ++root_->output.childCount;
        }
    }

    // Of removed nodes as well: a child counts on from its parent.
    void countFolded() {
        for (const auto& node : scene_.nodes) {
            const NodeRecord* const above = node->scene.parent;
            const bool isFolded = above != nullptr && above->removed && above->hasDagNode;
            node->foldedCount = isFolded ? above->foldedCount + 1 : 0;
        }
    }

    void rebuildList() {
        scene_.outputNodes.clear();
        for (const auto& node : scene_.nodes) {
            if (node->removed) {
                continue;
            }
            const NodeRecord* const parent = node->output.parent;
            node->output.depth = parent == nullptr ? 0 : parent->output.depth + 1;
            node->index = static_cast<int32_t>(scene_.outputNodes.size());
            scene_.outputNodes.push_back(node.get());
        }
    }

private:
    bool isUseless(const NodeRecord& node) const { return !node.removed && &node != root_ && !node.keep; }

    // Puts the children, in their order, in the node's place. Only for nodes below the root.
    static void remove(NodeRecord& node) {
        NodeLinks& links = node.output;
        NodeRecord& parent = *links.parent;
        NodeRecord* first = links.child;
        NodeRecord* last = nullptr;
        for (NodeRecord* child = first; child != nullptr; child = child->output.brotherNext) {
            child->output.parent = &parent;
            last = child;
        }
        if (last != nullptr) {
            first->output.brotherPrev = links.brotherPrev;
            last->output.brotherNext = links.brotherNext;
        } else {
            first = links.brotherNext;
            last = links.brotherPrev;
        }
        (links.brotherPrev == nullptr ? parent.output.child : links.brotherPrev->output.brotherNext) = first;
        if (links.brotherNext != nullptr) {
            links.brotherNext->output.brotherPrev = last;
        }
        parent.output.childCount += links.childCount - 1;
        node.removed = true;
        links = NodeLinks();
    }

    SceneData& scene_;
    NodeRecord* root_;
};

} // namespace

void markKeptNodes(SceneData& scene) {
    for (const auto& node : scene.nodes) {
        node->keep = node->noCut || node->hasFaces || node->drawMtx || node->billboard != Billboard::kOff;
    }
}

void compressNodes(SceneData& scene, int32_t mode) {
    if (scene.nodes.empty() || mode <= kOptimizeNone || mode > kOptimizeUniteCombine) {
        return;
    }
    Compression compression(scene);
    if (mode == kOptimizeCull || mode == kOptimizeMerge) {
        compression.cull();
        compression.collapseRoot(false);
        if (mode == kOptimizeMerge) {
            compression.merge();
        }
        compression.collapseRoot(mode == kOptimizeMerge);
        compression.countFolded();
    } else {
        compression.unite();
    }
    compression.rebuildList();
}

} // namespace tvk
