#pragma once

#include <functional>
#include <string>

namespace host::app {

/// What the program needs of the operating system; one source file per system.

/// Runs `work` with a stack of at least this size and returns its result. Falls back to the stack at hand when the
/// system refuses.
int runWithStack(std::size_t bytes, const std::function<int()>& work);

/// A reader of our output that has gone away must not kill the program.
void ignoreBrokenPipes();

bool isErrorTerminal();
/// Columns of the terminal on standard error; 80 when it is not known.
int errorTerminalColumns();

/// Folder of the running program, with '/' at its end; "" when the system does not tell.
std::string programFolder();

/// Whether files can be made in this folder, as far as the system tells beforehand.
bool isWritableFolder(const std::string& folder);

} // namespace host::app
