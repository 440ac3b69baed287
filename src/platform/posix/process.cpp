#include "platform/process.h"

#include <cerrno>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tvk {

namespace {

constexpr int kSignalBase = 128; // how shells report a program that a signal ended

bool waitForEnd(pid_t process, int& status) {
    pid_t ended = -1;
    do {
        ended = waitpid(process, &status, 0);
    } while (ended < 0 && errno == EINTR);
    return ended == process;
}

} // namespace

const char* const kShellPrefix = "";

std::string quotedArgument(const std::string& argument) {
    std::string quoted = "\"";
    for (const char c : argument) {
        if (c == '"' || c == '$' || c == '`' || c == '\\')
            quoted += '\\';
        quoted += c;
    }
    return quoted + '"';
}

ProcessResult runProcess(const std::string& commandLine, ProcessWindow /*window*/) {
    std::string shell = "sh";
    std::string option = "-c";
    std::string line = commandLine;
    char* const arguments[] = {shell.data(), option.data(), line.data(), nullptr};
    pid_t process = 0;
    if (posix_spawn(&process, "/bin/sh", nullptr, nullptr, arguments, environ) != 0)
        return {};
    int status = 0;
    if (!waitForEnd(process, status))
        return {ProcessOutcome::kExitCodeLost, 1};
    return {ProcessOutcome::kRan, WIFSIGNALED(status) ? kSignalBase + WTERMSIG(status) : WEXITSTATUS(status)};
}

} // namespace tvk
