#include "host/scene/commandGroups.h"
#include "host/scene/sceneMessages.h"

#include <utility>

namespace host {

namespace {

using mel::CommandResult;
using mel::FlagArgument;
using mel::FlagSyntax;
using mel::ParsedFlags;

CommandResult query(const Workspace& workspace, const ParsedFlags& flags) {
    if (flags.has("rootDirectory")) {
        return CommandResult(workspace.rootDirectory());
    }
    if (flags.has("directory")) {
        return CommandResult(workspace.directory());
    }
    if (flags.has("fullName")) {
        return CommandResult(workspace.fullName());
    }
    if (flags.has("objectTypeEntry")) {
        return CommandResult(workspace.objectTypeEntry(flags.text("objectTypeEntry")));
    }
    if (flags.has("fileRuleEntry")) {
        return CommandResult(workspace.fileRuleEntry(flags.text("fileRuleEntry")));
    }
    return failure(messages::kNeedsObjects, {"workspace", "a flag that says what is asked"});
}

CommandResult workspaceCommand(Scene& scene, const ParsedFlags& flags) {
    Workspace& workspace = scene.workspace();
    if (flags.isQuery) {
        return query(workspace, flags);
    }
    const std::vector<std::string> names = flags.objectNames();
    if (flags.has("openWorkspace") || flags.has("update")) {
        if (names.size() != 1) {
            return failure(messages::kNeedsObjects, {"workspace -openWorkspace", "one folder"});
        }
        return workspace.open(names[0]) ? CommandResult(workspace.fullName())
                                        : failure(messages::kNoProject, {names[0]});
    }
    if (flags.has("directory")) {
        const std::string folder = flags.text("directory");
        return workspace.setDirectory(folder) ? CommandResult() : failure(messages::kNoProject, {folder});
    }
    if (flags.has("fileRule")) {
        workspace.setFileRuleEntry(flags.value("fileRule", 0).toText(), flags.value("fileRule", 1).toText());
        return {};
    }
    if (flags.has("objectType")) {
        workspace.setObjectTypeEntry(flags.value("objectType", 0).toText(), flags.value("objectType", 1).toText());
        return {};
    }
    if (flags.has("fileRuleEntry")) { // outside queries it answers too
        return CommandResult(workspace.fileRuleEntry(flags.text("fileRuleEntry")));
    }
    if (flags.has("objectTypeEntry")) {
        return CommandResult(workspace.objectTypeEntry(flags.text("objectTypeEntry")));
    }
    return failure(messages::kNeedsObjects, {"workspace", "-openWorkspace, -directory, -fileRule or -objectType"});
}

} // namespace

void registerWorkspaceCommands(mel::CommandTable& commands, Scene& scene) {
    const std::vector<FlagArgument> text{FlagArgument::kString};
    const std::vector<FlagArgument> twoTexts{FlagArgument::kString, FlagArgument::kString};
    addCommand(commands, scene, "workspace",
               FlagSyntax({{"o", "openWorkspace"},
                           {"rd", "rootDirectory"},
                           {"dir", "directory", text},
                           {"fn", "fullName"},
                           {"ote", "objectTypeEntry", text, false, true},
                           {"fre", "fileRuleEntry", text, false, true},
                           {"fr", "fileRule", twoTexts},
                           {"ot", "objectType", twoTexts},
                           {"u", "update"}},
                          FlagSyntax::kQuery),
               workspaceCommand);
}

} // namespace host
