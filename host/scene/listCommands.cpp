#include "host/scene/commandGroups.h"
#include "host/scene/sceneMessages.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

namespace host {

namespace {

using mel::CommandResult;
using mel::FlagArgument;
using mel::FlagSyntax;
using mel::ParsedFlags;

// Flags of `ls` that stand for a type.
struct TypeFlag {
    const char* shortName;
    const char* longName;
    const char* type;
};

constexpr TypeFlag kTypeFlags[] = {
    {"s", "shapes", "shape"},         {"tr", "transforms", "transform"},
    {"ca", "cameras", "camera"},      {"lt", "lights", "light"},
    {"tex", "textures", "texture2d"}, {"dag", "dagObjects", "dagNode"},
    {"set", "sets", "objectSet"},     {"typ", "type", ""},
};

bool isIntermediate(const Scene& scene, Node& node) {
    const AttrIndex attr = node.findAttribute("intermediateObject");
    return attr != kNoAttr && const_cast<Graph&>(scene.graph()).number({&node, PlugAddress{attr, 0, {}}}) != 0.0;
}

// What the type flags of a call let through: a node of any of the types named, or every node when none is.
class NodeFilter {
public:
    NodeFilter(const Scene& scene, const ParsedFlags& flags) : scene_(scene) {
        for (const TypeFlag& row : kTypeFlags) {
            const bool isList = std::string_view(row.longName) == "dagObjects";
            if (*row.type != '\0' && !isList && flags.has(row.longName)) {
                types_.emplace_back(row.type);
            }
        }
        for (std::size_t use = 0; use < flags.uses("type"); ++use) {
            types_.push_back(flags.value("type", 0, use).toText());
        }
        for (std::size_t use = 0; use < flags.uses("exactType"); ++use) {
            exactTypes_.push_back(flags.value("exactType", 0, use).toText());
        }
        onlyIntermediate_ = flags.has("intermediateObjects");
        noIntermediate_ = flags.has("noIntermediate");
    }

