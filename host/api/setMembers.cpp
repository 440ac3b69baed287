#include "host/api/setMembers.h"

#include "host/api/Host.h"
#include "host/api/componentKinds.h"
#include "host/geometry/ComponentList.h"
#include "host/nodes/meshQueries.h"

#include <algorithm>
#include <iterator>
#include <memory>
#include <set>
#include <unordered_map>
#include <utility>

namespace host {

namespace {

/// Shapes other than meshes have what they store.
std::shared_ptr<const ComponentList> storedComponents(Node& shape, std::int32_t instance, std::int32_t group) {
    const PlugAddress lists{shape.findAttribute("objectGrpCompList"), 0, {}};
    const DataPtr data = Host::instance().graph().data({&shape, lists.element(instance).element(group)});
    return std::dynamic_pointer_cast<const ComponentList>(data);
}

std::vector<ComponentRange> rangesOf(Node& shape, std::int32_t instance, std::int32_t group) {
    const auto list = shape.type().isKindOf("mesh") ? groupComponents(Host::instance().graph(), shape, instance, group)
                                                    : storedComponents(shape, instance, group);
    return list ? list->ranges : std::vector<ComponentRange>();
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
        if (source.at.depth == 2 && source.node->attribute(source.at.attr).longName == "objectGroups") {
            const std::vector<ComponentRange> ranges = rangesOf(*source.node, source.at.index[0], source.at.index[1]);
            std::transform(ranges.begin(), ranges.end(), std::back_inserter(item.components), componentText);
            if (ranges.empty()) {
                return;
            }
        }
        items.push_back(std::move(item));
    }

    bool flatten_;
    std::set<const Node*> seen_;
};

/// The sets that a plug of instObjGroups goes into.
std::vector<Node*> setsBehind(const Plug& member) {
    std::vector<Node*> sets;
    for (const Plug& user : Host::instance().graph().destinationsOf(member)) {
        if (user.node->type().isKindOf("objectSet") && user.node->attribute(user.at.attr).longName == "dagSetMembers") {
            sets.push_back(user.node);
        }
    }
    return sets;
}

/// Gathers what sets have of an instance, each set once however many plugs lead to it.
class ShareCollector {
public:
    explicit ShareCollector(Node& shape) : shape_(shape) {}

    void addWhole(Node* set) { shares_[placeOf(set)].whole = true; }

    void addPart(Node* set, const std::vector<ComponentRange>& ranges) {
        std::vector<ComponentRange>& part = parts_[placeOf(set)];
        part.insert(part.end(), ranges.begin(), ranges.end());
    }

    std::vector<SetShare> finish() {
        for (std::size_t i = 0; i < shares_.size(); ++i) {
            shares_[i].components = componentsByKind(parts_[i], shape_);
        }
        return std::move(shares_);
    }

private:
    std::size_t placeOf(Node* set) {
        const auto [found, isNew] = places_.emplace(set, shares_.size());
        if (isNew) {
            shares_.push_back({set, false, {}});
            parts_.emplace_back();
        }
        return found->second;
    }

    Node& shape_;
    std::vector<SetShare> shares_;
    std::vector<std::vector<ComponentRange>> parts_; // per share
    std::unordered_map<const Node*, std::size_t> places_;
};

} // namespace

std::vector<SelectionItem> membersOf(Node& set, bool flatten) {
    Collector collector(flatten);
    collector.collect(set);
    return std::move(collector.items);
}

std::vector<SetShare> setsOf(Node& shape, std::int32_t instance) {
    const Graph& graph = Host::instance().graph();
    const Plug whole{&shape, PlugAddress{shape.findAttribute("instObjGroups"), 0, {}}.element(instance)};
    ShareCollector shares(shape);
    for (Node* set : setsBehind(whole)) {
        shares.addWhole(set);
    }
    Plug groups = whole;
    groups.at.attr = shape.findAttribute("objectGroups");
    for (const std::int32_t group : graph.elementIndices(groups)) {
        const std::vector<Node*> sets = setsBehind({&shape, groups.at.element(group)});
        const std::vector<ComponentRange> ranges =
            sets.empty() ? std::vector<ComponentRange>() : rangesOf(shape, instance, group);
        for (Node* set : sets) {
            shares.addPart(set, ranges);
        }
    }
    return shares.finish();
}

Node* shadingGroupOfRest(Node& shape, std::int32_t instance) {
    const AttrIndex attr = shape.findAttribute("compObjectGroups");
    if (attr == kNoAttr) {
        return nullptr;
    }
    const Plug groups{&shape, PlugAddress{attr, 0, {}}.element(instance)};
    for (const std::int32_t group : Host::instance().graph().elementIndices(groups)) {
        for (Node* set : setsBehind({&shape, groups.at.element(group)})) {
            if (set->type().isKindOf("shadingEngine")) {
                return set;
            }
        }
    }
    return nullptr;
}

} // namespace host
