#include "host/app/runScripts.h"

#include "host/app/exitStatus.h"
#include "host/app/prepareHost.h"
#include "host/mel/FlagSyntax.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <system_error>

namespace host::app {

namespace {

using ExitCode = std::shared_ptr<std::optional<int>>;

/// Adds `quit [-force] [-exitCode N]`: ends the scripts, and the program with that status.
ExitCode addQuit(mel::Interpreter& interpreter) {
    auto exitCode = std::make_shared<std::optional<int>>();
    const auto quit = [exitCode](mel::Interpreter&, const mel::Invocation& call) -> mel::CommandResult {
        static const mel::FlagSyntax syntax(
            {{"f", "force"}, {"ec", "exitCode", {mel::FlagArgument::kInt}}, {"a", "abort"}});
        const mel::FlagSyntax::Result parsed = syntax.parse(call);
        if (parsed.error) {
            return mel::CommandResult::failure("quit: " + *parsed.error);
        }
        *exitCode = static_cast<int>(parsed.flags.value("ec").toInt());
        return mel::CommandResult::failure("quit"); // nothing behind it runs …
    };
    interpreter.setStepHook([exitCode] { return !exitCode->has_value(); }); // … not even behind a catch, for long
    const bool isNew = interpreter.commands().add("quit", quit);
    static_cast<void>(isNew); // the host has no such command
    return exitCode;
}

/// The file as seen from the current folder, which the search path of scripts does not hold.
std::string scriptPath(const std::string& script) {
    std::error_code error;
    return std::filesystem::absolute(std::filesystem::u8path(script), error).generic_u8string();
}

bool isDone(Console& console, const mel::EvalResult& result, const ExitCode& exitCode) {
    if (!result.ok() && !exitCode->has_value()) {
        console.error(result.error->describe());
    }
    return result.ok() && !exitCode->has_value();
}

} // namespace

int runScripts(Host& host, Console& console, const CommandLine& commandLine) {
    if (!loadExporter(host, console, commandLine) || !openScene(host, console, commandLine)) {
        return kFailed;
    }
    mel::Interpreter& interpreter = host.interpreter();
    const ExitCode exitCode = addQuit(interpreter);
    bool done =
        commandLine.script.empty() || isDone(console, interpreter.source(scriptPath(commandLine.script)), exitCode);
    done = done && (commandLine.command.empty() || isDone(console, interpreter.eval(commandLine.command), exitCode));
    interpreter.setStepHook(nullptr);
    if (exitCode->has_value()) {
        return exitCode->value();
    }
    if (!done) {
        return kFailed;
    }
    return commandLine.strict && console.warnings() != 0 ? kDoneWithWarnings : kDone;
}

} // namespace host::app
