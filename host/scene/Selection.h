#pragma once

#include "host/graph/DagPath.h"
#include "host/graph/PlugAddress.h"

#include <cstddef>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace host {

/// One entry of the selection: a node, components of a shape, or a plug.
struct SelectionItem {
    Node* node = nullptr;
    DagPath path;                        // of a DAG node, the one that was selected; empty for other nodes
    std::vector<std::string> components; // "f[0:3]", "vtx[*]" …; the path is the shape's then
    PlugAddress plug;                    // attr is kNoAttr unless an attribute was selected

    bool isWholeNode() const { return components.empty() && plug.attr == kNoAttr; }
    /// The same node (along the same path) and the same plug, whatever the components.
    bool sameObject(const SelectionItem& other) const;
};

/// What is selected, in the order of selecting; no object stands twice. Entries go when their node (or a node of their
/// path) is deleted. Adding, removing and asking take constant time for whole nodes.
class Selection {
public:
    const std::vector<SelectionItem>& items() const;
    bool empty() const { return positions_.empty(); }
    bool contains(const SelectionItem& item) const;

    /// Moves nothing that is in already; components are added to the entry of their shape.
    void add(const SelectionItem& item);
    /// Components are taken out of their entry, which goes with its last one.
    void remove(const SelectionItem& item);
    void clear();
    void nodesDeleted(const std::unordered_set<const Node*>& nodes);

private:
    std::size_t find(const SelectionItem& item) const;
    void erase(std::size_t position);

    // Erased entries stay as holes (node is null) until the list is read, so that removing many stays linear.
    mutable std::vector<SelectionItem> items_;
    mutable std::unordered_multimap<const Node*, std::size_t> positions_;
    mutable bool hasHoles_ = false;
};

} // namespace host
