#include "host/api/setMembers.h"

#include "host/api/Host.h"
#include "host/geometry/ComponentList.h"

#include <algorithm>
#include <set>

namespace host {

namespace {

/// A child of one element of objectGroups: objectGrpCompList, objectGroupId.
Plug groupChild(const Plug& group, const char* name) {
    const AttrIndex attr = group.node->findAttribute(name);
    return attr == kNoAttr ? Plug{} : Plug{group.node, PlugAddress{attr, group.at.depth, group.at.index}};
}

/// On shapes with history the components of a group stand on a groupParts node that is driven by the same group id.
DataPtr historyComponents(const Plug& groupId) {
    Graph& graph = Host::instance().graph();
    const Plug id = groupId ? graph.sourceOf(groupId) : Plug{};
    if (!id) {
        return nullptr;
    }
    for (const Plug& user : graph.destinationsOf(id)) {
        const AttrIndex components = user.node->findAttribute("inputComponents");
        if (user.node->type().isKindOf("groupParts") && components != kNoAttr) {
            return graph.data({user.node, {components, 0, {}}});
        }
    }
    return nullptr;
}

std::vector<std::string> groupComponents(const Plug& group) {
    DataPtr data = historyComponents(groupChild(group, "objectGroupId"));
    if (!data) {
        const Plug stored = groupChild(group, "objectGrpCompList");
        data = stored ? Host::instance().graph().data(stored) : nullptr;
    }
    std::vector<std::string> texts;
    if (const auto* list = dynamic_cast<const ComponentList*>(data.get())) {
        std::transform(list->ranges.begin(), list->ranges.end(), std::back_inserter(texts), componentText);
    }
    return texts;
}

DagPath pathAt(const Node& node, std::int32_t instance) {
    const std::vector<DagPath> paths = allPaths(Host::instance().graph(), node);
    const auto at = static_cast<std::size_t>(instance);
    return at < paths.size() ? paths[at] : DagPath();
}

class Collector {
public:
    explicit Collector(bool flatten) : flatten_(flatten) {}

    void collect(Node& set) {
        if (!seen_.insert(&set).second) {
            return;
        }
        addInputs(set, "dagSetMembers");
        addInputs(set, "dnSetMembers");
    }

    std::vector<SelectionItem> items;

private:
    void addInputs(Node& set, const char* inputs) {
        const AttrIndex attr = set.findAttribute(inputs);
        for (const auto& [at, source] : set.incoming()) {
            if (at.attr == attr) {
                addMember(source);
            }
        }
    }

    void addMember(const Plug& source) {
        if (flatten_ && source.node->type().isKindOf("objectSet")) {
            collect(*source.node);
            return;
        }
        SelectionItem item;
        item.node = source.node;
        if (source.node->isDag()) {
            item.path = pathAt(*source.node, source.at.depth > 0 ? source.at.index[0] : 0);
        }
        if (source.node->attribute(source.at.attr).longName == "objectGroups") {
            item.components = groupComponents(source);
        }
        items.push_back(std::move(item));
    }

    bool flatten_;
    std::set<const Node*> seen_;
};

} // namespace

std::vector<SelectionItem> membersOf(Node& set, bool flatten) {
    Collector collector(flatten);
    collector.collect(set);
    return std::move(collector.items);
}

} // namespace host
