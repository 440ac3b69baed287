#pragma once

#include "platform/process.h"

#include <string>

namespace tvk {

/// Starts the Material Workbench on the files just exported, by the run's options, and waits until its starter is
/// through. What goes wrong is said and raises the warning flag: the files are good all the same.
void startMaterialWorkbench();

/// The command line of its starter: the path that the files share, each kind that is on, and what to merge.
///   starter   path of the program
std::string workbenchCommandLine(const std::string& starter);

/// Runs a command line to its end and gives its exit code. When there is none, says so on standard error, sets
/// `succeeded` to false, which otherwise stays as it is, and gives 1.
int execProcess(const std::string& commandLine, ProcessWindow window, bool& succeeded);

} // namespace tvk
