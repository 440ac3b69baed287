#include "platform/process.h"

#include "platform/windows/wideText.h"

#include <windows.h>

namespace tvk {

namespace {

// Of a line with more than two double quotes, `cmd` drops the first, when the line begins with it, and the last: of a
// quoted program with a quoted argument, the ones that hold them together. A pair around all of it is dropped instead.
std::wstring linePassedOn(const std::string& commandLine) {
    const std::string prefix = kShellPrefix;
    if (commandLine.compare(0, prefix.size(), prefix) != 0)
        return wideFromUtf8(commandLine);
    return wideFromUtf8(prefix + '"' + commandLine.substr(prefix.size()) + '"');
}

} // namespace

const char* const kShellPrefix = "cmd /c ";

std::string quotedArgument(const std::string& argument) {
    return '"' + argument + '"';
}

ProcessResult runProcess(const std::string& commandLine, ProcessWindow window) {
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESHOWWINDOW;
    startup.wShowWindow = window == ProcessWindow::kHidden ? SW_HIDE : SW_SHOWNORMAL;
    PROCESS_INFORMATION process{};
    std::wstring line = linePassedOn(commandLine); // CreateProcess writes into it
    if (!CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &process))
        return {};
    WaitForInputIdle(process.hProcess, INFINITE);
    WaitForSingleObject(process.hProcess, INFINITE);
    DWORD exitCode = 0;
    const bool known = GetExitCodeProcess(process.hProcess, &exitCode) != 0;
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    if (!known)
        return {ProcessOutcome::kExitCodeLost, 1};
    return {ProcessOutcome::kRan, static_cast<int>(exitCode)};
}

} // namespace tvk
