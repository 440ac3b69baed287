#pragma once

#include <functional>
#include <string>
#include <vector>

namespace host::app {

/// What the program needs of the operating system; one source file per system.

/// Runs `work` with a stack of at least this size and returns its result. Falls back to the stack at hand when the
/// system refuses.
int runWithStack(std::size_t bytes, const std::function<int()>& work);

/// The words of the command line in UTF-8, the program's name first; `main` gets them as the system has them.
std::vector<std::string> programArguments(int count, char** arguments);

/// To be called first: a reader of our output that has gone away must not kill the program, and terminals are told that
/// text is UTF-8.
void prepareStreams();

/// Whether standard error is a terminal that obeys control sequences.
bool isErrorTerminal();
/// Columns of the terminal on standard error; 80 when it is not known.
int errorTerminalColumns();

/// Folder of the running program, with '/' at its end; "" when the system does not tell.
std::string programFolder();

/// A program that has ended.
struct EndedProcess {
    int status = -1;   // exit status; -1 when it could not be started or was killed
    std::string error; // what it wrote on standard error
};

/// Runs a program, named by its path, to its end, without input; what it writes on standard output is dropped. It ends
/// with this program, whatever ends that. Several threads may run programs at once.
EndedProcess runProgram(const std::vector<std::string>& words);

/// Whether files can be made in this folder, as far as the system tells beforehand.
bool isWritableFolder(const std::string& folder);

} // namespace host::app
