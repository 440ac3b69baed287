#pragma once

#include "host/mel/CommandTable.h"
#include "host/mel/FlagSyntax.h"
#include "host/scene/Scene.h"
#include "host/scene/StatementContext.h"
#include "host/scene/sceneCommands.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

/// The groups of commands behind registerSceneCommands, and what they share. Nobody else includes this.
namespace host {

void registerNodeCommands(mel::CommandTable& commands, Scene& scene);
void registerDagCommands(mel::CommandTable& commands, Scene& scene);
void registerXformCommand(mel::CommandTable& commands, Scene& scene);
void registerAttributeCommands(mel::CommandTable& commands, Scene& scene);
void registerAttributeQuery(mel::CommandTable& commands, Scene& scene);
void registerConnectionCommands(mel::CommandTable& commands, Scene& scene);
void registerSelectionCommands(mel::CommandTable& commands, Scene& scene);
void registerListCommands(mel::CommandTable& commands, Scene& scene);
void registerTimeCommands(mel::CommandTable& commands, Scene& scene);
void registerFileCommands(mel::CommandTable& commands, Scene& scene);
void registerTextFileCommands(mel::CommandTable& commands);
void registerFileSystemCommands(mel::CommandTable& commands, Scene& scene);
void registerWorkspaceCommands(mel::CommandTable& commands, Scene& scene);
void registerInterfaceCommands(mel::CommandTable& commands, Scene& scene);
void registerControlCommands(mel::CommandTable& commands);
void registerHostCommands(mel::CommandTable& commands, Scene& scene, const HostFacts& facts);

using SceneCommand = std::function<mel::CommandResult(Scene&, const mel::ParsedFlags&)>;
using SceneStatement = Outcome (*)(StatementContext&, ArgumentStream&);

/// A command with a table of flags.
void addCommand(mel::CommandTable& commands, Scene& scene, std::string name, mel::FlagSyntax syntax,
                SceneCommand command);
/// A statement that scene files have too.
void addStatement(mel::CommandTable& commands, Scene& scene, std::string name, SceneStatement statement);
/// Runs a statement as a command.
mel::CommandResult runStatement(Scene& scene, mel::Interpreter& interpreter, const mel::Invocation& invocation,
                                SceneStatement statement);

mel::CommandResult failure(std::string_view pattern, std::initializer_list<std::string_view> arguments = {});

/// The nodes of the command's objects, or of the selection when it names none. An error when a name matches nothing.
SceneResult findCommandItems(const Scene& scene, const mel::ParsedFlags& flags, std::vector<SelectionItem>& items);

} // namespace host
