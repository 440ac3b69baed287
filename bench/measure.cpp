#include "bench/measure.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tvk {

namespace {

[[noreturn]] void becomeProgram(const std::vector<char*>& arguments) {
    const int nowhere = open("/dev/null", O_RDWR);
    for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        dup2(nowhere, descriptor);
    }
    execv(arguments.front(), arguments.data());
    _exit(127);
}

} // namespace

ProgramCost runProgram(const std::vector<std::string>& command) {
    std::vector<char*> arguments;
    arguments.reserve(command.size() + 1);
    for (const std::string& argument : command) {
        arguments.push_back(const_cast<char*>(argument.c_str()));
    }
    arguments.push_back(nullptr);

    ProgramCost cost;
    const auto start = std::chrono::steady_clock::now();
    const pid_t child = fork();
    if (child == 0) {
        becomeProgram(arguments);
    }
    int status = 0;
    rusage usage{};
    if (child < 0 || wait4(child, &status, 0, &usage) != child) {
        return cost;
    }
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
    cost.seconds = taken.count();
    cost.exitStatus = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    cost.peakBytes = std::int64_t{usage.ru_maxrss} * 1024;
    return cost;
}

} // namespace tvk
