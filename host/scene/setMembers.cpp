#include "host/scene/setMembers.h"

#include "host/geometry/ComponentList.h"
#include "host/graph/plugSteps.h"

#include <unordered_set>

namespace host {

namespace {

constexpr const char* kMemberArrays[] = {"dagSetMembers", "dnSetMembers"};

// "iog[1].og[3]" tells instance 1 and, with a group, the list of its components.
SelectionItem itemOf(Scene& scene, const Plug& member) {
    Graph& graph = scene.graph();
    SelectionItem item{member.node, {}, {}, {}};
    if (!member.node->isDag()) {
        return item;
    }
    const std::vector<DagPath> paths = allPaths(graph, *member.node);
    const auto instance = static_cast<std::size_t>(member.at.depth > 0 ? member.at.index[0] : 0);
    item.path = paths[instance < paths.size() ? instance : 0];
    const AttrIndex list = member.node->findAttribute("objectGrpCompList");
    if (member.at.depth != 2 || list == kNoAttr) {
        return item;
    }
    Plug components = member;
    components.at.attr = list;
    const DataPtr data = graph.data(components);
    if (data != nullptr && data->kind == DataKind::kComponentList) {
        for (const ComponentRange& range : static_cast<const ComponentList&>(*data).ranges) {
            item.components.push_back(componentText(range));
        }
    }
    return item;
}

} // namespace

bool isSet(const Node& node) {
    return node.type().isKindOf("objectSet");
}

void addMembers(Scene& scene, Node& set, std::vector<SelectionItem>& items) {
    Graph& graph = scene.graph();
    std::vector<Node*> open{&set};
    std::unordered_set<const Node*> seen{&set};
    while (!open.empty()) {
        Node* next = open.back();
        open.pop_back();
        for (const char* name : kMemberArrays) {
            const Plug array{next, graph.findPlug(*next, name)};
            for (const std::int32_t index : array ? graph.elementIndices(array) : std::vector<std::int32_t>()) {
                const Plug member = graph.sourceOf({next, array.at.element(index)});
                if (member && isSet(*member.node)) {
                    if (seen.insert(member.node).second) {
                        open.push_back(member.node);
                    }
                } else if (member) {
                    items.push_back(itemOf(scene, member));
                }
            }
        }
    }
}

} // namespace host