    bool passes(Node& node) const {
        if ((onlyIntermediate_ || noIntermediate_) && isIntermediate(scene_, node) != onlyIntermediate_) {
            return false;
        }
        const NodeType& type = node.type();
        const bool isKind =
            std::any_of(types_.begin(), types_.end(), [&](const std::string& name) { return type.isKindOf(name); });
        const bool isExact = std::find(exactTypes_.begin(), exactTypes_.end(), type.name()) != exactTypes_.end();
        return isKind || isExact || (types_.empty() && exactTypes_.empty());
    }

private:
    const Scene& scene_;
    std::vector<std::string> types_, exactTypes_;
    bool onlyIntermediate_ = false, noIntermediate_ = false;
};

// Items of nodes with one path come without it: listing the paths of a deep hierarchy would cost its square.
std::vector<SelectionItem> everyNode(const Scene& scene) {
    std::vector<SelectionItem> items;
    for (Node* node : scene.graph().nodes()) {
        items.push_back({node, {}, {}, {}});
    }
    return items;
}

// A node met on the way down, and the one above it.
struct Step {
    Node* node;
    std::size_t above; // position in the list; of a top item, its own
};

DagPath pathTo(const std::vector<Step>& steps, std::size_t at, const DagPath& top) {
    DagPath below;
    for (; steps[at].above != at; at = steps[at].above) {
        below.nodes.push_back(steps[at].node);
    }
    DagPath path = top;
    path.nodes.insert(path.nodes.end(), below.nodes.rbegin(), below.nodes.rend());
    return path;
}

// The items and all below them, depth first, each node once.
std::vector<SelectionItem> withDescendants(const Scene& scene, const std::vector<SelectionItem>& tops) {
    std::vector<SelectionItem> items;
    std::unordered_set<const Node*> seen;
    for (const SelectionItem& top : tops) {
        std::vector<Step> steps;
        std::vector<Step> open{{top.node, 0}};
        while (!open.empty()) {
            const Step step = open.back();
            open.pop_back();
            if (!step.node->isDag() || !seen.insert(step.node).second) {
                continue;
            }
            const std::size_t place = steps.size();
            steps.push_back(step);
            const bool isInstanced = pathCount(scene.graph(), *step.node) > 1;
            items.push_back({step.node, isInstanced ? pathTo(steps, place, top.path) : DagPath(), {}, {}});
            for (auto child = step.node->children().rbegin(); child != step.node->children().rend(); ++child) {
                open.push_back({*child, place});
            }
        }
    }
    return items;
}

std::vector<SelectionItem> topNodes(const Scene& scene) {
    std::vector<SelectionItem> items;
    for (Node* node : scene.graph().world().children()) {
        items.push_back({node, DagPath{{node}}, {}, {}});
    }
    return items;
}

// One item for each path of each node.
std::vector<SelectionItem> withAllPaths(const Scene& scene, const std::vector<SelectionItem>& items) {
    std::vector<SelectionItem> all;
    for (const SelectionItem& item : items) {
        if (!item.node->isDag() || !item.isWholeNode()) {
            all.push_back(item);
            continue;
        }
        for (DagPath& path : allPaths(scene.graph(), *item.node)) {
            all.push_back({item.node, std::move(path), {}, {}});
        }
    }
    return all;
}

std::vector<SelectionItem> startOfList(const Scene& scene, const ParsedFlags& flags, SceneResult& result) {
    std::vector<SelectionItem> items;
    if (flags.has("selection")) {
        return scene.selection().items();
    }
    if (flags.has("assemblies")) {
        return topNodes(scene);
    }
    const std::vector<std::string> names = flags.objectNames();
    if (names.empty()) {
        return flags.has("dagObjects") ? topNodes(scene) : everyNode(scene);
    }
    for (const std::string& name : names) {
        SceneResult found = scene.findItems(name, items);
        // What is not there is not listed; a name that several nodes have lists them all.
        if (!found.ok() && scene.find(name).isAmbiguous) {
            const std::string bare = name.substr(name.rfind('|') == std::string::npos ? 0 : name.rfind('|') + 1);
            (void)scene.findItems("*|" + bare, items);
            for (Node* node : scene.names().nodesNamed(bare)) {
                SelectionItem item{node, {}, {}, {}};
                (void)scene.names().findPath(scene.names().shortestName(*node), item.path);
                const bool isListed = std::any_of(items.begin(), items.end(),
                                                  [&](const SelectionItem& other) { return other.sameObject(item); });
                if (!isListed) {
                    items.push_back(std::move(item));
                }
            }
        }
    }
    result = {};
    return items;
}

void appendNames(const Scene& scene, const SelectionItem& item, const ParsedFlags& flags, mel::StringArray& names) {
    if (flags.has("uuid")) {
        names.push_back(item.node->uuid);
        return;
    }
    const std::string name = scene.itemName(item, flags.has("long"));
    if (item.components.empty()) {
        names.push_back(name);
    }
    for (const std::string& component : item.components) {
        names.push_back(name + "." + component);
    }
    if (flags.has("showType")) {
        names.push_back(item.node->type().name());
    }
}

CommandResult lsCommand(Scene& scene, const ParsedFlags& flags) {
    SceneResult result;
    std::vector<SelectionItem> items = startOfList(scene, flags, result);
    if (flags.has("dagObjects")) {
        items = withDescendants(scene, items);
    }
    if (flags.has("allPaths")) {
        items = withAllPaths(scene, items);
    }
    const NodeFilter filter(scene, flags);
    mel::StringArray names;
    for (const SelectionItem& item : items) {
        if (filter.passes(*item.node)) {
            appendNames(scene, item, flags, names);
        }
    }
    return CommandResult(std::move(names));
}

// --- listRelatives

void addChildren(const SelectionItem& item, std::vector<SelectionItem>& relatives) {
    for (Node* child : item.node->children()) {
        SelectionItem below{child, item.path, {}, {}};
        below.path.nodes.push_back(child);
        relatives.push_back(std::move(below));
    }
}

void addParents(const Scene& scene, const SelectionItem& item, bool all, std::vector<SelectionItem>& relatives) {
    for (DagPath& path : all ? allPaths(scene.graph(), *item.node) : std::vector<DagPath>{item.path}) {
        if (path.nodes.size() > 1) {
            path.nodes.pop_back();
            relatives.push_back({path.nodes.back(), std::move(path), {}, {}});
        }
    }
}

std::vector<SelectionItem> relativesOf(const Scene& scene, const SelectionItem& item, const ParsedFlags& flags) {
    std::vector<SelectionItem> relatives;
    if (flags.has("parent") || flags.has("allParents")) {
        addParents(scene, item, flags.has("allParents"), relatives);
    } else if (flags.has("allDescendents")) {
        relatives = withDescendants(scene, {item});
        relatives.erase(relatives.begin());
        std::reverse(relatives.begin(), relatives.end()); // the host lists what is deepest first
    } else {
        addChildren(item, relatives);
    }
    return relatives;
}

CommandResult listRelativesCommand(Scene& scene, const ParsedFlags& flags) {
    std::vector<SelectionItem> items;
    SceneResult found = findCommandItems(scene, flags, items);
    if (!found.ok()) {
        return CommandResult::failure(std::move(found.error));
    }
    const NodeFilter filter(scene, flags);
    mel::StringArray names;
    for (const SelectionItem& item : items) {
        if (!item.node->isDag() || !item.isWholeNode()) {
            continue;
        }
        for (const SelectionItem& relative : relativesOf(scene, item, flags)) {
            if (!filter.passes(*relative.node)) {
                continue;
            }
            const bool wantsPath = flags.has("fullPath") || flags.has("path");
            names.push_back(wantsPath ? scene.itemName(relative, flags.has("fullPath")) : relative.node->name());
        }
    }
    return CommandResult(std::move(names));
}

} // namespace

void registerListCommands(mel::CommandTable& commands, Scene& scene) {
    std::vector<mel::FlagSpec> flags{{"sl", "selection"},
                                     {"l", "long"},
                                     {"ap", "allPaths"},
                                     {"as", "assemblies"},
                                     {"o", "objectsOnly"},
                                     {"fl", "flatten"},
                                     {"st", "showType"},
                                     {"io", "intermediateObjects"},
                                     {"ni", "noIntermediate"},
                                     {"uid", "uuid"},
                                     {"et", "exactType", {FlagArgument::kString}, true}};
    for (const TypeFlag& row : kTypeFlags) {
        const bool namesType = *row.type == '\0';
        flags.push_back({row.shortName, row.longName,
                         namesType ? std::vector<FlagArgument>{FlagArgument::kString} : std::vector<FlagArgument>(),
                         namesType});
    }
    addCommand(commands, scene, "ls", FlagSyntax(std::move(flags)), lsCommand);
    addCommand(commands, scene, "listRelatives",
               FlagSyntax({{"c", "children"},
                           {"ad", "allDescendents"},
                           {"p", "parent"},
                           {"ap", "allParents"},
                           {"s", "shapes"},
                           {"f", "fullPath"},
                           {"pa", "path"},
                           {"ni", "noIntermediate"},
                           {"typ", "type", {FlagArgument::kString}, true}}),
               listRelativesCommand);
}

} // namespace host
