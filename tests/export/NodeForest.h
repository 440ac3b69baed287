#pragma once

#include "scene/SceneData.h"

#include <map>
#include <memory>
#include <string>

namespace tvk {

/// Records as the node tree leaves them, made by name: parents first, children in the order in which they are added.
class NodeForest {
public:
    /// Adds a node below `parent`; the first one is the root.
    NodeRecord& add(const std::string& name, const std::string& parent = {}) {
        auto owned = std::make_unique<NodeRecord>();
        NodeRecord& node = *owned;
        node.name = name;
        node.index = static_cast<int32_t>(scene.nodes.size());
        node.isRoot = scene.nodes.empty();
        if (!parent.empty()) {
            hang(node, (*this)[parent]);
        }
        node.output = node.scene;
        byName_[name] = &node;
        scene.nodes.push_back(std::move(owned));
        scene.outputNodes.push_back(&node);
        return node;
    }

    NodeRecord& operator[](const std::string& name) { return *byName_.at(name); }

    /// The output hierarchy as text: "root(a(b) c)". Checks that list, links and counts agree.
    std::string text() const;

    SceneData scene;

private:
    static void hang(NodeRecord& node, NodeRecord& parent) {
        node.scene.parent = &parent;
        node.scene.depth = parent.scene.depth + 1;
        NodeRecord* last = parent.scene.child;
        while (last != nullptr && last->scene.brotherNext != nullptr) {
            last = last->scene.brotherNext;
        }
        (last == nullptr ? parent.scene.child : last->scene.brotherNext) = &node;
        node.scene.brotherPrev = last;
        ++parent.scene.childCount;
        parent.output = parent.scene;
        if (last != nullptr) {
            last->output = last->scene;
        }
    }

    std::map<std::string, NodeRecord*> byName_;
};

} // namespace tvk
