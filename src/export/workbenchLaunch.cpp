#include "export/workbenchLaunch.h"

#include "export/exportMessages.h"
#include "platform/fileSystem.h"
#include "platform/userEnvironment.h"
#include "scene/OutputKind.h"
#include "scene/Run.h"

#include <iostream>
#include <optional>

namespace tvk {
namespace {

// Its messages are errors by name only.
void complain(const Message& message) {
    say(message);
    raiseWarning();
}

} // namespace

std::string workbenchCommandLine(const std::string& starter) {
    const ExportOptions& options = run().options;
    std::string line =
        kShellPrefix + quotedArgument(starter) + " -name " + quotedArgument(options.outputFolder + options.baseName);
    for (const OutputKindRow& row : kOutputKinds) {
        if (options.*row.enabled) {
            line.append(" -").append(row.extension);
        }
    }
    if (options.mergeImdFlag) {
        line += " -merge " + quotedArgument(options.mergeImdPath);
    }
    return line;
}

int execProcess(const std::string& commandLine, ProcessWindow window, bool& succeeded) {
    const ProcessResult result = runProcess(commandLine, window);
    if (result.outcome == ProcessOutcome::kRan) {
        return result.exitCode;
    }
    const bool isStarted = result.outcome == ProcessOutcome::kExitCodeLost;
    std::cerr << (isStarted ? "Error: My exec process get exit code: " : "Error: My exec process create: ")
              << commandLine << std::endl;
    succeeded = false;
    return 1;
}

void startMaterialWorkbench() {
    const std::optional<std::string> folder = environmentValue("TVK_MTWB_ROOT");
    if (!folder) {
        complain(kWorkbenchNotSet);
        return;
    }
    const std::string starter = *folder + kPathSeparator + "TVK_MTWB_Starter.exe";
    if (!fileExists(starter)) {
        complain(kWorkbenchMissing);
        return;
    }
    bool succeeded = true;
    if (execProcess(workbenchCommandLine(starter), ProcessWindow::kHidden, succeeded) != 0) {
        complain(kWorkbenchFailed);
    }
}

} // namespace tvk
