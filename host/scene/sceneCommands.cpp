#include "host/scene/sceneCommands.h"

#include "host/mel/Interpreter.h"
#include "host/scene/CommandArguments.h"
#include "host/scene/commandGroups.h"
#include "host/scene/sceneMessages.h"

#include <utility>

namespace host {

void registerSceneCommands(mel::CommandTable& commands, Scene& scene, const HostFacts& facts) {
    registerNodeCommands(commands, scene);
    registerDagCommands(commands, scene);
    registerXformCommand(commands, scene);
    registerAttributeCommands(commands, scene);
    registerAttributeQuery(commands, scene);
    registerConnectionCommands(commands, scene);
    registerSelectionCommands(commands, scene);
    registerListCommands(commands, scene);
    registerTimeCommands(commands, scene);
    registerFileCommands(commands, scene);
    registerTextFileCommands(commands);
    registerFileSystemCommands(commands, scene);
    registerWorkspaceCommands(commands, scene);
    registerInterfaceCommands(commands, scene);
    registerControlCommands(commands);
    registerHostCommands(commands, scene, facts);
}

void addCommand(mel::CommandTable& commands, Scene& scene, std::string name, mel::FlagSyntax syntax,
                SceneCommand command) {
    auto run = [&scene, syntax = std::move(syntax), command = std::move(command)](
                   mel::Interpreter&, const mel::Invocation& invocation) -> mel::CommandResult {
        const mel::FlagSyntax::Result parsed = syntax.parse(invocation);
        if (parsed.error) {
            return mel::CommandResult::failure(*parsed.error);
        }
        return command(scene, parsed.flags);
    };
    // A name that is taken stays what it was: the table's first entry wins.
    (void)commands.add(std::move(name), std::move(run));
}

mel::CommandResult runStatement(Scene& scene, mel::Interpreter& interpreter, const mel::Invocation& invocation,
                                SceneStatement statement) {
    StatementContext context(scene, false);
    context.warn = [&](const std::string& line) {
        if (interpreter.sinks().warning) {
            interpreter.sinks().warning(line);
        }
    };
    CommandArguments arguments(invocation);
    Outcome outcome = statement(context, arguments);
    context.finishFaces();
    if (outcome.ok() && !arguments.atEnd()) {
        outcome = Outcome::broken(arguments, "the end of the command");
    }
    if (!outcome.ok()) {
        return mel::CommandResult::failure(std::move(outcome.text));
    }
    scene.file().modified = true;
    return std::move(outcome.value);
}

void addStatement(mel::CommandTable& commands, Scene& scene, std::string name, SceneStatement statement) {
    (void)commands.add(std::move(name),
                       [&scene, statement](mel::Interpreter& interpreter, const mel::Invocation& invocation) {
                           return runStatement(scene, interpreter, invocation, statement);
                       });
}

mel::CommandResult failure(std::string_view pattern, std::initializer_list<std::string_view> arguments) {
    return mel::CommandResult::failure(messages::text(pattern, arguments));
}

SceneResult findCommandItems(const Scene& scene, const mel::ParsedFlags& flags, std::vector<SelectionItem>& items) {
    const std::vector<std::string> names = flags.objectNames();
    for (const std::string& name : names) {
        SceneResult found = scene.findItems(name, items);
        if (!found.ok()) {
            return found;
        }
    }
    if (names.empty()) {
        items = scene.selection().items();
    }
    return {};
}

} // namespace host
