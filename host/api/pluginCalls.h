#pragma once

#include "host/api/Plugin.h"
#include "host/mel/CommandTable.h"
#include "host/mel/Interpreter.h"

#include <maya/MArgList.h>

#include <functional>
#include <optional>
#include <string>

namespace host {

class Host;

/// Runs code of a plug-in: keeps the plug-in from being unloaded meanwhile, and turns what it throws into a line of
/// text (without "Error:"). Nothing on success.
std::optional<std::string> runPluginCode(Host& host, Plugin& plugin, const std::function<void()>& code);

/// Calls an entry point by the name that the C++ compiler gave it, or by its plain one. An error when the library has
/// none, or when it fails.
std::optional<std::string> callEntryPoint(Host& host, Plugin& plugin, const char* name);

/// Makes an object of the command, runs it on the arguments of a MEL call, and deletes it.
mel::CommandResult runPluginCommand(Host& host, Plugin& plugin, const CommandEntry& entry,
                                    const mel::Invocation& invocation);

/// The arguments of a MEL call as texts; arrays and vectors give one per element.
MArgList argumentList(const mel::Invocation& invocation);

} // namespace host
