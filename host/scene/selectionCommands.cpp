#include "host/scene/commandGroups.h"
#include "host/scene/sceneMessages.h"
#include "host/scene/setMembers.h"

#include <unordered_set>
#include <utility>

namespace host {

namespace {

using mel::CommandResult;
using mel::FlagSyntax;
using mel::ParsedFlags;

// The paths of an item and of everything below it.
void addHierarchy(const SelectionItem& top, std::vector<SelectionItem>& items) {
    std::vector<SelectionItem> open{top};
    while (!open.empty()) {
        const SelectionItem item = std::move(open.back());
        open.pop_back();
        items.push_back(item);
        for (auto child = item.node->children().rbegin(); child != item.node->children().rend(); ++child) {
            SelectionItem below{*child, item.path, {}, {}};
            below.path.nodes.push_back(*child);
            open.push_back(std::move(below));
        }
    }
}

// What the names stand for: sets stand for their members unless told otherwise.
std::vector<SelectionItem> expanded(Scene& scene, const ParsedFlags& flags, const std::vector<SelectionItem>& named) {
    std::vector<SelectionItem> items;
    for (const SelectionItem& item : named) {
        if (item.isWholeNode() && isSet(*item.node) && !flags.has("noExpand")) {
            addMembers(scene, *item.node, items);
        } else if (item.isWholeNode() && flags.has("hierarchy") && item.node->isDag()) {
            addHierarchy(item, items);
        } else {
            items.push_back(item);
        }
    }
    return items;
}

void addTopNodes(const Scene& scene, std::vector<SelectionItem>& items) {
    for (Node* node : scene.graph().world().children()) {
        if (!node->isDefault) {
            items.push_back({node, DagPath{{node}}, {}, {}});
        }
    }
}

CommandResult selectCommand(Scene& scene, const ParsedFlags& flags) {
    Selection& selection = scene.selection();
    if (flags.has("clear")) {
        selection.clear();
        return {};
    }
    std::vector<SelectionItem> named;
    if (flags.has("all") || flags.has("allDagObjects")) {
        addTopNodes(scene, named);
    } else {
        SceneResult found = findCommandItems(scene, flags, named);
        if (!found.ok()) {
            return CommandResult::failure(std::move(found.error));
        }
    }
    const std::vector<SelectionItem> items = expanded(scene, flags, named);
    const bool keeps = flags.has("add") || flags.has("addFirst") || flags.has("deselect") || flags.has("toggle");
    if (!keeps) {
        selection.clear();
    }
    if (flags.has("addFirst")) {
        const std::vector<SelectionItem> before = selection.items();
        selection.clear();
        for (const SelectionItem& item : items) {
            selection.add(item);
        }
        for (const SelectionItem& item : before) {
            selection.add(item);
        }
        return {};
    }
    for (const SelectionItem& item : items) {
        const bool removes = flags.has("deselect") || (flags.has("toggle") && selection.contains(item));
        removes ? selection.remove(item) : selection.add(item);
    }
    return {};
}

} // namespace

void registerSelectionCommands(mel::CommandTable& commands, Scene& scene) {
    addCommand(commands, scene, "select",
               FlagSyntax({{"r", "replace"},
                           {"add", "add"},
                           {"af", "addFirst"},
                           {"d", "deselect"},
                           {"tgl", "toggle"},
                           {"cl", "clear"},
                           {"ne", "noExpand"},
                           {"hi", "hierarchy"},
                           {"all", "all"},
                           {"ado", "allDagObjects"}}),
               selectCommand);
}

} // namespace host
