#include "host/mel/filePath.h"
#include "host/scene/commandGroups.h"
#include "host/scene/sceneMessages.h"

#include <filesystem>
#include <utility>

namespace host {

namespace {

using mel::CommandResult;
using mel::FlagArgument;
using mel::FlagSyntax;
using mel::ParsedFlags;

// A relative path is looked for where the program runs, then in the project.
std::string findFile(const Scene& scene, const std::string& path) {
    std::error_code ignored;
    const std::filesystem::path given = filePath(path);
    if (given.is_absolute() || std::filesystem::exists(given, ignored)) {
        return path;
    }
    const std::string inProject = scene.workspace().directory() + path;
    return std::filesystem::exists(filePath(inProject), ignored) ? inProject : path;
}

CommandResult query(Scene& scene, const ParsedFlags& flags) {
    const SceneFile& file = scene.file();
    const std::string shortName = file.path.substr(file.path.rfind('/') + 1);
    if (flags.has("sceneName")) {
        return CommandResult(file.path);
    }
    if (flags.has("shortName")) {
        return CommandResult(shortName);
    }
    if (flags.has("modified")) {
        return CommandResult(file.modified);
    }
    if (flags.has("namespace")) {
        return CommandResult(""); // an open scene is in the root namespace
    }
    if (flags.has("exists")) {
        std::error_code ignored;
        const std::vector<std::string> names = flags.objectNames();
        return CommandResult(!names.empty() && std::filesystem::exists(filePath(findFile(scene, names[0])), ignored));
    }
    if (flags.has("list") || flags.has("location")) {
        return flags.has("list") ? CommandResult(mel::StringArray{file.path.empty() ? "untitled" : file.path})
                                 : CommandResult(file.path.empty() ? "unknown" : file.path);
    }
    if (flags.has("type")) {
        return CommandResult(mel::StringArray{"mayaAscii"});
    }
    if (flags.has("reference")) {
        return CommandResult(mel::StringArray(file.references));
    }
    return failure(messages::kNeedsObjects, {"file", "a flag that says what is asked"});
}

CommandResult openFile(Scene& scene, const ParsedFlags& flags) {
    const std::vector<std::string> names = flags.objectNames();
    if (names.size() != 1) {
        return failure(messages::kNeedsObjects, {"file -open", "one path"});
    }
    if (scene.file().modified && !flags.has("force")) {
        return failure(messages::kUnsavedChanges);
    }
    SceneResult result = scene.open(findFile(scene, names[0]));
    return result.ok() ? CommandResult(scene.file().path) : CommandResult::failure(std::move(result.error));
}

CommandResult exportFile(Scene& scene, const ParsedFlags& flags) {
    const std::vector<std::string> names = flags.objectNames();
    if (names.size() != 1) {
        return failure(messages::kNeedsObjects, {"file -exportAll", "one path"});
    }
    ExportRequest request;
    request.path = names[0];
    request.type = flags.text("type");
    request.options = flags.text("options");
    request.hasOptions = flags.has("options");
    request.selectionOnly = flags.has("exportSelected");
    request.force = flags.has("force");
    request.defaultExtensions = flags.boolean("defaultExtensions", true);
    request.preserveReferences = flags.has("preserveReferences");
    if (request.selectionOnly && scene.selection().empty()) {
        return failure(messages::kNothingSelected);
    }
    if (!scene.exportHandler) {
        return failure(messages::kNoExporter, {request.type});
    }
    ExportOutcome outcome = scene.exportHandler(request);
    return outcome.error.empty() ? CommandResult(std::move(outcome.path))
                                 : CommandResult::failure(std::move(outcome.error));
}

CommandResult fileCommand(Scene& scene, const ParsedFlags& flags) {
    if (flags.isQuery) {
        return query(scene, flags);
    }
    if (flags.has("exportAll") || flags.has("exportSelected")) {
        return exportFile(scene, flags);
    }
    if (flags.has("open")) {
        return openFile(scene, flags);
    }
    if (flags.has("newFile")) {
        if (scene.file().modified && !flags.has("force")) {
            return failure(messages::kUnsavedChanges);
        }
        scene.newScene();
        return CommandResult("untitled");
    }
    if (flags.has("rename")) {
        scene.file().path = flags.text("rename");
        return CommandResult(scene.file().path);
    }
    if (flags.has("modified")) {
        scene.file().modified = flags.boolean("modified", false);
        return {};
    }
    return failure(messages::kNeedsObjects, {"file", "-open, -newFile, -exportAll or -exportSelected"});
}

} // namespace

void registerFileCommands(mel::CommandTable& commands, Scene& scene) {
    const std::vector<FlagArgument> text{FlagArgument::kString};
    const std::vector<FlagArgument> onOff{FlagArgument::kBool};
    addCommand(commands, scene, "file",
               FlagSyntax({{"o", "open"},
                           {"new", "newFile"},
                           {"ea", "exportAll"},
                           {"es", "exportSelected"},
                           {"f", "force"},
                           {"op", "options", text},
                           {"typ", "type", text},
                           {"de", "defaultExtensions", onOff},
                           {"pr", "preserveReferences"},
                           {"pmt", "prompt", onOff},
                           {"iv", "ignoreVersion"},
                           {"rn", "rename", text},
                           {"mf", "modified", onOff},
                           {"sn", "sceneName"},
                           {"shn", "shortName"},
                           {"ns", "namespace", text},
                           {"ex", "exists"},
                           {"l", "list"},
                           {"loc", "location"},
                           {"r", "reference"}},
                          FlagSyntax::kQuery),
               fileCommand);
}

} // namespace host
